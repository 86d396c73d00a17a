#include "access/member_table.h"

#include "access/owner.h"
#include "db/session.h"

#include <algorithm>

void MemberTable::Open(GroupId newGroupId)
{
    *this = {};
    groupId = newGroupId;
    LimitRows(kMost);
    RowCursor rows("SELECT username, user_id FROM users WHERE group_id = (?) and monitored = true",
                   groupId);
    while (listed.size() < kMost && rows.Next()) {
        listed.push_back({queryResult.Id<UserId>(2), queryResult.Text(1)});
    }
}

std::vector<Member> MemberTable::Candidates() const
{
    std::vector<Member> candidates = removed;
    {
        LimitRows(kMost);
        RowCursor rows("SELECT user_id FROM users WHERE group_id <> (?) and monitored = true",
                       groupId);
        while (candidates.size() < kMost && rows.Next()) {
            const auto userId = queryResult.Id<UserId>(1);
            if (std::ranges::find(added, userId) == added.end()) {
                candidates.push_back({userId, {}});
            }
        }
    }
    for (size_t i = removed.size(); i < candidates.size(); ++i) {
        candidates[i].name = NameOf(candidates[i].userId).value_or(QString());
    }
    return candidates;
}

bool MemberTable::Add(const Member &member)
{
    if (listed.size() == kMost) {
        return false;
    }
    if (std::erase(removed, member) == 0) {
        added.push_back(member.userId);
    }
    listed.push_back(member);
    return true;
}

void MemberTable::Remove(size_t row)
{
    const Member member = listed[row];
    listed.erase(listed.begin() + static_cast<std::ptrdiff_t>(row));
    if (std::erase(added, member.userId) == 0) {
        removed.push_back(member);
    }
}

void MemberTable::Save() const
{
    for (const Member &member : removed) {
        Execute("UPDATE users SET group_id = 80  WHERE user_id = (?)", member.userId);
    }
    for (const UserId userId : added) {
        Execute("UPDATE users SET group_id = (?)  WHERE user_id = (?)", groupId, userId);
    }
}
