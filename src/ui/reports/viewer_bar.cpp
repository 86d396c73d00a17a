#include "ui/reports/viewer_bar.h"

#include "ui/common/accessible.h"
#include "ui/common/controls.h"
#include "ui/common/icons.h"
#include "ui/common/number_field.h"
#include "ui/reports/page_view.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QStyle>

using namespace Qt::StringLiterals;

ViewerBar::ViewerBar(Prompt &messages, PageView &pages, QWidget *parent)
    : QToolBar(parent)
    , prompt(messages)
    , view(pages)
{
    setIconSize({16, 16});
    back = Command("back", tr("Back"), QKeySequence::Back, &ViewerBar::BackAsked);
    back->setIcon(style()->standardIcon(QStyle::SP_ArrowBack));
    back->setVisible(false);
    AddPageButtons();
    addSeparator();
    AddZoom();
    addSeparator();
    AddFind();
    addSeparator();
    print = Command("print", tr("Print..."), QKeySequence::Print, &ViewerBar::PrintAsked);
    print->setIcon(IconOf(Picture::Print));
    save = Command("save", tr("Save as..."), QKeySequence::Save, &ViewerBar::SaveAsked);
    save->setIcon(IconOf(Picture::Save));
    pageSetup = Command("pageSetup", tr("Page setup..."), {}, &ViewerBar::PageSetupAsked);
    pageSetup->setIcon(IconOf(Picture::PageSetup));
    AddTable(); // at the end: where room is short, the others go first
    connect(&view, &PageView::CurrentPageChanged, this, &ViewerBar::ShowPage);
}

void ViewerBar::SetUsable(bool hasPages, bool isBusy)
{
    print->setEnabled(hasPages && !isBusy);
    save->setEnabled(hasPages && !isBusy);
    pageSetup->setEnabled(!isBusy);
    isUsable = hasPages;
    back->setEnabled(!isBusy);
    asTable->setEnabled(hasPages);
    SuitTable();
    ShowPage(view.CurrentPage());
}

void ViewerBar::ShowPageButtons(bool shown)
{
    for (QAction *button : std::as_const(pageButtons)) {
        button->setVisible(shown);
    }
}

QAction *ViewerBar::Command(const char *name,
                            const QString &text,
                            const QKeySequence &key,
                            void (ViewerBar::*act)())
{
    QAction *action = addAction(text);
    action->setObjectName(QLatin1StringView(name));
    action->setShortcut(key);
    action->setShortcutContext(Qt::WindowShortcut);
    if (!key.isEmpty()) {
        action->setToolTip(
            u"%1 (%2)"_s.arg(PlainLabel(text), key.toString(QKeySequence::NativeText)));
    }
    connect(action, &QAction::triggered, this, act);
    widgetForAction(action)->setObjectName(QLatin1StringView(name) + u"Button");
    widgetForAction(action)->setFocusPolicy(Qt::TabFocus);
    return action;
}

void ViewerBar::AddPageButton(const char *name,
                              const QString &sign,
                              const QString &words,
                              const QKeySequence &key,
                              void (ViewerBar::*act)())
{
    QAction *button = Command(name, sign, key, act);
    button->setToolTip(u"%1 (%2)"_s.arg(words, key.toString(QKeySequence::NativeText)));
    widgetForAction(button)->setAccessibleName(words);
    pageButtons << button;
}

void ViewerBar::AddPageButtons()
{
    using Bar = ViewerBar;
    pageNumber = new NumberField;
    SetNames(*pageNumber, u"pageNumber"_s, tr("Page number"));
    pageNumber->setFixedWidth(fontMetrics().averageCharWidth() * 7);
    pageNumber->setAlignment(Qt::AlignRight);
    pageNumber->StepByKeys();
    pageCount = new QLabel;
    pageCount->setObjectName(u"pageCount"_s);
    AddPageButton(
        "firstPage", u"|<"_s, tr("First page"), QKeySequence(u"Ctrl+Home"_s), &Bar::First);
    AddPageButton(
        "previousPage", u"<"_s, tr("Previous page"), QKeySequence(u"Ctrl+PgUp"_s), &Bar::Previous);
    pageButtons << addWidget(pageNumber) << addWidget(pageCount);
    AddPageButton("nextPage", u">"_s, tr("Next page"), QKeySequence(u"Ctrl+PgDown"_s), &Bar::Next);
    AddPageButton("lastPage", u">|"_s, tr("Last page"), QKeySequence(u"Ctrl+End"_s), &Bar::Last);
    TakeReturn(*pageNumber, [this] { AskPage(); });
    TakeEscape(*pageNumber, [this] {
        pageNumber->SetNumber(shownNumber);
        view.setFocus();
    });
    connect(pageNumber, &NumberField::editingFinished, this, &ViewerBar::GoToTyped);
    connect(pageNumber, &NumberField::Stepped, this, &ViewerBar::GoToTyped);
}

void ViewerBar::AddZoom()
{
    zoom = new QComboBox;
    SetNames(*zoom, u"zoom"_s, tr("Zoom"));
    zoom->addItem(tr("Fit width"));
    for (const int percent : {50, 75, 100, 125, 150, 200, 300}) {
        zoom->addItem(u"%1 %"_s.arg(percent), percent);
    }
    connect(zoom, &QComboBox::currentIndexChanged, this, [this] {
        const int percent = zoom->currentData().toInt();
        if (percent == 0) {
            view.FitWidth();
        } else {
            view.SetZoom(percent / 100.0);
        }
    });
    auto *label = new QLabel(tr(" &Zoom: "));
    label->setBuddy(zoom);
    addWidget(label);
    addWidget(zoom);
}

void ViewerBar::AddFind()
{
    find = new QLineEdit;
    SetNames(*find, u"find"_s, tr("Find text"));
    find->setPlaceholderText(tr("Find text"));
    find->setMaximumWidth(180);
    TakeReturn(*find, [this] { AskFind(); });
    TakeEscape(*find, [this] { view.setFocus(); });
    addWidget(find);
    findNext = Command("findNext", tr("Find next"), QKeySequence::FindNext, &ViewerBar::AskFind);
    findNext->setIcon(IconOf(Picture::Find));
    connect(new QShortcut(QKeySequence::Find, this),
            &QShortcut::activated,
            this,
            &ViewerBar::StartFind);
}

void ViewerBar::AddTable()
{
    outline =
        Command("outlineAction", tr("Groups"), QKeySequence(u"Ctrl+G"_s), &ViewerBar::OutlineAsked);
    outline->setIcon(IconOf(Picture::Group));
    outline->setCheckable(true);
    outline->setChecked(true);
    outline->setVisible(false);
    asTable = Command("asTable", tr("Table"), QKeySequence(u"Ctrl+T"_s), &ViewerBar::TableAsked);
    asTable->setIcon(style()->standardIcon(QStyle::SP_FileDialogDetailedView));
    asTable->setCheckable(true);
    asTable->setToolTip(tr("The rows as a table that can be sorted and filtered (%1)")
                            .arg(asTable->shortcut().toString(QKeySequence::NativeText)));
    connect(asTable, &QAction::toggled, this, &ViewerBar::SuitTable);
}

// A table has no pages, and a filter of its own.
void ViewerBar::SuitTable()
{
    const bool ofPages = !WantsTable();
    for (QAction *button : std::as_const(pageButtons)) {
        button->setEnabled(isUsable && ofPages);
    }
    zoom->setEnabled(ofPages);
    outline->setEnabled(ofPages);
    find->setEnabled(isUsable && ofPages); // keeps the focus during its own search
    findNext->setEnabled(isUsable && ofPages);
}

int ViewerBar::PageCount() const
{
    return view.Pages() == nullptr ? 0 : view.Pages()->Count();
}

void ViewerBar::First()
{
    view.GoTo(0);
}

void ViewerBar::Previous()
{
    view.GoTo(view.CurrentPage() - 1);
}

void ViewerBar::Next()
{
    view.GoTo(view.CurrentPage() + 1);
}

void ViewerBar::Last()
{
    view.GoTo(PageCount() - 1);
}

void ViewerBar::StartFind()
{
    if (WantsTable()) {
        emit FilterAsked();
        return;
    }
    find->setFocus(Qt::ShortcutFocusReason);
    find->selectAll();
}

void ViewerBar::AskFind()
{
    if (!find->text().isEmpty()) {
        emit FindAsked(find->text());
    }
}

void ViewerBar::AskPage()
{
    if (HoldsNumber(prompt, *pageNumber)) {
        GoToTyped();
    }
}

void ViewerBar::GoToTyped()
{
    const auto number = pageNumber->Number();
    if (!number || *number == 0) {
        pageNumber->SetNumber(
            shownNumber); // whoever leaves it, or was told of it, sees where he is
    } else if (static_cast<int>(*number) - 1 != view.CurrentPage()) {
        view.GoTo(static_cast<int>(*number) - 1);
    }
}

// What is being typed stays as long as the page does.
void ViewerBar::ShowPage(int page)
{
    const int count = PageCount();
    const auto number = static_cast<quint32>(count > 0 ? page + 1 : 0);
    if (number != shownNumber || pageNumber->text().isEmpty()) {
        shownNumber = number;
        pageNumber->SetNumber(number);
    }
    pageNumber->SetBounds({.least = count > 0 ? 1.0 : 0.0, .most = static_cast<double>(count)});
    pageCount->setText(tr(" of %1 ").arg(count));
}
