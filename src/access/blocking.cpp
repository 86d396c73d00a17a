#include "access/blocking.h"

#include "access/group_members.h"
#include "db/session.h"

bool BlockUser(const ServiceLink *link, quint32 userId, quint32 reason)
{
    if (link != nullptr) {
        link->BlockUser(userId);
    }
    Execute(
        "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)", reason, userId);
    return link != nullptr;
}

bool UnblockUser(const ServiceLink *link, quint32 userId)
{
    if (link != nullptr) {
        link->UnblockUser(userId);
    }
    Execute("UPDATE users SET blocked = false WHERE user_id = (?)", userId);
    return link != nullptr;
}

void BlockGroup(const ServiceLink *link, quint32 groupId, quint32 reason)
{
    Execute("UPDATE groups SET blocked = true, blockreason = (?) WHERE group_id = (?)",
            reason,
            groupId);
    Execute(
        "UPDATE users SET blocked = true, blockreason = (?) WHERE group_id = (?)", reason, groupId);
    for (const quint32 member : MembersOf(groupId)) {
        BlockUser(link, member, reason);
    }
}

void UnblockGroup(const ServiceLink *link, quint32 groupId)
{
    Execute("UPDATE groups SET blocked = false WHERE group_id = (?)", groupId);
    Execute("UPDATE users SET blocked = false WHERE group_id = (?)", groupId);
    for (const quint32 member : MembersOf(groupId)) {
        UnblockUser(link, member);
    }
}
