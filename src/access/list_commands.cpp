#include "access/list_commands.h"

#include "access/owner.h"
#include "db/session.h"

namespace {

bool HasAccount(const Owner &owner)
{
    return ModeOf(owner).value_or(AccountingMode::NoControl) != AccountingMode::NoControl;
}

} // namespace

bool UserHasAccount(UserId userId)
{
    return HasAccount(userId);
}

bool GroupHasAccount(GroupId groupId)
{
    return HasAccount(groupId);
}

void MoveUserToGroup(UserId userId, GroupId groupId)
{
    Execute("UPDATE users SET group_id = (?)  WHERE user_id = (?)", groupId, userId);
}

void DeleteUser(UserId userId)
{
    for (const char *statement : {"DELETE FROM users WHERE user_id = (?)",
                                  "DELETE FROM traffic_use WHERE user_id = (?)",
                                  "DELETE FROM time_use WHERE user_id = (?)",
                                  "DELETE FROM siteaccess WHERE user_id = (?)",
                                  "DELETE FROM billing WHERE object_id = (?)",
                                  "UPDATE logins SET userid=0 WHERE userid = (?)"}) {
        Execute(statement, userId);
    }
}

void StopMonitoring(UserId userId)
{
    Execute("UPDATE users SET monitored = false WHERE user_id = (?)", userId);
}

void RenameGroup(GroupId groupId, const QString &name)
{
    Execute("UPDATE groups SET name=(?) WHERE group_id = (?)", name, groupId);
}

GroupId AddGroup(const QString &name)
{
    Execute("INSERT INTO groups (name) VALUES (?)", name);
    RunQuery("SELECT group_id FROM groups WHERE name = (?)", FetchMode::All, name);
    return queryResult.Id<GroupId>(1);
}

void DeleteGroupOfList(GroupId groupId)
{
    Execute("DELETE FROM groups WHERE group_id = (?)", groupId);
    Execute("UPDATE users SET group_id = 80 WHERE group_id = (?)", groupId);
}

void DeleteGroupOfDialog(GroupId groupId)
{
    Execute("UPDATE users SET group_id = 80  WHERE group_id = (?)", groupId);
    Execute("DELETE FROM groups WHERE group_id = (?)", groupId);
}
