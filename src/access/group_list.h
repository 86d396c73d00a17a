// The groups as the lists show them, read from the database.
#pragma once

#include "db/failure.h"
#include "db/ids.h"

#include <QList>
#include <QString>

#include <vector>

struct GroupRow
{
    QString name;
    QString description;
    bool blocked = false;

    bool operator==(const GroupRow &) const = default;
};

// Row i shows the group rowGroupIds[i].
struct GroupList
{
    QList<GroupRow> rows;
    QList<GroupId> rowGroupIds;
};

struct NamedGroup
{
    QString name;
    GroupId groupId;
};

constexpr quint32 kGroupListCapacity = 500;

// At most 500 groups, in the database's own order.
[[nodiscard]] Result<GroupList> ReadGroupList();

struct CountedGroup
{
    GroupId groupId;
    GroupRow row;
    quint32 members = 0; // monitored or not
};

// Every group, by name.
[[nodiscard]] Result<std::vector<CountedGroup>> ReadAllGroups();

// How many groups there are, whatever the list shows.
[[nodiscard]] Result<quint32> CountGroups();

// The user's group; nothing when there is no such user.
[[nodiscard]] Result<std::optional<GroupId>> ReadGroupOfUser(UserId userId);

// At most 500 groups to choose from, in the database's own order.
[[nodiscard]] Result<QList<NamedGroup>> ReadGroupNames();
