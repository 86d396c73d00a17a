// Whose account a window shows, and word that there is none any more.
#pragma once

#include "access/owner.h"
#include "base/prompt.h"

class HeadingLine;
class QWidget;

// A picture and "User: anna" or "Group: sales"; a long name is cut to the room that there is.
[[nodiscard]] HeadingLine *OwnerHeading(const Owner &owner, const QString &name, QWidget *parent);

void TellOwnerIsGone(Prompt &prompt, const Owner &owner);
