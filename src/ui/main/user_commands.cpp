#include "ui/main/user_commands.h"

#include "access/list_commands.h"
#include "app/perform.h"
#include "base/names_line.h"
#include "ui/main/administrator_view.h"
#include "ui/props/change_group_dialog.h"

#include <QLocale>

#include <algorithm>

UserCommands::UserCommands(const AppServices &appServices,
                           const FrameDialogs &windows,
                           CAdministratorView &users)
    : services(appServices)
    , dialogs(windows)
    , list(users)
{ }

bool UserCommands::MayChangeChosen() const
{
    if (!list.Matching().AreChosen()) {
        return true;
    }
    const qsizetype count = list.Matching().Ids().size();
    return services.prompt.AskToDestroy(
        count == 1 ? tr("This will change 1 user. Continue?")
                   : tr("This will change %1 users. Continue?").arg(QLocale().toString(count)),
        NamesLine(FirstNames(list.Matching().Ids()), count));
}

void UserCommands::ChangeGroup()
{
    const QList<UserId> selected = list.SelectedIds();
    if (list.Matching().AreChosen()) {
        ChangeGroupOfChosen();
    } else if (!selected.isEmpty()) {
        MoveToChosenGroup({selected.front()}); // kept: only the pop-up menu moves several users
    }
}

void UserCommands::ChangeGroupOfChosen()
{
    const QList<UserId> userIds = list.ChosenIds();
    if (!userIds.isEmpty()
        && MayChangeChosen()) { // a refresh may end the choice under an open menu
        MoveToChosenGroup(userIds);
    }
}

void UserCommands::SetLimitsOfChosen()
{
    const QList<UserId> userIds = list.ChosenIds();
    if (!userIds.isEmpty() && MayChangeChosen()) {
        dialogs.userLimits(userIds, list.window());
    }
}

// Dropped on the group. Other than a command's, whose rows stay as they are, what was dropped is seen to
// have arrived.
void UserCommands::MoveToGroup(const QList<UserId> &userIds, GroupId groupId, const QString &name)
{
    const QString group = NamesLine({name});
    const QString who = NamesLine(FirstNames(userIds), userIds.size());
    const bool wanted = userIds.size() == 1
        ? services.prompt.Ask(tr("Move %1 to the group %2?").arg(who, group))
        : services.prompt.AskToDestroy(tr("This will move %1 users to the group %2. Continue?")
                                           .arg(QLocale().toString(userIds.size()), group),
                                       who);
    if (wanted
        && Perform(services,
                   list.window(),
                   tr("Changing the group..."),
                   MoveUsersAction({userIds.begin(), userIds.end()}, groupId))) {
        list.RefillAsShown();
    }
}

void UserCommands::MoveToChosenGroup(const QList<UserId> &userIds)
{
    const auto group = ChooseGroupFor(services, userIds, list.window());
    if (group) {
        (void)Perform(services,
                      list.window(),
                      tr("Changing the group..."),
                      MoveUsersAction({userIds.begin(), userIds.end()}, group->groupId));
    }
}

void UserCommands::Delete()
{
    if (TellsOfMatching()) {
        return;
    }
    const auto ask = [this](const QStringList &names) {
        return services.prompt.AskToDestroy(
            names.size() == 1
                ? tr("This will delete this user and all corresponding information. Continue?")
                : tr("This will delete these users and all corresponding information. Continue?"),
            NamesLine(names));
    };
    RemoveSelected(ask, tr("Deleting users..."), DeleteUsersAction);
}

void UserCommands::StopMonitoring()
{
    if (TellsOfMatching()) {
        return;
    }
    const auto ask = [this](const QStringList &names) {
        return services.prompt.Ask(
            names.size() == 1
                ? tr("This will move this user to the unmonitored list. Continue?")
                : tr("This will move these users to the unmonitored list. Continue?"));
    };
    RemoveSelected(ask, tr("Moving users to the unmonitored list..."), StopMonitoringAction);
}

// The rows that are selected are but some of those who are chosen: what would take these alone says so.
bool UserCommands::TellsOfMatching() const
{
    if (list.Matching().AreChosen()) {
        services.prompt.Tell(
            tr("This does not work on all users that match. Select rows of the list."));
    }
    return list.Matching().AreChosen();
}

// Ids, not rows: the list may be filled anew while the question stands. Years of records, or a database
// that another program holds, may keep this waiting.
void UserCommands::RemoveSelected(const std::function<bool(const QStringList &names)> &ask,
                                  const QString &what,
                                  Action (*actionOn)(const std::vector<UserId> &))
{
    const QList<UserId> selected = list.SelectedIds();
    if (selected.isEmpty()) {
        return;
    }
    QStringList names;
    for (const UserId userId : selected) {
        names << list.NameOf(userId);
    }
    list.clearSelection();
    if (!ask(names)) {
        return;
    }
    const bool done = Perform(services,
                              list.window(),
                              what,
                              actionOn({selected.begin(), selected.end()}),
                              SessionThread::Patience::Endless);
    if (done) {
        list.RemoveRows(selected);
    }
    list.RefillByName();
}

// Of those that are listed, which the first ones are.
QStringList UserCommands::FirstNames(const QList<UserId> &userIds) const
{
    QStringList names;
    for (const UserId userId : userIds.first(std::min(userIds.size(), kMostNames))) {
        names << list.NameOf(userId);
    }
    return names;
}
