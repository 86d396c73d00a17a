// A command of the main window: what it is called and what it does.
#pragma once

#include "ui/common/icons.h"

#include <QKeySequence>
#include <QString>

#include <functional>
#include <optional>

class QAction;
class QObject;

struct CommandText
{
    const char *name; // of the action
    QString text; // in the menu, with its mnemonic
    QString prompt; // in the status bar and as the toolbar's tip; empty for the plain text
    std::optional<Picture> picture = {};
    QKeySequence keys = {};
};

// An action for the menus and toolbars. Without a function it is not shown anywhere.
[[nodiscard]] QAction *
MakeCommand(const CommandText &text, const std::function<void()> &run, QObject *parent);
