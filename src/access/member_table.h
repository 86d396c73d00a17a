// The members of a group while its sheet is open.
#pragma once

#include "db/failure.h"
#include "db/ids.h"

#include <QString>

#include <vector>

struct Member
{
    UserId userId;
    QString name;
    GroupId groupId; // as it was read

    bool operator==(const Member &) const = default;
};

class MemberTable
{
public:
    // Of the members listed, of the users offered, and of those added or removed on the page.
    static constexpr size_t kMost = 1000;

    // With the members as they were read; nobody is added or removed yet.
    void Open(GroupId ofGroup, std::vector<Member> members);

    [[nodiscard]] GroupId Group() const { return groupId; }

    // The members as they will be.
    [[nodiscard]] const std::vector<Member> &Listed() const { return listed; }

    [[nodiscard]] const std::vector<Member> &Added() const { return added; }
    [[nodiscard]] const std::vector<Member> &Removed() const { return removed; }

    // False when the group lists 1000 members already.
    [[nodiscard]] bool Add(const Member &member);

    void Remove(size_t row);

private:
    GroupId groupId;
    std::vector<Member> listed;
    std::vector<Member> removed;
    std::vector<Member> added;
};

// The group's monitored users, the first 1000.
[[nodiscard]] Result<std::vector<Member>> ReadMembers(GroupId groupId);

// Those whom the table offers to add: the users removed from it, then monitored users of other groups
// that were not added yet; the first 1000 of them all.
[[nodiscard]] Result<std::vector<Member>> ReadCandidates(const MemberTable &members);
