#include "ui/main/administrator_view_grp.h"

#include "access/list_commands.h"
#include "app/perform.h"
#include "db/value_codes.h"
#include "ui/accounts/owner_notice.h"
#include "ui/common/accessible.h"
#include "ui/common/heading_line.h"
#include "ui/common/look_lock.h"
#include "ui/common/window_memory.h"
#include "ui/main/dragged_users.h"
#include "ui/main/group_list_model.h"
#include "ui/props/name_dialog.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QMenu>
#include <QMimeData>
#include <QPainter>

using namespace Qt::StringLiterals;

CAdministratorViewGrp::CAdministratorViewGrp(const AppServices &appServices,
                                             const FrameDialogs &windows,
                                             QWidget *parent)
    : IdListPane(parent)
    , services(appServices)
    , dialogs(windows)
    , groups(new GroupListModel(this))
{
    SetNames(*this, u"groupsList"_s, tr("Groups"));
    setSelectionMode(SingleSelection);
    setDragDropMode(DropOnly);
    ShowModel(groups);
    header()->setSectionsClickable(false);
    constexpr int kWidths[GroupListModel::kColumns] = {150, 400, 150};
    auto *columns = new ColumnMemory(
        *header(), u"groups"_s, [](int section) { return QString::number(section); });
    columns->PutUp([&] {
        for (int section = 0; section < GroupListModel::kColumns; ++section) {
            header()->resizeSection(section, kWidths[section]);
        }
    });
}

void CAdministratorViewGrp::FillGroups()
{
    StartReading(services.database, ReadGroupList, [this](const GroupList &list) {
        KeepingPlace([&] { groups->SetList(list); });
    });
}

QStringList CAdministratorViewGrp::Names() const
{
    QStringList names;
    for (int row = 0; row < groups->rowCount(); ++row) {
        names << groups->NameAt(row);
    }
    return names;
}

GroupId CAdministratorViewGrp::IdAt(int row) const
{
    return groups->IdAt(row);
}

int CAdministratorViewGrp::RowOf(GroupId id) const
{
    return groups->RowOf(id);
}

QString CAdministratorViewGrp::TextWhenEmpty() const
{
    return tr("There are no groups.");
}

QString CAdministratorViewGrp::NameAt(int row) const
{
    return groups->NameAt(row);
}

std::optional<NamedGroup> CAdministratorViewGrp::TargetGroup() const
{
    const Targets<GroupId> targets = CommandTargets();
    return targets.ids.isEmpty()
        ? std::nullopt
        : std::optional(NamedGroup {targets.names.front(), targets.ids.front()});
}

void CAdministratorViewGrp::OpenProperties()
{
    OpenFor(dialogs.groupProperties);
}

void CAdministratorViewGrp::OpenAccount()
{
    OpenFor(dialogs.groupAccount);
}

QString CAdministratorViewGrp::AccountPrompt() const
{
    return tr("Refill current group account");
}

void CAdministratorViewGrp::AskForAccount(QObject *context, const std::function<void(bool)> &answer)
{
    AskForAccountBy(services.database, GroupHasAccount, context, answer);
}

void CAdministratorViewGrp::DeleteSelected()
{
    const auto group = TargetGroup();
    if (!group || !MayChange(services)) {
        return;
    }
    const auto &[name, groupId] = *group;
    const Question question = DeleteGroupQuestion(name);
    if (!services.prompt.AskToDestroy(question.text, question.goes)) {
        return;
    }
    if (const auto reason = WhyNotDeleted(name)) {
        services.prompt.Tell(*reason);
        return;
    }
    if (Perform(services,
                window(),
                tr("Deleting the group..."),
                DeleteGroupOfListAction(groupId),
                SessionThread::Patience::Endless)) {
        groups->RemoveRowOf(groupId);
    } else {
        FillGroups(); // the row stays, as the group now is
    }
}

void CAdministratorViewGrp::RenameSelected()
{
    const auto group = TargetGroup();
    if (!group || !MayChange(services)) {
        return;
    }
    const GroupId groupId = group->groupId;
    if (const auto reason = WhyNotRenamed(groupId)) {
        services.prompt.Tell(*reason);
        return;
    }
    NameDialog dialog(tr("Rename group"), tr("Enter new name for the group:"), window());
    dialog.SetHeading(OwnerHeading(groupId, group->name, &dialog));
    dialog.SetName(group->name);
    dialog.SetCheck([&](const QString &name) {
        return Perform(services, &dialog, tr("Renaming..."), RenameGroupAction(groupId, name));
    });
    if (dialog.exec() == QDialog::Accepted) {
        FillGroups();
    }
}

void CAdministratorViewGrp::RefreshKey()
{
    services.database.Reopen();
    FillGroups();
}

void CAdministratorViewGrp::FillPopUp(QMenu &menu)
{
    menu.setObjectName(u"groupPopUp"_s);
    AddEntry(menu, tr("Properties..."), Opener(dialogs.groupProperties));
    AddAccountEntry(menu, dialogs.groupAccount);
    AddEntry(menu, tr("Statistics"), Opener(dialogs.groupStatistics));
    menu.addSeparator();
    AddEntry(menu, tr("Rename..."), Changing(*this, [this] { RenameSelected(); }));
    AddEntry(menu, tr("Delete"), Changing(*this, [this] { DeleteSelected(); }));
}

void CAdministratorViewGrp::drawRow(QPainter *painter,
                                    const QStyleOptionViewItem &option,
                                    const QModelIndex &index) const
{
    IdListPane::drawRow(painter, option, index);
    if (target.isValid() && index.row() == target.row()) {
        QColor colour = palette().color(QPalette::Highlight);
        painter->setPen(QPen(colour, 2));
        colour.setAlphaF(0.25F);
        painter->setBrush(colour);
        painter->drawRect(option.rect.adjusted(1, 1, -1, -1));
    }
}

void CAdministratorViewGrp::ShowTarget(const QModelIndex &row)
{
    target = row;
    viewport()->update();
}

void CAdministratorViewGrp::dragEnterEvent(QDragEnterEvent *event)
{
    event->setAccepted(!UsersIn(*event->mimeData()).isEmpty());
}

// The base scrolls near the edges; what may be dropped where is decided here.
void CAdministratorViewGrp::dragMoveEvent(QDragMoveEvent *event)
{
    IdListPane::dragMoveEvent(event);
    const QModelIndex row = indexAt(event->position().toPoint());
    ShowTarget(row);
    event->setDropAction(Qt::MoveAction);
    event->setAccepted(row.isValid() && !UsersIn(*event->mimeData()).isEmpty());
}

void CAdministratorViewGrp::dragLeaveEvent(QDragLeaveEvent *event)
{
    IdListPane::dragLeaveEvent(event);
    ShowTarget({});
}

void CAdministratorViewGrp::dropEvent(QDropEvent *event)
{
    const QModelIndex row = indexAt(event->position().toPoint());
    const QList<UserId> userIds = UsersIn(*event->mimeData());
    QDragLeaveEvent over;
    dragLeaveEvent(&over);
    event->setAccepted(row.isValid() && !userIds.isEmpty());
    if (event->isAccepted()) {
        emit UsersDropped(userIds, groups->IdAt(row.row()), groups->NameAt(row.row()));
    }
}
