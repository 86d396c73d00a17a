// The users list: every monitored user that has a group, or those of them that a filter finds; at most
// 1000.
#pragma once

#include "access/access_words.h"
#include "access/user_list.h"
#include "startup/app_services.h"
#include "ui/main/frame_dialogs.h"
#include "ui/main/id_list_pane.h"
#include "ui/main/matching_users.h"
#include "ui/main/user_columns.h"
#include "ui/main/user_commands.h"
#include "ui/main/user_finder.h"

#include <QDrag>

#include <functional>

class AccountBar;
class ColumnMemory;
struct ListToExport;
class UserListModel;

class CAdministratorView : public IdListPane<UserId>
{
    Q_OBJECT

public:
    CAdministratorView(const AppServices &services, const FrameDialogs &dialogs, QWidget *parent);
    ~CAdministratorView() override; // keeps the columns in the store

    // Puts the columns up as the store has them; the list stays empty.
    void LoadColumns();

    // In the order that the store names for the start.
    void FirstFill();

    // Has the list read anew beside the window; Filled tells when it was. Only the codes 0, 1 and 2
    // become the order of later refills.
    void FillList(int order, bool ascending);

    // Puts the visible columns up with their widths and fills the list.
    void RebuildColumns();

    void ToggleColumn(UserColumn column);
    [[nodiscard]] bool IsColumnVisible(UserColumn column) const;

    // Lists the users that the filter finds, out of all in the database, in the present order; an empty
    // one lists all again. Later refills keep to it. `typed` says it in words.
    void ShowFilter(const UserFilter &newFilter, const QString &typed);

    [[nodiscard]] const UserFilter &Filter() const { return filter; }
    [[nodiscard]] bool IsFiltered() const { return !IsEmpty(filter); }

    // The search for what the filter finds.
    [[nodiscard]] UserFinder &Finder() { return finder; }

    // Deselects the first selected row, and selects the first one whose first column begins with
    // `text`. False when there is none.
    bool FindUser(const QString &text);

    // Every user that is listed or would be, were there room, as a file, and on paper.
    void Export();
    void Print();

    // "Select all matching": whether it is of use, since not all users are listed, and what it has chosen.
    // A refill keeps it; whatever else selects rows ends it, and so does another filter.
    [[nodiscard]] bool MayHoldBack() const;
    void ChooseAllMatching();
    void EndMatching();
    [[nodiscard]] const MatchingUsers &Matching() const { return matching; }

    // All that match, where they are chosen; else the selected ones.
    [[nodiscard]] QList<UserId> ChosenIds() const;

    // What can be done with the users that are chosen.
    [[nodiscard]] UserCommands &Commands() { return commands; }

    // The names of the first of these users that are listed, up to kMostNames.
    [[nodiscard]] QStringList FirstNames(const QList<UserId> &userIds) const;

    // Takes rows out whose users are gone, before a refill tells.
    void RemoveRows(const QList<UserId> &userIds);

    // Reads the list anew, in the last order by name, workstation or full name, or in the present one.
    void RefillByName();
    void RefillAsShown();

    // Selects the first row, if there is one, and takes the focus.
    void GoToFirst();

    // What happens with a drag of the selected rows: `run` comes to its end with it. Otherwise the mouse takes it on.
    void SetRunDrag(std::function<void(QDrag &drag)> run) { runDrag = std::move(run); }

    void OpenProperties() override;
    void OpenAccount() override;
    void DeleteSelected() override;
    [[nodiscard]] QString AccountPrompt() const override;
    void AskForAccount(QObject *context, const std::function<void(bool)> &answer) override;

protected:
    [[nodiscard]] UserId IdAt(int row) const override;
    [[nodiscard]] int RowOf(UserId id) const override;
    [[nodiscard]] QString NameAt(int row) const override;
    [[nodiscard]] Targets<UserId> PresentTargets() const override;
    [[nodiscard]] QString TextWhenEmpty() const override;
    void RefreshKey() override;
    void FillPopUp(QMenu &menu) override;
    void keyPressEvent(QKeyEvent *event) override;
    void MoveByKey(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void startDrag(Qt::DropActions actions) override;

private:
    [[nodiscard]] ListToExport WholeList() const;
    void MatchingChanged();
    void SelectMatching();
    void SelectListedOfMatching();
    void KeepMatching();
    void FillPopUpOfMatching(QMenu &menu);
    void InsertColumns();
    void FitMacAddresses();
    void HeaderClicked(int section);
    void ShowSortIndicator();
    void TakeList(const UserList &list, int order, bool ascending);
    void FillFiltered(int order, bool ascending, bool quickFirst);
    [[nodiscard]] std::optional<AccountMoment> WantedAccounts() const;
    [[nodiscard]] WordsStyle AccountStyle() const;
    void TakeFound(const UserList &found);
    void TakeFocusAt(int row, const QList<int> &selected);

    const AppServices &services;
    const FrameDialogs &dialogs;
    UserCommands commands;
    UserListModel *users;
    UserColumns columns;
    ColumnMemory *columnMemory = nullptr;
    AccountBar *accountBar;
    std::optional<Chosen> chosenBefore; // the columns were put up anew
    int sortColumn = 5;
    bool sortAscending = true; // of header clicks: one direction for all columns
    int shownOrder = -1; // of the rows as they stand
    bool shownAscending = true;
    UserFilter filter;
    QString filterText;
    UserFinder finder;
    MatchingUsers matching;
    std::function<void(QDrag &)> runDrag = [](QDrag &drag) { drag.exec(Qt::MoveAction); };
    ListOrder wantedOrder; // of the search that runs
    int fills = 0; // that were asked for; only the last one is shown
};
