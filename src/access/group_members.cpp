#include "access/group_members.h"

#include "db/session.h"

std::vector<UserId> MembersOf(GroupId groupId)
{
    std::vector<UserId> members;
    RowCursor rows("SELECT user_id FROM users WHERE group_id = (?)", groupId);
    while (rows.Next()) {
        members.push_back(queryResult.Id<UserId>(1));
    }
    return members;
}
