#include "ui/main/user_commands.h"

#include "access/list_commands.h"
#include "app/perform.h"
#include "base/names_line.h"
#include "ui/main/administrator_view.h"
#include "ui/props/change_group_dialog.h"

#include <QLocale>

UserCommands::UserCommands(const AppServices &appServices,
                           const FrameDialogs &windows,
                           CAdministratorView &users)
    : services(appServices)
    , dialogs(windows)
    , list(users)
{ }

bool UserCommands::MayChange(const Targets<UserId> &targets) const
{
    if (!::MayChange(services)) {
        return false;
    }
    if (!targets.areAllMatching) {
        return true;
    }
    const qsizetype count = targets.ids.size();
    return services.prompt.AskToDestroy(
        count == 1 ? tr("This will change 1 user. Continue?")
                   : tr("This will change %1 users. Continue?").arg(QLocale().toString(count)),
        NamesLine(targets.names, count));
}

void UserCommands::ChangeGroup()
{
    const Targets<UserId> targets = list.CommandTargets();
    if (targets.areAllMatching) {
        ChangeGroupOfChosen();
    } else if (!targets.ids.isEmpty() && MayChange(targets)) {
        MoveToChosenGroup({targets.ids.front()}); // kept: only the pop-up menu moves several users
    }
}

void UserCommands::ChangeGroupOfChosen()
{
    const Targets<UserId> targets = list.CommandTargets();
    if (!targets.ids.isEmpty() && MayChange(targets)) {
        MoveToChosenGroup(targets.ids);
    }
}

void UserCommands::SetLimitsOfChosen()
{
    const Targets<UserId> targets = list.CommandTargets();
    if (!targets.ids.isEmpty() && MayChange(targets)) {
        dialogs.userLimits(targets.ids, list.window());
    }
}

// Dropped on the group. Other than a command's, whose rows stay as they are, what was dropped is seen to
// have arrived.
void UserCommands::MoveToGroup(const QList<UserId> &userIds, GroupId groupId, const QString &name)
{
    const QString group = NamesLine({name});
    const QString who = NamesLine(list.FirstNames(userIds), userIds.size());
    if (!::MayChange(services)) {
        return;
    }
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
    if (TellsOfMatching() || !::MayChange(services)) {
        return;
    }
    const auto ask = [this](const Targets<UserId> &deleted) {
        const Question question = DeleteUsersQuestion(deleted.names, deleted.ids.size());
        return services.prompt.AskToDestroy(question.text, question.goes);
    };
    RemoveSelected(ask, tr("Deleting users..."), DeleteUsersAction);
}

void UserCommands::StopMonitoring()
{
    if (TellsOfMatching() || !::MayChange(services)) {
        return;
    }
    const auto ask = [this](const Targets<UserId> &moved) {
        return services.prompt.Ask(
            moved.ids.size() == 1
                ? tr("This will move this user to the unmonitored list. Continue?")
                : tr("This will move these users to the unmonitored list. Continue?"));
    };
    RemoveSelected(ask, tr("Moving users to the unmonitored list..."), StopMonitoringAction);
}

// The rows that are selected are but some of those who are chosen: what would take these alone says so.
bool UserCommands::TellsOfMatching() const
{
    const bool areAllMatching = list.CommandTargets().areAllMatching;
    if (areAllMatching) {
        services.prompt.Tell(
            tr("This does not work on all users that match. Select rows of the list."));
    }
    return areAllMatching;
}

// Ids, not rows: the list may be filled anew while the question stands. Years of records, or a database
// that another program holds, may keep this waiting.
void UserCommands::RemoveSelected(const std::function<bool(const Targets<UserId> &removed)> &ask,
                                  const QString &what,
                                  Action (*actionOn)(const std::vector<UserId> &))
{
    const Targets<UserId> removed = list.CommandTargets();
    if (removed.ids.isEmpty()) {
        return;
    }
    list.clearSelection();
    if (!ask(removed)) {
        return;
    }
    const bool done = Perform(services,
                              list.window(),
                              what,
                              actionOn({removed.ids.begin(), removed.ids.end()}),
                              SessionThread::Patience::Endless);
    if (done) {
        list.RemoveRows(removed.ids);
    }
    list.RefillByName();
}
