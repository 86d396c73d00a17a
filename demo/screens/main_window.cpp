#include "db/failure_log.h"
#include "db/session.h"
#include "demo/screens/studio.h"
#include "ui/common/help_window.h"
#include "ui/main/splitter_frame.h"

#include <QAbstractItemView>
#include <QAction>
#include <QContextMenuEvent>
#include <QCoreApplication>
#include <QDialog>
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

void Trigger(Studio &studio, const QString &action)
{
    QCoreApplication::processEvents(); // commands follow the selection with the next event
    studio.Frame().findChild<QAction *>(action)->trigger();
}

} // namespace

void DrawMainWindow(Studio &studio)
{
    QTreeView &users = ListIn(studio, u"usersList"_s);
    QTreeView &groups = ListIn(studio, u"groupsList"_s);
    studio.Draw(u"main-window"_s, studio.Frame());

    Select(users, 3, 3);
    studio.DrawMenu(u"user-menu"_s, [&] { RightClick(users); });
    studio.DrawDialog(u"change-group"_s, [&] { Trigger(studio, u"changeGroup"_s); });
    Select(users, 3, 6);
    studio.DrawMenu(u"users-menu"_s, [&] { RightClick(users); });
    users.clearSelection();
    Select(groups, 1, 1);
    studio.DrawMenu(u"group-menu"_s, [&] { RightClick(groups); });
    users.clearSelection();
    groups.clearSelection();

    studio.DrawDialog(u"refresh-period"_s, [&] { studio.Frame().ChooseCustomPeriod(); });
    studio.DrawDialog(u"about"_s, [&] { Trigger(studio, u"about"_s); });
    DrawHelp(studio);
    DrawFailures(studio);
}
