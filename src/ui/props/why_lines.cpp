#include "ui/props/why_lines.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

WhyLines::WhyLines(Commands commands, QWidget *parent)
    : QWidget(parent)
    , showsCommands(commands == Commands::Shown)
{
    auto *outer = new QVBoxLayout(this);
    outer->setContentsMargins({});
    Clear();
}

// A button may be what brought the change about: it goes once it is done.
void WhyLines::Clear()
{
    if (content != nullptr) {
        content->hide();
        content->setParent(nullptr);
        content->deleteLater();
    }
    content = new QWidget(this);
    column = new QVBoxLayout(content);
    column->setContentsMargins({});
    layout()->addWidget(content);
}

void WhyLines::Show(const WhyAccess &why, const QString &difference)
{
    Clear();
    for (const WhyLine &line : why.lines) {
        AddText(line.text, line.decides);
        if (showsCommands) {
            AddCommands(line);
        }
    }
    if (!difference.isEmpty()) {
        AddText(difference, false);
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
    auto *row = new QHBoxLayout;
    for (const WhyCommand command : line.commands) {
        auto *button = new QPushButton(WhyCommandText(command, line.ofGroup));
        button->setAccessibleDescription(line.text);
        row->addWidget(button);
        connect(button, &QPushButton::clicked, this, [this, command, ofGroup = line.ofGroup] {
            emit CommandChosen(command, ofGroup);
        });
    }
    row->addStretch();
    column->addLayout(row);
    column->addSpacing(column->spacing());
}
