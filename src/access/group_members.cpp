#include "access/group_members.h"

#include "db/query.h"

Result<std::vector<UserId>> MembersOf(GroupId groupId)
{
    return ReadAll(
        "SELECT user_id FROM users WHERE group_id = (?)",
        [](const Row &row) { return row.Id<UserId>(1); },
        groupId);
}

Result<std::vector<UserId>> MembersNotBlockedByAdministrator(GroupId groupId)
{
    return ReadAll(
        "SELECT user_id FROM users WHERE group_id = (?) AND (blocked = 0 OR blockreason <> 3)",
        [](const Row &row) { return row.Id<UserId>(1); },
        groupId);
}
