#include "access/member_table.h"

#include "access/owner.h"
#include "db/query.h"

#include <QHash>

#include <algorithm>
#include <utility>

namespace {

bool Holds(const std::vector<Member> &members, UserId userId)
{
    return std::ranges::find(members, userId, &Member::userId) != members.end();
}

// Where the users stand now, each by its id.
Result<QHash<UserId, GroupId>> ReadGroupsOfOthers(GroupId groupId)
{
    const auto users = ReadAll(
        "SELECT user_id, group_id FROM users WHERE group_id <> (?) and monitored = true",
        [](const Row &row) {
            return std::pair {row.Id<UserId>(1), row.Id<GroupId>(2)};
        },
        groupId);
    if (!users) {
        return tl::unexpected(users.error());
    }
    QHash<UserId, GroupId> groups;
    for (const auto &[userId, group] : *users) {
        groups.insert(userId, group);
    }
    return groups;
}

// A user that is gone by now is left out.
Result<std::vector<Member>> ReadNames(const std::vector<Member> &users)
{
    std::vector<Member> named;
    for (const Member &user : users) {
        const auto name = NameOf(user.userId);
        if (!name) {
            return tl::unexpected(name.error());
        }
        if (*name) {
            named.push_back({user.userId, **name, user.groupId});
        }
    }
    return named;
}

} // namespace

void MemberTable::Open(GroupId ofGroup, std::vector<Member> members)
{
    *this = {};
    groupId = ofGroup;
    listed = std::move(members);
}

bool MemberTable::Add(const Member &member)
{
    if (listed.size() == kMost) {
        return false;
    }
    if (std::erase_if(removed, [&](const Member &each) { return each.userId == member.userId; })
        == 0) {
        added.push_back(member);
    }
    listed.push_back(member);
    return true;
}

void MemberTable::Remove(size_t row)
{
    const Member member = listed[row];
    listed.erase(listed.begin() + static_cast<std::ptrdiff_t>(row));
    if (std::erase(added, member) == 0) {
        removed.push_back(member);
    }
}

Result<std::vector<Member>> ReadMembers(GroupId groupId)
{
    return ReadUpTo(
        MemberTable::kMost,
        "SELECT username, user_id FROM users WHERE group_id = (?) and monitored = true",
        [groupId](const Row &row) {
            return Member {row.Id<UserId>(2), row.Text(1), groupId};
        },
        groupId);
}

Result<std::vector<Member>> ReadCandidates(const MemberTable &members)
{
    const auto others = ReadUpTo(
        static_cast<quint32>(MemberTable::kMost + members.Added().size()),
        "SELECT user_id FROM users WHERE group_id <> (?) and monitored = true",
        [](const Row &row) { return row.Id<UserId>(1); },
        members.Group());
    if (!others) {
        return tl::unexpected(others.error());
    }
    const auto groups = ReadGroupsOfOthers(members.Group());
    if (!groups) {
        return tl::unexpected(groups.error());
    }
    std::vector<Member> offered;
    for (const UserId userId : *others) {
        if (members.Removed().size() + offered.size() < MemberTable::kMost
            && !Holds(members.Added(), userId) && !Holds(members.Removed(), userId)) {
            offered.push_back({userId, {}, groups->value(userId)});
        }
    }
    return ReadNames(offered).map([&members](const std::vector<Member> &named) {
        std::vector<Member> candidates = members.Removed();
        candidates.insert(candidates.end(), named.begin(), named.end());
        return candidates;
    });
}
