#include "access/list_commands.h"

#include "access/group_gone.h"
#include "access/group_members.h"
#include "access/group_name.h"
#include "access/owner.h"
#include "access/present_users.h"
#include "actions/action_run.h"
#include "base/names_line.h"
#include "db/query.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ListCommands)
};

Result<bool> HasAccount(const Owner &owner)
{
    return ModeOf(owner).map([](const std::optional<AccountingMode> &mode) {
        return mode.value_or(AccountingMode::NoControl) != AccountingMode::NoControl;
    });
}

void DeleteUser(ActionRun &run, UserId userId)
{
    for (const char *statement : {"DELETE FROM users WHERE user_id = (?)",
                                  "DELETE FROM traffic_use WHERE user_id = (?)",
                                  "DELETE FROM time_use WHERE user_id = (?)",
                                  "DELETE FROM siteaccess WHERE user_id = (?)",
                                  "DELETE FROM billing WHERE object_id = (?)",
                                  "UPDATE logins SET userid=0 WHERE userid = (?)"}) {
        run.Write(statement, userId);
    }
}

// Everything that a deletion of the group touches, in the order in which everybody locks. Refused
// where users would be moved into a group that is not there. Deleting "Everybody" itself is kept: its
// users stay where they are.
void PrepareDeletion(ActionRun &run, GroupId groupId)
{
    LockGroups(run, {groupId, kEverybodyGroup});
    const std::vector<UserId> members = run.Take(MembersOf(groupId));
    LockUsers(run, members);
    if (groupId != kEverybodyGroup && !members.empty()) {
        RefuseIfGone(run, kEverybodyGroup);
    }
}

} // namespace

Result<bool> UserHasAccount(UserId userId)
{
    return HasAccount(userId);
}

Result<bool> GroupHasAccount(GroupId groupId)
{
    return HasAccount(groupId);
}

Question DeleteUsersQuestion(const QStringList &first, qsizetype count)
{
    return {
        .key = u"delete users"_s,
        .text = count == 1
            ? Words::tr("This will delete this user and all corresponding information. Continue?")
            : Words::tr(
                "This will delete these users and all corresponding information. Continue?"),
        .destroys = true,
        .goes = NamesLine(first, count)};
}

Question DeleteGroupQuestion(const QString &name)
{
    return {.key = u"delete group"_s,
            .text = Words::tr("This will delete the selected group. Contunue?"),
            .destroys = true,
            .goes = WhyNotDeleted(name) ? QString() : NamesLine({name})};
}

std::optional<QString> WhyNotDeleted(const QString &groupName)
{
    return groupName == u"Everybody"_s
        ? std::optional(Words::tr("You cannot delete Everybody group"))
        : std::nullopt;
}

std::optional<QString> WhyNotRenamed(GroupId groupId)
{
    return groupId == kEverybodyGroup
        ? std::optional(Words::tr("You can not rename Everybody group"))
        : std::nullopt;
}

Action MoveUsersAction(const std::vector<UserId> &userIds, GroupId groupId)
{
    return {ActionId::MoveUsers, [=](ActionRun &run) {
                LockGroups(run, {groupId});
                LockUsers(run, userIds);
                RefuseIfGone(run, groupId);
                for (const UserId userId : PresentUsers(run, userIds)) {
                    run.Write(
                        "UPDATE users SET group_id = (?)  WHERE user_id = (?)", groupId, userId);
                }
            }};
}

Action DeleteUsersAction(const std::vector<UserId> &userIds)
{
    return {ActionId::DeleteUsers, [=](ActionRun &run) {
                LockUsers(run, userIds);
                for (const UserId userId : userIds) {
                    DeleteUser(run, userId);
                }
            }};
}

Action StopMonitoringAction(const std::vector<UserId> &userIds)
{
    return {ActionId::StopMonitoring, [=](ActionRun &run) {
                LockUsers(run, userIds);
                for (const UserId userId : PresentUsers(run, userIds)) {
                    run.Write("UPDATE users SET monitored = false WHERE user_id = (?)", userId);
                }
            }};
}

Action RenameGroupAction(GroupId groupId, const QString &name)
{
    return {ActionId::RenameGroup, [=](ActionRun &run) {
                LockToNameGroup(run, {groupId});
                const auto present = run.Take(NameOf(groupId));
                if (!present) {
                    RefuseGoneGroup(run);
                } else if (*present != name) {
                    RefuseBadGroupName(run, name, groupId);
                }
                run.Write("UPDATE groups SET name=(?) WHERE group_id = (?)", name, groupId);
                if (present != name) {
                    ClaimGroupName(run, name, groupId);
                }
            }};
}

GroupId AddGroup(ActionRun &run, const QString &name)
{
    RefuseBadGroupName(run, name, {});
    run.Write("INSERT INTO groups (name) VALUES (?)", name);
    if (run.IsStopped()) {
        return {};
    }
    const auto groupId = run.Take(ReadLast(
        "SELECT group_id FROM groups WHERE name = (?)",
        [](const Row &row) { return row.Id<GroupId>(1); },
        name));
    if (!groupId) { // users moved there would be in no group, and gone from every list
        run.Refuse(Words::tr("The new group cannot be found by its name. Nothing was changed."));
        return {};
    }
    ClaimGroupName(run, name, *groupId);
    // Read once more after a commit that was not answered, the row tells that it is kept.
    run.WatchAdded({"groups", "group_id", groupId->value, "group_id"});
    return *groupId;
}

Action AddGroupAction(const QString &name, const std::shared_ptr<GroupId> &added)
{
    return {ActionId::AddGroup, [=](ActionRun &run) {
                LockToNameGroup(run, {});
                if (const GroupId groupId = AddGroup(run, name); groupId.IsSet()) {
                    *added = groupId;
                }
            }};
}

Action DeleteGroupOfListAction(GroupId groupId)
{
    return {ActionId::DeleteGroupOfList, [=](ActionRun &run) {
                PrepareDeletion(run, groupId);
                run.Write("DELETE FROM groups WHERE group_id = (?)", groupId);
                run.Write("UPDATE users SET group_id = 80 WHERE group_id = (?)", groupId);
            }};
}

Action DeleteGroupOfDialogAction(GroupId groupId)
{
    return {ActionId::DeleteGroupOfDialog, [=](ActionRun &run) {
                PrepareDeletion(run, groupId);
                run.Write("UPDATE users SET group_id = 80  WHERE group_id = (?)", groupId);
                run.Write("DELETE FROM groups WHERE group_id = (?)", groupId);
            }};
}
