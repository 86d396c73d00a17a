#include "access/group_members.h"

#include "db/session.h"

std::vector<quint32> MembersOf(quint32 groupId)
{
    std::vector<quint32> members;
    RowCursor rows("SELECT user_id FROM users WHERE group_id = (?)", groupId);
    while (rows.Next()) {
        members.push_back(queryResult.Integer(1));
    }
    return members;
}
