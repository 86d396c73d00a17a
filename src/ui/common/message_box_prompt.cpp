#include "ui/common/message_box_prompt.h"

#include <QApplication>
#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QScrollArea>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(MessageBoxPrompt)
};

constexpr int kMostLines = 16; // that a small screen has room for

// A message that names many things stays smaller than the screen: its text scrolls.
void LetScroll(QMessageBox &box)
{
    auto *label = box.findChild<QLabel *>(u"qt_msgbox_label"_s);
    auto *grid = qobject_cast<QGridLayout *>(box.layout());
    if (label == nullptr || grid == nullptr) {
        return;
    }
    auto *area = new QScrollArea;
    area->setObjectName(u"messageText"_s);
    area->setFrameShape(QFrame::NoFrame);
    delete grid->replaceWidget(label, area);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignTop);
    area->setWidget(label);
    area->setWidgetResizable(true);
    area->setMinimumSize(label->sizeHint().width() + area->verticalScrollBar()->sizeHint().width(),
                         kMostLines * label->fontMetrics().lineSpacing());
}

QMessageBox::StandardButton Show(QMessageBox::Icon icon,
                                 const QString &text,
                                 const QString &caption,
                                 QMessageBox::StandardButtons buttons,
                                 QMessageBox::StandardButton byReturn = QMessageBox::NoButton)
{
    const QString title = caption.isEmpty() ? Words::tr("Tollbrook Administrator") : caption;
    QMessageBox box(icon, title, text, buttons, QApplication::activeWindow());
    box.setObjectName(u"messageBox"_s);
    box.setDefaultButton(byReturn);
    box.setTextFormat(Qt::PlainText); // names typed by a person are no markup
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setAccessibleName(title);
    box.setAccessibleDescription(text);
    if (text.count(u'\n') >= kMostLines) {
        LetScroll(box);
    }
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

bool MessageBoxPrompt::AskToDestroy(const QString &text, const QString &goes)
{
    return Show(QMessageBox::Warning,
                goes.isEmpty() ? text : text + u"\n\n"_s + goes,
                {},
                QMessageBox::Yes | QMessageBox::No,
                QMessageBox::No)
        == QMessageBox::Yes;
}
