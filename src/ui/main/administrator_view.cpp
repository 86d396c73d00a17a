#include "ui/main/administrator_view.h"

#include "access/list_commands.h"
#include "accounts/currency.h"
#include "base/day.h"
#include "ui/common/accessible.h"
#include "ui/common/window_memory.h"
#include "ui/main/account_bar.h"
#include "ui/main/list_export.h"
#include "ui/main/list_print.h"
#include "ui/main/user_list_model.h"

#include <QHeaderView>
#include <QLocale>
#include <QStyle>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

// Of twelve of the widest digits and their dashes, in a cell of the list.
int WidthOfMacAddress(const QWidget &list)
{
    int digit = 0;
    for (const QChar each : u"0123456789ABCDEFabcdef"_s) {
        digit = std::max(digit, list.fontMetrics().horizontalAdvance(each));
    }
    const int margin = list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &list) + 1;
    return 12 * digit + 5 * list.fontMetrics().horizontalAdvance(u'-') + 4 * margin;
}

} // namespace

CAdministratorView::CAdministratorView(const AppServices &appServices,
                                       const FrameDialogs &windows,
                                       QWidget *parent)
    : IdListPane(parent)
    , services(appServices)
    , dialogs(windows)
    , commands(appServices, windows, *this)
    , users(new UserListModel(this))
    , accountBar(new AccountBar(this))
    , finder(appServices.database)
    , matching(appServices, nullptr)
{
    SetNames(*this, u"usersList"_s, tr("Users"));
    setSelectionMode(ExtendedSelection);
    setDragDropMode(DragOnly);
    ShowModel(users);
    columnMemory = new ColumnMemory(*header(), u"users"_s, [this](int section) {
        return QString::number(static_cast<int>(users->ColumnAt(section)));
    });
    header()->setSectionsClickable(true);
    connect(header(), &QHeaderView::sectionClicked, this, &CAdministratorView::HeaderClicked);
    connect(&finder, &UserFinder::Found, this, &CAdministratorView::TakeFound);
    connect(&finder, &UserFinder::Failed, this, [this] { TellRead(false); });
    connect(&matching, &MatchingUsers::Changed, this, &CAdministratorView::MatchingChanged);
    connect(&matching, &MatchingUsers::Shrunk, this, &CAdministratorView::SelectListedOfMatching);
    connect(this, &ListPane::Focused, this, &CAdministratorView::SelectMatching);
}

CAdministratorView::~CAdministratorView()
{
    columns.RememberOptional();
    if (services.onlyLooks) {
        return;
    }
    if (const SettingsResult saved = columns.Save(services.settings); !saved) {
        services.prompt.Tell(TextOf(saved.error()), Prompt::Icon::Warning);
    }
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
    const bool shows = columns.ShowUsers();
    users->SetStyle(AccountStyle());
    if ((IsFiltered() || user_order::IsByAccount(order)) && shows) {
        FillFiltered(order, ascending, false);
        return;
    }
    finder.Stop();
    ++fills;
    const bool withGroups = columns.IsVisible(UserColumn::Group);
    StartReading(
        services.database,
        [order, ascending, withGroups, shows, accounts = WantedAccounts()]() -> Result<UserList> {
            if (!shows) {
                return UserList();
            }
            auto list = ReadUserList(order, ascending, withGroups);
            return accounts && list ? WithAccountUses(*std::move(list), *accounts) : list;
        },
        [this, order, ascending, number = fills](const UserList &list) {
            if (number == fills) {
                TakeList(list, order, ascending);
            }
        });
}

void CAdministratorView::FillFiltered(int order, bool ascending, bool quickFirst)
{
    AwaitRows();
    wantedOrder = {order, ascending};
    ++fills;
    finder.Find(
        {filter, wantedOrder, columns.IsVisible(UserColumn::Group), WantedAccounts(), quickFirst});
}

// Not while the price of traffic cannot be read: a credit of money would seem to have no bound.
std::optional<AccountMoment> CAdministratorView::WantedAccounts() const
{
    const ConfigStore &settings = services.settings;
    return columns.ShowAccounts() && !settings.Problem(ConfigKeyId::Price)
        ? std::optional(AccountMoment {Today(), settings.ReadAmount(values::kTrafPrice)})
        : std::nullopt;
}

WordsStyle CAdministratorView::AccountStyle() const
{
    if (!columns.ShowAccounts()) {
        return {};
    }
    const Currency currency = CurrentCurrency(services.settings);
    return {Today(), QLocale(), currency.rate, currency.name};
}

void CAdministratorView::TakeFound(const UserList &found)
{
    TakeList(found, wantedOrder.column, wantedOrder.ascending);
    TellRead(true);
}

void CAdministratorView::ShowFilter(const UserFilter &newFilter, const QString &typed)
{
    EndMatching();
    filter = newFilter;
    filterText = typed;
    const ListOrder order =
        finder.IsSearching() ? wantedOrder : ListOrder {shownOrder, shownAscending};
    if (IsFiltered() && columns.ShowUsers()) {
        FillFiltered(order.column, order.ascending, true);
    } else {
        FillList(order.column, order.ascending);
    }
}

void CAdministratorView::TakeList(const UserList &list, int order, bool ascending)
{
    KeepingPlace([&] { users->SetList(list); });
    viewport()->update(); // figures of accounts may be written in another currency
    FitMacAddresses();
    if (const auto chosen = std::exchange(chosenBefore, std::nullopt)) {
        ChooseAgain(*chosen);
        scrollTo(currentIndex());
    }
    shownOrder = order;
    shownAscending = ascending;
    ShowSortIndicator();
    KeepMatching();
}

void CAdministratorView::RebuildColumns()
{
    if (!chosenBefore) {
        chosenBefore = WhatIsChosen();
    }
    InsertColumns();
    FillList(sortColumn, sortAscending);
}

void CAdministratorView::InsertColumns()
{
    columnMemory->PutUp([this] {
        users->SetColumns(columns.Shown());
        for (int section = 0; section < users->columnCount(); ++section) {
            const UserColumn column = users->ColumnAt(section);
            header()->resizeSection(section, columns.Width(column));
            setItemDelegateForColumn(section, IsOfAccount(column) ? accountBar : nullptr);
        }
    });
}

// An address is not cut unless somebody wants the column so: a width that is stored is one that somebody
// wrote there, but for the usual one, which the console itself stores.
void CAdministratorView::FitMacAddresses()
{
    const int section = users->SectionOf(UserColumn::MacAddress);
    if (section >= 0 && users->HasMacAddresses() && !columnMemory->IsDragged(section)
        && columns.HasUsualWidth(UserColumn::MacAddress)) {
        columnMemory->PutUp([this, section] {
            header()->resizeSection(
                section, std::max(columns.Width(UserColumn::MacAddress), WidthOfMacAddress(*this)));
        });
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
    EndMatching();
    DeselectFirst();
    const int row = users->FindPrefix(text);
    if (row >= 0) {
        TakeFocusAt(row, SelectedRows() << row);
    }
    return row >= 0;
}

void CAdministratorView::Export()
{
    ExportList(services, *window(), WholeList());
}

void CAdministratorView::Print()
{
    PrintList(services, *window(), WholeList());
}

ListToExport CAdministratorView::WholeList() const
{
    ListToExport list {.filter = filter,
                       .filterText = filterText,
                       .order = {shownOrder, shownAscending},
                       .columns = {},
                       .accounts = WantedAccounts(),
                       .style = AccountStyle()};
    for (int place = 0; place < header()->count(); ++place) { // as they were dragged
        const int section = header()->logicalIndex(place);
        list.columns << users->ColumnAt(section);
        list.widths << std::max(1, header()->sectionSize(section));
    }
    return list;
}

bool CAdministratorView::MayHoldBack() const
{
    return RowCount() > 0 && (IsFiltered() || RowCount() >= static_cast<int>(kUserListCapacity));
}

// The rows show it as far as they go.
void CAdministratorView::ChooseAllMatching()
{
    matching.Choose(filter, {shownOrder, shownAscending}, *window());
    if (matching.AreChosen()) {
        setFocus(Qt::OtherFocusReason);
        SelectMatching();
    }
}

// Also when the focus comes back, with which the first row had left the selection.
void CAdministratorView::SelectMatching()
{
    if (matching.AreChosen()) {
        SelectListedOfMatching();
    }
}

// Somebody who came to match since is listed and is not chosen. Without the focus the first row is not
// selected.
void CAdministratorView::SelectListedOfMatching()
{
    QList<int> rows;
    for (int row = 0; row < RowCount(); ++row) {
        if (matching.Contains(IdAt(row))) {
            rows << row;
        }
    }
    GoTo(-1, hasFocus() ? rows : rows.mid(1));
}

// The list shows other rows than before, or the same in another order.
void CAdministratorView::KeepMatching()
{
    SelectMatching();
    matching.LookAgain(filter, {shownOrder, shownAscending});
}

// Nothing may look chosen any more of which a command would then take only the listed part.
void CAdministratorView::EndMatching()
{
    if (matching.AreChosen()) {
        selectionModel()->clearSelection();
        matching.End();
    }
}

void CAdministratorView::MatchingChanged()
{
    emit SelectionChanged();
}

QList<UserId> CAdministratorView::ChosenIds() const
{
    return matching.AreChosen() ? matching.Ids() : SelectedIds();
}

void CAdministratorView::GoToFirst()
{
    if (RowCount() > 0) {
        TakeFocusAt(0, {0});
    }
}

void CAdministratorView::TakeFocusAt(int row, const QList<int> &selected)
{
    setFocus(Qt::OtherFocusReason);
    GoTo(row, selected);
    scrollTo(users->index(row, 0));
}

UserId CAdministratorView::IdAt(int row) const
{
    return users->IdAt(row);
}

int CAdministratorView::RowOf(UserId id) const
{
    return users->RowOf(id);
}

QString CAdministratorView::NameAt(int row) const
{
    return users->NameAt(row);
}

Targets<UserId> CAdministratorView::PresentTargets() const
{
    if (!matching.AreChosen()) {
        return IdListPane::PresentTargets();
    }
    Targets<UserId> targets {.ids = matching.Ids(), .names = {}, .areAllMatching = true};
    for (int row = 0; row < RowCount() && targets.names.size() < kMostNames; ++row) {
        if (matching.Contains(IdAt(row))) {
            targets.names << NameAt(row);
        }
    }
    return targets;
}

// Without a column to show them in, nobody knows whether there are users.
QString CAdministratorView::TextWhenEmpty() const
{
    if (!columns.ShowUsers()) {
        return {};
    }
    return IsFiltered()
        ? tr("Nobody matches.")
        : tr("There are no users yet. The accounting service finds workstations by itself and "
             "lists them here, as long as the address ranges in the options hold their addresses. "
             "Or choose \"Import...\" or \"New user...\" from the menus.");
}

void CAdministratorView::OpenProperties()
{
    if (!commands.TellsOfMatching()) {
        OpenFor(dialogs.userProperties);
    }
}

void CAdministratorView::OpenAccount()
{
    if (!commands.TellsOfMatching()) {
        OpenFor(dialogs.userAccount);
    }
}

QString CAdministratorView::AccountPrompt() const
{
    return tr("Refill current user account");
}

void CAdministratorView::AskForAccount(QObject *context, const std::function<void(bool)> &answer)
{
    if (CommandTargets().areAllMatching) {
        answer(false);
        return;
    }
    AskForAccountBy(services.database, UserHasAccount, context, answer);
}

void CAdministratorView::DeleteSelected()
{
    commands.Delete();
}

QStringList CAdministratorView::FirstNames(const QList<UserId> &userIds) const
{
    QStringList names;
    for (const UserId userId : userIds.first(std::min(userIds.size(), kMostNames))) {
        if (const int row = users->RowOf(userId); row >= 0) {
            names << users->NameAt(row);
        }
    }
    return names;
}

void CAdministratorView::RemoveRows(const QList<UserId> &userIds)
{
    for (const UserId userId : userIds) {
        users->RemoveRowOf(userId);
    }
}

void CAdministratorView::RefillByName()
{
    FillList(sortColumn, true);
}

void CAdministratorView::RefillAsShown()
{
    FillList(shownOrder, shownAscending);
}

void CAdministratorView::RefreshKey()
{
    services.database.Reopen();
    RefillByName();
}
