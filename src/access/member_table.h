// The members of a group while its sheet is open.
#pragma once

#include "db/ids.h"

#include <QString>

#include <vector>

struct Member
{
    UserId userId;
    QString name;

    bool operator==(const Member &) const = default;
};

class MemberTable
{
public:
    // Of the members listed, of the users offered, and of those added or removed on the page.
    static constexpr size_t kMost = 1000;

    // Reads the group's monitored users, the first 1000; nothing is added or removed yet.
    void Open(GroupId newGroupId);

    // The members as they will be.
    [[nodiscard]] const std::vector<Member> &Listed() const { return listed; }

    // Monitored users of other groups, and those removed here: the first 1000.
    [[nodiscard]] std::vector<Member> Candidates() const;

    // False when the group lists 1000 members already.
    [[nodiscard]] bool Add(const Member &member);

    void Remove(size_t row);

    // Moves the removed users to "Everybody" and the added ones into the group.
    void Save() const;

private:
    GroupId groupId;
    std::vector<Member> listed;
    std::vector<Member> removed;
    std::vector<UserId> added;
};
