// The groups as the lists show them, read from the database.
#pragma once

#include <QList>
#include <QString>

struct GroupRow
{
    QString name;
    QString description;
    bool blocked = false;
};

// Row i shows the group rowGroupIds[i].
struct GroupList
{
    QList<GroupRow> rows;
    QList<quint32> rowGroupIds;
};

struct NamedGroup
{
    QString name;
    quint32 groupId = 0;
};

constexpr quint32 kGroupListCapacity = 500;

// At most 500 groups, in the database's own order.
[[nodiscard]] GroupList ReadGroupList();

// How many groups there are, whatever the list shows.
[[nodiscard]] quint32 CountGroups();

// At most 500 groups to choose from, in the database's own order.
[[nodiscard]] QList<NamedGroup> ReadGroupNames();
