#include "ui/common/message_box_prompt.h"

#include <QApplication>
#include <QMessageBox>

using namespace Qt::StringLiterals;

namespace {

QMessageBox::StandardButton Show(QMessageBox::Icon icon,
                                 const QString &text,
                                 const QString &caption,
                                 QMessageBox::StandardButtons buttons)
{
    const QString title = caption.isEmpty() ? u"Tollbrook Administrator"_s : caption;
    QMessageBox box(icon, title, text, buttons, QApplication::activeWindow());
    box.setObjectName(u"messageBox"_s);
    box.setTextFormat(Qt::PlainText); // names typed by a person are no markup
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setAccessibleName(title);
    box.setAccessibleDescription(text);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

QMessageBox::Icon Sign(Prompt::Icon icon)
{
    switch (icon) {
    case Prompt::Icon::Warning:
        return QMessageBox::Warning;
    case Prompt::Icon::Error:
        return QMessageBox::Critical;
    case Prompt::Icon::Information:
        break;
    }
    return QMessageBox::Information;
}

} // namespace

void MessageBoxPrompt::Tell(const QString &text, Icon icon, const QString &caption)
{
    Show(Sign(icon), text, caption, QMessageBox::Ok);
}

bool MessageBoxPrompt::Ask(const QString &text, const QString &caption)
{
    return Show(QMessageBox::Question, text, caption, QMessageBox::Yes | QMessageBox::No)
        == QMessageBox::Yes;
}
