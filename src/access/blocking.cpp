#include "access/blocking.h"

#include "access/group_members.h"

bool BlockUser(ActionRun &run, UserId userId, BlockReason reason)
{
    const bool told = run.TellBlocked(userId);
    run.Write(
        "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)", reason, userId);
    return told;
}

bool UnblockUser(ActionRun &run, UserId userId)
{
    const bool told = run.TellUnblocked(userId);
    run.Write("UPDATE users SET blocked = false WHERE user_id = (?)", userId);
    return told;
}

void BlockGroup(ActionRun &run, GroupId groupId, BlockReason reason)
{
    run.Write("UPDATE groups SET blocked = true, blockreason = (?) WHERE group_id = (?)",
              reason,
              groupId);
    run.Write(
        "UPDATE users SET blocked = true, blockreason = (?) WHERE group_id = (?)", reason, groupId);
    for (const UserId member : run.Take(MembersOf(groupId))) {
        BlockUser(run, member, reason);
    }
}

void UnblockGroup(ActionRun &run, GroupId groupId)
{
    run.Write("UPDATE groups SET blocked = false WHERE group_id = (?)", groupId);
    run.Write("UPDATE users SET blocked = false WHERE group_id = (?)", groupId);
    for (const UserId member : run.Take(MembersOf(groupId))) {
        UnblockUser(run, member);
    }
}

void LiftGroupBlock(ActionRun &run, GroupId groupId)
{
    run.Write("UPDATE groups SET blocked = false WHERE group_id = (?)", groupId);
    for (const UserId member : run.Take(MembersNotBlockedByAdministrator(groupId))) {
        UnblockUser(run, member);
    }
}
