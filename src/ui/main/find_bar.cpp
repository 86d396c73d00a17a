#include "ui/main/find_bar.h"

#include "ui/common/accessible.h"
#include "ui/common/icons.h"
#include "ui/common/text_field.h"

#include <QAction>
#include <QLabel>
#include <QToolButton>

#include <utility>

using namespace Qt::StringLiterals;

FindBar::FindBar(Prompt &messages, std::function<bool(const QString &)> newFind, QWidget *parent)
    : QToolBar(parent)
    , prompt(messages)
    , find(std::move(newFind))
    , field(new TextField(this))
{
    setObjectName(u"findBar"_s);
    setWindowTitle(u"Find user"_s);
    setMovable(false);
    field->setObjectName(u"findUser"_s);
    // Made with the first text: its picture may stand in the desktop's icon theme, which is slow to open.
    connect(field, &TextField::textChanged, this, [this] { field->setClearButtonEnabled(true); });
    field->setMaximumWidth(fontMetrics().averageCharWidth() * 32);
    QAction *search = new QAction(IconOf(Picture::Find), u"Find"_s, this);
    search->setToolTip(u"Find the first user whose first column begins with this text"_s);
    QLabel *label = LabelFor(u"Find user:"_s, *field);
    label->setContentsMargins(4, 0, 4, 0);
    addWidget(label);
    addWidget(field);
    addAction(search);
    widgetForAction(search)->setObjectName(u"find"_s);
    widgetForAction(search)->setFocusPolicy(Qt::TabFocus);
    connect(search, &QAction::triggered, this, &FindBar::Search);
    connect(field, &TextField::returnPressed, this, &FindBar::Search);
}

void FindBar::TakeFocus()
{
    field->setFocus(Qt::ShortcutFocusReason);
    field->selectAll();
}

void FindBar::Search()
{
    if (field->text().isEmpty()) {
        prompt.Tell(u"Enter search criteria please"_s);
    } else if (!find(field->text())) {
        TakeFocus();
    }
}
