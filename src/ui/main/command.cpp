#include "ui/main/command.h"

#include "ui/common/accessible.h"

#include <QAction>

QAction *MakeCommand(const CommandText &text, const std::function<void()> &run, QObject *parent)
{
    auto *action = new QAction(text.text, parent);
    action->setIconText(PlainLabel(text.text)); // of a tool button; the toolkit knows "..." alone
    action->setObjectName(QLatin1StringView(text.name));
    action->setStatusTip(text.prompt);
    action->setToolTip(text.prompt.isEmpty() ? PlainLabel(action->text()) : text.prompt);
    action->setShortcut(text.keys);
    if (text.picture) {
        action->setIcon(IconOf(*text.picture));
    }
    action->setVisible(static_cast<bool>(run));
    if (run) {
        QObject::connect(action, &QAction::triggered, action, [run] { run(); });
    }
    return action;
}
