#include "db/failure_log.h"
#include "db/session.h"
#include "demo/screens/studio.h"
#include "ui/common/help_window.h"
#include "ui/main/administrator_view.h"
#include "ui/main/splitter_frame.h"
#include "ui/main/upgrade_dialog.h"

#include <QAbstractItemView>
#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolButton>
#include <QTreeView>

using namespace Qt::StringLiterals;

namespace {

QTreeView &ListIn(Studio &studio, const QString &name)
{
    return *studio.Frame().findChild<QTreeView *>(name);
}

void Select(QTreeView &list, int from, int to)
{
    list.activateWindow();
    QCoreApplication::processEvents(); // the focus counts once the window is active
    list.setFocus();
    list.selectionModel()->select({list.model()->index(from, 0), list.model()->index(to, 0)},
                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    list.setCurrentIndex(list.model()->index(from, 0));
    list.selectionModel()->select({list.model()->index(from, 0), list.model()->index(to, 0)},
                                  QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
}

// The pop-up menu, by the right mouse button in the first selected row.
void RightClick(QTreeView &list)
{
    const QPoint place = list.visualRect(list.currentIndex()).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, list.viewport()->mapToGlobal(place));
    QCoreApplication::sendEvent(list.viewport(), &event);
}

// A real one: the session's answer to a table that does not exist.
void DrawFailures(Studio &studio)
{
    if (!studio.Wants(u"failures"_s)) {
        return;
    }
    RunQuery("SELECT note FROM remarks WHERE user_id = 7", FetchMode::All);
    studio.DrawDialog(u"failures"_s,
                      [&] { studio.Frame().findChild<QToolButton *>(u"failuresPane"_s)->click(); });
    FailureLog::Instance().Clear();
}

void DrawHelp(Studio &studio)
{
    if (studio.Wants(u"help"_s)) {
        HelpWindow window(HelpWindow::GuideFile(), nullptr);
        window.setAttribute(Qt::WA_DeleteOnClose, false);
        window.show();
        QTimer fitted; // the pictures, once the window has its size
        fitted.setSingleShot(true);
        fitted.start(200);
        while (fitted.isActive()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
        studio.Draw(u"help"_s, window);
    }
}

// What does not come about in time is a failure.
void WaitUntil(Studio &studio, const QString &what, const std::function<bool()> &isDone)
{
    constexpr int kLookAgainMs = 30;
    constexpr int kPatienceMs = 20000;
    QTimer wake;
    wake.start(kLookAgainMs);
    const QDeadlineTimer patience(kPatienceMs);
    while (!isDone()) {
        if (patience.hasExpired()) {
            studio.Fail(what + u" does not come about"_s);
            return;
        }
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

// As it stands before anything is upgraded: what it would do is looked at beside the window.
void DrawUpgrade(Studio &studio)
{
    if (!studio.Wants(u"upgrade"_s)) {
        return;
    }
    UpgradeDialog window(studio.Services(), 0, &studio.Frame());
    window.show();
    const auto &later = *window.findChild<QPushButton *>(u"close"_s);
    WaitUntil(studio, u"the look at the upgrade"_s, [&later] { return later.isEnabled(); });
    studio.Draw(u"upgrade"_s, window);
}

// Commands follow the selection a moment later.
void Trigger(Studio &studio, const QString &name)
{
    auto *action = studio.Frame().findChild<QAction *>(name);
    WaitUntil(studio, name, [action] { return action->isEnabled(); });
    action->trigger();
}

// The count is the last that a search tells. Whether it is under way cannot be asked: it may begin and end
// between two looks.
void Filter(Studio &studio, const QString &text)
{
    bool isOver = false;
    const QObject context;
    const UserFinder &finder = studio.Frame().Users().Finder();
    const auto end = [&isOver] { isOver = true; };
    QObject::connect(&finder, &UserFinder::Counted, &context, end);
    QObject::connect(&finder, &UserFinder::Failed, &context, end);
    studio.Frame().findChild<QLineEdit *>(u"findUser"_s)->setText(text);
    WaitUntil(studio, text, [&isOver] { return isOver; });
}

// What is said of somebody who may send, of the first one blocked, and of somebody who must log in.
void DrawWhyPanel(Studio &studio, QTreeView &users)
{
    if (!studio.Wants(u"why"_s)) {
        return;
    }
    Trigger(studio, u"whyCommand"_s);
    const auto &verdict = *studio.Frame().findChild<QLabel *>(u"whyVerdict"_s);
    for (const QString &filter : {u"mode:traffic"_s, u"blocked"_s, u"over"_s, u"mode:provider"_s}) {
        Filter(studio, filter);
        Select(users, 0, 0);
        WaitUntil(studio, u"the verdict"_s, [&] {
            return !verdict.text().isEmpty() && !studio.Services().database.IsBusy();
        });
        studio.Draw(u"why-"_s + filter.section(u':', -1), studio.Frame());
        users.clearSelection();
    }
    Trigger(studio, u"whyCommand"_s);
}

// The columns that are off at first, sorted by what is left.
void DrawAccountColumns(Studio &studio)
{
    if (!studio.Wants(u"accounts-listed"_s)) {
        return;
    }
    CAdministratorView &list = studio.Frame().Users();
    const UserColumn columns[] = {
        UserColumn::Workstation, UserColumn::MacAddress, UserColumn::Used, UserColumn::Left};
    for (const UserColumn column : columns) {
        list.ToggleColumn(column);
    }
    list.FillList(user_order::kLeft, true);
    WaitUntil(studio, u"the order"_s, [&] { return !list.Finder().IsSearching(); });
    studio.Draw(u"accounts-listed"_s, studio.Frame());
    for (const UserColumn column : columns) {
        list.ToggleColumn(column);
    }
    list.FillList(user_order::kUserName, true);
    WaitUntil(studio, u"the list"_s, [&] { return !studio.Services().database.IsBusy(); });
}

void DrawFilter(Studio &studio)
{
    if (!studio.Wants(u"filter"_s)) {
        return;
    }
    auto &field = *studio.Frame().findChild<QLineEdit *>(u"findUser"_s);
    const auto &note = *studio.Frame().findChild<QLabel *>(u"findNote"_s);
    Filter(studio, u"an blocked"_s);
    studio.Draw(u"filter"_s, studio.Frame());
    field.setText(u"mode:nobody"_s);
    WaitUntil(studio, u"the refusal"_s, [&] { return note.text().contains(u"nobody"_s); });
    studio.Draw(u"filter-refused"_s, studio.Frame());
    field.clear();
}

} // namespace

void DrawMainWindow(Studio &studio)
{
    QTreeView &users = ListIn(studio, u"usersList"_s);
    QTreeView &groups = ListIn(studio, u"groupsList"_s);
    studio.Draw(u"main-window"_s, studio.Frame());

    Select(users, 3, 3);
    studio.DrawMenu(u"user-menu"_s, [&] { RightClick(users); });
    Select(users, 3, 3); // the menu may have taken it along
    studio.DrawDialog(u"change-group"_s, [&] { Trigger(studio, u"changeGroup"_s); });
    Select(users, 3, 6);
    studio.DrawMenu(u"users-menu"_s, [&] { RightClick(users); });
    users.clearSelection();
    Select(groups, 1, 1);
    studio.DrawMenu(u"group-menu"_s, [&] { RightClick(groups); });
    users.clearSelection();
    groups.clearSelection();
    DrawWhyPanel(studio, users);
    DrawFilter(studio);
    DrawAccountColumns(studio);

    studio.DrawDialog(u"refresh-period"_s, [&] { studio.Frame().ChooseCustomPeriod(); });
    studio.DrawDialog(u"about"_s, [&] { Trigger(studio, u"about"_s); });
    DrawHelp(studio);
    DrawFailures(studio);
    DrawUpgrade(studio);
}
