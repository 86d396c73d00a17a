#include "ui/main/command.h"

#include "ui/common/accessible.h"

#include <QAction>

QAction *MakeCommand(const CommandText &text, const std::function<void()> &run, QObject *parent)
{
    auto *action = new QAction(QString::fromUtf16(text.text), parent);
    const QString prompt = QString::fromUtf16(text.prompt);
    action->setObjectName(QLatin1StringView(text.name));
    action->setStatusTip(prompt);
    action->setToolTip(prompt.isEmpty() ? PlainLabel(action->text()) : prompt);
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
