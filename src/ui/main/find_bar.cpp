#include "ui/main/find_bar.h"

#include "base/names_line.h"
#include "ui/common/accessible.h"
#include "ui/common/elided_label.h"
#include "ui/common/icons.h"
#include "ui/common/text_field.h"
#include "ui/main/administrator_view.h"
#include "ui/main/filter_completer.h"
#include "ui/main/saved_filters.h"
#include "ui/props/name_dialog.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QToolButton>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPause = 150; // milliseconds

}

FindBar::FindBar(Prompt &messages,
                 CAdministratorView &usersList,
                 std::function<QStringList()> groupNames,
                 QWidget *parent)
    : QToolBar(parent)
    , prompt(messages)
    , users(usersList)
    , field(new TextField(this))
    , completer(new FilterCompleter(*field, std::move(groupNames)))
    , note(new ElidedLabel({}, this))
{
    setObjectName(u"findBar"_s);
    setWindowTitle(tr("Find user"));
    setMovable(false);
    AddField();
    AddSearch();
    AddSavedFilters();
    SetNames(*note, u"findNote"_s, tr("Found users"));
    note->setContentsMargins(4, 0, 4, 0);
    addWidget(note);
    FollowList();
}

void FindBar::AddField()
{
    field->setObjectName(u"findUser"_s);
    field->setMaximumWidth(fontMetrics().averageCharWidth() * 32);
    field->setToolTip(
        tr("Any part of a name, workstation, description, address, group or login; also "
           "group:NAME, mode:NAME, blocked, over, 10.1.2.0/24"));
    field->installEventFilter(this);
    QLabel *label = LabelFor(tr("Find user:"), *field);
    label->setContentsMargins(4, 0, 4, 0);
    addWidget(label);
    addWidget(field);
    pause.setObjectName(u"findPause"_s);
    pause.setSingleShot(true);
    pause.setInterval(kPause);
    connect(&pause, &QTimer::timeout, this, &FindBar::FilterByText);
    connect(field, &TextField::textChanged, this, &FindBar::TextChanged);
    connect(field, &TextField::returnPressed, this, &FindBar::Search);
}

void FindBar::AddSearch()
{
    auto *search = new QAction(IconOf(Picture::Find), tr("Find"), this);
    search->setToolTip(tr("Find the first user whose first column begins with this text"));
    addAction(search);
    widgetForAction(search)->setObjectName(u"find"_s);
    widgetForAction(search)->setFocusPolicy(Qt::TabFocus);
    connect(search, &QAction::triggered, this, &FindBar::Search);
}

void FindBar::AddSavedFilters()
{
    auto *button = new QToolButton(this);
    SetNames(*button, u"savedFilters"_s, tr("Saved filters"));
    button->setText(tr("Filters"));
    button->setToolTip(tr("Save what is typed under a name, or choose what was saved"));
    button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setFocusPolicy(Qt::TabFocus);
    auto *menu = new QMenu(button);
    button->setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, [this, menu] { FillSavedFilters(*menu); });
    addWidget(button);
}

void FindBar::FollowList()
{
    const UserFinder &finder = users.Finder();
    connect(&finder, &UserFinder::Found, this, [this](const UserList &, bool whole) {
        if (whole) {
            GoToFoundIfAsked();
        }
    });
    connect(&finder, &UserFinder::Counted, this, [this](quint32 found, quint32 all) {
        if (!users.IsFiltered()) {
            return; // only the order was searched for
        }
        const QLocale locale;
        Say(tr("%1 of %2").arg(locale.toString(found), locale.toString(all)));
        GoToFoundIfAsked();
    });
    connect(&finder, &UserFinder::Failed, this, [this] {
        goesToFound = false;
        Say(tr("The users could not be searched."));
    });
    connect(&users.Matching(), &MatchingUsers::Changed, this, &FindBar::ShowNote);
}

void FindBar::Say(const QString &text)
{
    said = text;
    ShowNote();
}

// How many are chosen, while all that match are, counts more than anything else.
void FindBar::ShowNote()
{
    const qsizetype chosen = users.Matching().Ids().size();
    if (chosen == 0) {
        note->setText(said);
    } else {
        note->setText(chosen == 1 ? tr("1 user chosen")
                                  : tr("%1 users chosen").arg(QLocale().toString(chosen)));
    }
    // A name of its own would be read out instead of the text.
    note->setAccessibleName(note->text().isEmpty() ? tr("Found users") : note->text());
}

void FindBar::TakeFocus()
{
    field->setFocus(Qt::ShortcutFocusReason);
    field->selectAll();
}

bool FindBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::KeyPress
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape && !completer->IsOpen()
        && (!field->text().isEmpty() || users.Matching().AreChosen())) {
        field->clear();
        users.EndMatching();
        return true;
    }
    return QToolBar::eventFilter(watched, event);
}

void FindBar::TextChanged()
{
    // Only now: its picture may stand in the desktop's icon theme, which is slow to open.
    field->setClearButtonEnabled(true);
    goesToFound = false;
    if (field->text().isEmpty()) {
        FilterByText();
    } else {
        pause.start();
    }
}

// False when the text is not understood: the list stays as it is, and the bar says why.
bool FindBar::FilterByText()
{
    pause.stop();
    const auto filter = UserFilterFrom(field->text());
    if (!filter) {
        Say(filter.error());
        return false;
    }
    if (*filter != users.Filter() || !users.WasRead()) {
        Say(IsEmpty(*filter) ? QString() : tr("Searching..."));
        users.ShowFilter(*filter, field->text());
    }
    return true;
}

// Somebody whose first column begins so is gone to; else whoever the filter finds.
void FindBar::Search()
{
    if (completer->IsChosen()) {
        return; // the key was for the list of words
    }
    if (field->text().isEmpty()) {
        prompt.Tell(tr("Enter search criteria please"));
        return;
    }
    if (users.FindUser(field->text())) {
        return;
    }
    if (!FilterByText()) {
        prompt.Tell(said);
        TakeFocus();
    } else if (users.Finder().IsSearching()) {
        goesToFound = true;
    } else {
        GoToFound();
    }
}

// Return may be pressed while the rows, or only their count, are awaited.
void FindBar::GoToFoundIfAsked()
{
    if (std::exchange(goesToFound, false)) {
        GoToFound();
    }
}

void FindBar::GoToFound()
{
    if (users.IsFiltered() && users.FindUser(field->text())) {
        return;
    }
    if (users.IsFiltered() && users.RowCount() > 0) {
        users.GoToFirst();
    } else {
        TellNobody();
    }
}

void FindBar::TellNobody()
{
    prompt.Tell(tr("No user found"), Prompt::Icon::Information, tr("Tollbrook Administrator"));
    TakeFocus();
}

void FindBar::FillSavedFilters(QMenu &menu)
{
    menu.clear();
    auto *removals = new QMenu(tr("&Remove"), &menu);
    for (const QString &name : saved_filters::Names()) {
        QString shown = name;
        shown.replace(u'&', u"&&"_s);
        connect(menu.addAction(shown), &QAction::triggered, this, [this, name] {
            field->setText(saved_filters::TextOf(name));
            FilterByText();
            field->setFocus(Qt::OtherFocusReason);
        });
        connect(removals->addAction(shown), &QAction::triggered, this, [this, name] {
            RemoveFilter(name);
        });
    }
    if (!menu.isEmpty()) {
        menu.addSeparator();
    }
    QAction *save = menu.addAction(tr("&Save filter..."), this, &FindBar::SaveFilter);
    save->setEnabled(!field->text().isEmpty() && UserFilterFrom(field->text()).has_value());
    removals->setEnabled(!removals->isEmpty());
    menu.addMenu(removals);
}

void FindBar::SaveFilter()
{
    NameDialog dialog(tr("Save filter"), tr("&Name:"), window());
    dialog.SetName(field->text());
    dialog.SetCheck([this](const QString &name) { return MaySaveAs(name); });
    if (dialog.exec() == QDialog::Accepted) {
        TellUnkept(saved_filters::Save(dialog.Name(), field->text()));
    }
}

void FindBar::RemoveFilter(const QString &name)
{
    if (prompt.AskToDestroy(tr("Remove this filter?"), NamesLine({name}))) {
        TellUnkept(saved_filters::Remove(name));
    }
}

bool FindBar::MaySaveAs(const QString &name) const
{
    if (name.isEmpty()) {
        prompt.Tell(tr("Enter a name for the filter."));
        return false;
    }
    const QStringList replaced = saved_filters::NamesLike(name);
    return replaced.isEmpty()
        || prompt.AskToDestroy(tr("There is a filter with this name. Replace it?"),
                               NamesLine(replaced));
}

void FindBar::TellUnkept(bool kept)
{
    if (!kept) {
        prompt.Tell(tr("The filters could not be kept."), Prompt::Icon::Warning);
    }
}
