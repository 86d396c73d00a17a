// What keys and the mouse do in the list of users.
#include "base/names_line.h"
#include "ui/common/look_lock.h"
#include "ui/main/administrator_view.h"
#include "ui/main/dragged_users.h"

#include <QDrag>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>

using namespace Qt::StringLiterals;

void CAdministratorView::FillPopUp(QMenu &menu)
{
    const Targets<UserId> targets = CommandTargets();
    if (targets.areAllMatching) {
        FillPopUpOfMatching(menu);
        return;
    }
    const bool several = targets.ids.size() >= 2;
    menu.setObjectName(several ? u"severalUsersPopUp"_s : u"userPopUp"_s);
    const auto changeGroup = Changing(*this, [this] { commands.ChangeGroupOfChosen(); });
    const auto setLimits = Changing(*this, [this] { commands.SetLimitsOfChosen(); });
    if (several) {
        AddEntry(menu, tr("Change group..."), changeGroup);
        if (dialogs.userLimits) {
            AddEntry(menu, tr("Set mode/limits..."), setLimits);
        }
    } else {
        AddEntry(menu, tr("Properties..."), Opener(dialogs.userProperties));
        AddAccountEntry(menu, dialogs.userAccount);
        AddEntry(menu, tr("Statistics"), Opener(dialogs.userStatistics));
        AddEntry(menu, tr("Change group..."), changeGroup);
    }
    menu.addSeparator();
    AddEntry(menu, tr("Do not monitor"), Changing(*this, [this] { commands.StopMonitoring(); }));
    AddEntry(
        menu, several ? tr("Delete") : tr("Remove"), Changing(*this, [this] { DeleteSelected(); }));
    if (MayHoldBack()) {
        menu.addSeparator();
        AddEntry(menu, tr("Select all matching"), [this] { ChooseAllMatching(); });
    }
}

void CAdministratorView::FillPopUpOfMatching(QMenu &menu)
{
    menu.setObjectName(u"matchingUsersPopUp"_s);
    AddEntry(
        menu, tr("Change group..."), Changing(*this, [this] { commands.ChangeGroupOfChosen(); }));
    if (dialogs.userLimits) {
        AddEntry(menu, tr("Set mode/limits..."), Changing(*this, [this] {
                     commands.SetLimitsOfChosen();
                 }));
    }
}

void CAdministratorView::keyPressEvent(QKeyEvent *event)
{
    if (matching.AreChosen() && event->key() == Qt::Key_Escape) {
        EndMatching();
        return;
    }
    // To put a million users in the order of their accounts takes a moment; the list stays as it is.
    if (event->key() == Qt::Key_Escape && finder.IsSearching() && !IsFiltered()) {
        finder.Stop();
        ShowSortIndicator();
        return;
    }
    IdListPane::keyPressEvent(event);
}

// The keys of commands are none of these: what they open takes the focus, and with it the first row out
// of the selection, without anybody having chosen anew.
void CAdministratorView::MoveByKey(QKeyEvent *event)
{
    const bool takesOneRow =
        event->key() == Qt::Key_Space && event->modifiers() == Qt::ControlModifier;
    if (takesOneRow || event->matches(QKeySequence::SelectAll)) {
        EndMatching();
    }
    const QItemSelection before = selectionModel()->selection();
    IdListPane::MoveByKey(event);
    if (selectionModel()->selection() != before) {
        matching.End();
    }
}

// On a row that is chosen the right button opens the menu of all, and the left one may begin to drag them.
void CAdministratorView::mousePressEvent(QMouseEvent *event)
{
    const QModelIndex row = indexAt(event->position().toPoint());
    if (event->modifiers() != Qt::NoModifier || !selectionModel()->isSelected(row)) {
        EndMatching();
    }
    IdListPane::mousePressEvent(event);
}

void CAdministratorView::mouseReleaseEvent(QMouseEvent *event)
{
    const QItemSelection before = selectionModel()->selection();
    IdListPane::mouseReleaseEvent(event);
    if (selectionModel()->selection() != before) {
        matching.End();
    }
}

void CAdministratorView::startDrag(Qt::DropActions /*actions*/)
{
    const QList<UserId> dragged = ChosenIds();
    if (dragged.isEmpty()) {
        return;
    }
    QLabel picture(NamesLine(FirstNames(dragged), dragged.size()));
    picture.setTextFormat(Qt::PlainText);
    picture.setFrameShape(QFrame::Box);
    picture.setMargin(4);
    auto *drag = new QDrag(this);
    drag->setMimeData(DataOfUsers(dragged));
    drag->setPixmap(picture.grab());
    drag->setHotSpot(QPoint(-12, -12)); // beside the pointer, not over the group
    runDrag(*drag);
}
