#include "ui/main/administrator_view.h"

#include "access/list_commands.h"
#include "base/painted_work.h"
#include "ui/common/accessible.h"
#include "ui/main/user_list_model.h"
#include "ui/props/change_group_dialog.h"

#include <QHeaderView>
#include <QMenu>

#include <algorithm>

using namespace Qt::StringLiterals;

CAdministratorView::CAdministratorView(const AppServices &appServices,
                                       const FrameDialogs &windows,
                                       QWidget *parent)
    : IdListPane(parent)
    , services(appServices)
    , dialogs(windows)
    , users(new UserListModel(this))
{
    SetNames(*this, u"usersList"_s, u"Users"_s);
    setSelectionMode(ExtendedSelection);
    ShowModel(users);
    header()->setSectionsClickable(true);
    connect(header(), &QHeaderView::sectionClicked, this, &CAdministratorView::HeaderClicked);
}

CAdministratorView::~CAdministratorView()
{
    columns.Save(services.settings);
}

void CAdministratorView::LoadColumns()
{
    columns.Load(services.settings);
    InsertColumns();
}

void CAdministratorView::FirstFill()
{
    FillList(services.settings.ReadInteger(values::kRefresh), sortAscending);
}

void CAdministratorView::FillList(int order, bool ascending)
{
    if (order >= user_order::kUserName && order <= user_order::kFullName) {
        sortColumn = order;
    }
    KeepingPlace([&] {
        users->SetList(columns.ShowUsers()
                           ? ReadUserList(order, ascending, columns.IsVisible(UserColumn::Group))
                           : UserList());
    });
    shownOrder = order;
    shownAscending = ascending;
    ShowSortIndicator();
}

void CAdministratorView::RebuildColumns()
{
    InsertColumns();
    FillList(sortColumn, sortAscending);
}

void CAdministratorView::InsertColumns()
{
    users->SetColumns(columns.Shown());
    for (int section = 0; section < users->columnCount(); ++section) {
        header()->resizeSection(section, columns.Width(users->ColumnAt(section)));
    }
}

void CAdministratorView::ToggleColumn(UserColumn column)
{
    columns.Toggle(column);
    RebuildColumns();
}

bool CAdministratorView::IsColumnVisible(UserColumn column) const
{
    return columns.IsVisible(column);
}

void CAdministratorView::HeaderClicked(int section)
{
    const int order = SortCode(users->ColumnAt(section));
    if (order >= 0) {
        FillList(order, !sortAscending);
        sortAscending = !sortAscending;
        emit Filled();
    }
    ShowSortIndicator(); // the click itself moved it, whether or not the column sorts
}

void CAdministratorView::ShowSortIndicator()
{
    int section = shownOrder < 0 ? -1 : users->columnCount() - 1;
    while (section >= 0 && SortCode(users->ColumnAt(section)) != shownOrder) {
        --section;
    }
    header()->setSortIndicatorShown(section >= 0);
    header()->setSortIndicator(section, shownAscending ? Qt::AscendingOrder : Qt::DescendingOrder);
}

bool CAdministratorView::FindUser(const QString &text)
{
    DeselectFirst();
    const int row = users->FindPrefix(text);
    if (row < 0) {
        services.prompt.Tell(
            u"No user found"_s, Prompt::Icon::Information, u"Tollbrook Administrator"_s);
        return false;
    }
    const QModelIndex index = users->index(row, 0);
    setFocus(Qt::OtherFocusReason);
    selectionModel()->setCurrentIndex(index,
                                      QItemSelectionModel::Select | QItemSelectionModel::Rows);
    scrollTo(index);
    return true;
}

UserId CAdministratorView::IdAt(int row) const
{
    return users->UserAt(row);
}

int CAdministratorView::RowOf(UserId id) const
{
    return users->RowOf(id);
}

void CAdministratorView::OpenProperties()
{
    OpenFor(dialogs.userProperties);
}

void CAdministratorView::OpenAccount()
{
    OpenFor(dialogs.userAccount);
}

bool CAdministratorView::HasAccount() const
{
    const QList<UserId> selected = SelectedIds();
    return !selected.isEmpty() && UserHasAccount(selected.front());
}

void CAdministratorView::ChangeGroup()
{
    const QList<UserId> selected = SelectedIds();
    if (!selected.isEmpty()) {
        MoveToChosenGroup({selected.front()}); // kept: only the pop-up menu moves several users
    }
}

void CAdministratorView::MoveToChosenGroup(const QList<UserId> &userIds)
{
    ChangeGroupDialog dialog(services, window());
    if (dialog.exec() == QDialog::Accepted) {
        for (const UserId userId : userIds) {
            MoveUserToGroup(userId, dialog.ChosenGroup().groupId);
        }
    }
}

void CAdministratorView::DeleteSelected()
{
    RemoveSelected(u"This will delete this user and all corresponding information. Continue?"_s,
                   u"This will delete these users and all corresponding information. Continue?"_s,
                   DeleteUser);
}

void CAdministratorView::StopMonitoringSelected()
{
    RemoveSelected(u"This will move this user to the unmonitored list. Continue?"_s,
                   u"This will move these users to the unmonitored list. Continue?"_s,
                   StopMonitoring);
}

// Ids, not rows: the list may be filled anew while the question stands.
void CAdministratorView::RemoveSelected(const QString &question,
                                        const QString &questionSeveral,
                                        void (*act)(UserId))
{
    const QList<UserId> selected = SelectedIds();
    if (selected.isEmpty()) {
        return;
    }
    selectionModel()->clearSelection();
    if (!services.prompt.Ask(selected.size() == 1 ? question : questionSeveral)) {
        return;
    }
    for (const UserId userId : selected) {
        users->RemoveUser(userId);
    }
    // Years of records, or a database that another program holds, may keep this waiting.
    setCursor(Qt::WaitCursor);
    RunPainted([&] { std::ranges::for_each(selected, act); });
    unsetCursor();
    FillList(sortColumn, true);
    emit Filled();
}

void CAdministratorView::RefreshKey()
{
    FillList(sortColumn, true);
    emit Filled();
}

void CAdministratorView::FillPopUp(QMenu &menu)
{
    const bool several = SelectedRows().size() >= 2;
    menu.setObjectName(several ? u"severalUsersPopUp"_s : u"userPopUp"_s);
    const auto changeGroup = [this] { MoveToChosenGroup(SelectedIds()); };
    if (several) {
        AddEntry(menu, u"Change group..."_s, changeGroup);
        if (dialogs.userLimits) {
            AddEntry(menu, u"Set mode/limits..."_s, [this] {
                dialogs.userLimits(SelectedIds(), window());
            });
        }
    } else {
        AddEntry(menu, u"Properties..."_s, Opener(dialogs.userProperties));
        AddEntry(menu, u"Account..."_s, Opener(dialogs.userAccount), HasAccount());
        AddEntry(menu, u"Statistics"_s, Opener(dialogs.userStatistics));
        AddEntry(menu, u"Change group..."_s, changeGroup);
    }
    menu.addSeparator();
    AddEntry(menu, u"Do not monitor"_s, [this] { StopMonitoringSelected(); });
    AddEntry(menu, several ? u"Delete"_s : u"Remove"_s, [this] { DeleteSelected(); });
}
