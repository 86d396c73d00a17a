#include "access/blocking.h"

#include "access/group_members.h"
#include "db/session.h"

bool BlockUser(const ServiceLink *link, UserId userId, BlockReason reason)
{
    if (link != nullptr) {
        link->BlockUser(userId);
    }
    Execute(
        "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)", reason, userId);
    return link != nullptr;
}

bool UnblockUser(const ServiceLink *link, UserId userId)
{
    if (link != nullptr) {
        link->UnblockUser(userId);
    }
    Execute("UPDATE users SET blocked = false WHERE user_id = (?)", userId);
    return link != nullptr;
}

void BlockGroup(const ServiceLink *link, GroupId groupId, BlockReason reason)
{
    Execute("UPDATE groups SET blocked = true, blockreason = (?) WHERE group_id = (?)",
            reason,
            groupId);
    Execute(
        "UPDATE users SET blocked = true, blockreason = (?) WHERE group_id = (?)", reason, groupId);
    for (const UserId member : MembersOf(groupId)) {
        BlockUser(link, member, reason);
    }
}

void UnblockGroup(const ServiceLink *link, GroupId groupId)
{
    Execute("UPDATE groups SET blocked = false WHERE group_id = (?)", groupId);
    Execute("UPDATE users SET blocked = false WHERE group_id = (?)", groupId);
    for (const UserId member : MembersOf(groupId)) {
        UnblockUser(link, member);
    }
}
