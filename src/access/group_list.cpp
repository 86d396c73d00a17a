#include "access/group_list.h"

#include "db/session.h"

GroupList ReadGroupList()
{
    GroupList list;
    LimitRows(kGroupListCapacity);
    RowCursor rows("SELECT name, descrip, blocked, group_id FROM groups");
    while (list.rows.size() < kGroupListCapacity && rows.Next()) {
        list.rows.append({.name = queryResult.Text(1),
                          .description = queryResult.Text(2),
                          .blocked = queryResult.Flag(3)});
        list.rowGroupIds.append(queryResult.Id<GroupId>(4));
    }
    return list;
}

quint32 CountGroups()
{
    RunQuery("SELECT COUNT(*) FROM groups", FetchMode::All);
    return queryResult.Integer(1);
}

QList<NamedGroup> ReadGroupNames()
{
    QList<NamedGroup> groups;
    LimitRows(kGroupListCapacity);
    RowCursor rows("SELECT name, group_id FROM groups");
    while (groups.size() < kGroupListCapacity && rows.Next()) {
        groups.append({.name = queryResult.Text(1), .groupId = queryResult.Id<GroupId>(2)});
    }
    return groups;
}
