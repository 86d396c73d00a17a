#include "ui/props/why_lines.h"

#include "ui/common/accessible.h"
#include "ui/common/keyboard_order.h"
#include "ui/common/look_lock.h"

#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

// What is seen at once; the rest is scrolled to.
constexpr int kCharacters = 40;
constexpr int kLines = 5;

} // namespace

WhyLines::WhyLines(Commands commands, QWidget *parent)
    : QScrollArea(parent)
    , showsCommands(commands == Commands::Shown)
{
    SetNames(*this, u"whyLines"_s, tr("Why, and until when"));
    setWidgetResizable(true);
    setFrameShape(NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::StrongFocus);
    viewport()->setAutoFillBackground(false);
    auto *inner = new QWidget;
    lines = new QVBoxLayout(inner);
    lines->setContentsMargins({});
    lines->addStretch();
    setWidget(inner);
    inner->setAutoFillBackground(false);
    Clear();
}

QSize WhyLines::sizeHint() const
{
    return {fontMetrics().averageCharWidth() * kCharacters, fontMetrics().lineSpacing() * kLines};
}

// A button cannot be scrolled to from side to side.
QSize WhyLines::minimumSizeHint() const
{
    const int bar = verticalScrollBar()->sizeHint().width();
    return {widget()->minimumSizeHint().width() + bar, sizeHint().height()};
}

// What is inside is not yet laid out when it is made, and a scroll area does not ask for more room later.
bool WhyLines::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == widget() && event->type() == QEvent::LayoutRequest) {
        updateGeometry();
    }
    return QScrollArea::eventFilter(watched, event);
}

// A button may be what brought the change about: it goes once it is done.
void WhyLines::Clear()
{
    if (content != nullptr) {
        content->hide();
        content->setParent(nullptr);
        content->deleteLater();
    }
    content = new QWidget;
    column = new QVBoxLayout(content);
    column->setContentsMargins({});
    lines->insertWidget(0, content);
}

void WhyLines::Show(const WhyAccess &why, const QString &difference)
{
    Clear();
    for (const WhyLine &line : why.lines) {
        AddText(line.text, line.decides);
        if (showsCommands && !OnlyLooks(*this)) {
            AddCommands(line);
        }
    }
    if (!difference.isEmpty()) {
        AddText(difference, false);
    }
    GiveMnemonics(*content, taken);
    QWidget *previous = this; // in the order of Tab, whose end they would stand at
    for (auto *button : content->findChildren<QPushButton *>()) {
        setTabOrder(previous, button);
        previous = button;
    }
}

void WhyLines::ShowText(const QString &text)
{
    Clear();
    if (!text.isEmpty()) {
        AddText(text, false);
    }
}

void WhyLines::AddText(const QString &text, bool isStrong)
{
    auto *label = new QLabel(text);
    label->setObjectName(u"whyLine"_s);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    QFont font = label->font();
    font.setBold(isStrong);
    label->setFont(font);
    column->addWidget(label);
}

void WhyLines::AddCommands(const WhyLine &line)
{
    if (line.commands.isEmpty()) {
        return;
    }
    auto *row = new QBoxLayout(QBoxLayout::LeftToRight);
    int width = 0;
    for (const WhyCommand command : line.commands) {
        auto *button = new QPushButton(WhyCommandText(command, line.ofGroup));
        button->setAccessibleDescription(line.text);
        row->addWidget(button, 0, Qt::AlignLeft);
        width += button->sizeHint().width() + row->spacing();
        connect(button, &QPushButton::clicked, this, [this, command, ofGroup = line.ofGroup] {
            emit CommandChosen(command, ofGroup);
        });
    }
    if (width
        > sizeHint().width()) { // each beneath the other, where the row would widen the window
        row->setDirection(QBoxLayout::TopToBottom);
    }
    row->addStretch();
    column->addLayout(row);
    column->addSpacing(column->spacing());
}
