#include "access/list_commands.h"

#include "access/owner.h"
#include "db/session.h"
#include "db/value_codes.h"

bool UserHasAccount(quint32 userId)
{
    return ModeOf(UserOwner(userId)).value_or(mode::kNoControl) != mode::kNoControl;
}

bool GroupHasAccount(quint32 groupId)
{
    return ModeOf(GroupOwner(groupId)).value_or(mode::kNoControl) != mode::kNoControl;
}

void MoveUserToGroup(quint32 userId, quint32 groupId)
{
    Execute("UPDATE users SET group_id = (?)  WHERE user_id = (?)", groupId, userId);
}

void DeleteUser(quint32 userId)
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

void StopMonitoring(quint32 userId)
{
    Execute("UPDATE users SET monitored = false WHERE user_id = (?)", userId);
}

void RenameGroup(quint32 groupId, const QString &name)
{
    Execute("UPDATE groups SET name=(?) WHERE group_id = (?)", name, groupId);
}

quint32 AddGroup(const QString &name)
{
    Execute("INSERT INTO groups (name) VALUES (?)", name);
    RunQuery("SELECT group_id FROM groups WHERE name = (?)", FetchMode::All, name);
    return queryResult.Integer(1);
}

void DeleteGroupOfList(quint32 groupId)
{
    Execute("DELETE FROM groups WHERE group_id = (?)", groupId);
    Execute("UPDATE users SET group_id = 80 WHERE group_id = (?)", groupId);
}

void DeleteGroupOfDialog(quint32 groupId)
{
    Execute("UPDATE users SET group_id = 80  WHERE group_id = (?)", groupId);
    Execute("DELETE FROM groups WHERE group_id = (?)", groupId);
}
