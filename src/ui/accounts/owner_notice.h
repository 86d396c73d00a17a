// Whose account a window shows, and word that there is none any more.
#pragma once

#include "accounts/account_owner.h"

class QWidget;

// A picture and "User: anna" or "Group: sales".
[[nodiscard]] QWidget *OwnerHeading(const AccountOwner &owner, QWidget *parent);

void TellOwnerIsGone(const AccountOwner &owner);
