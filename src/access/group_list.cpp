#include "access/group_list.h"

#include "db/query.h"

#include <QHash>

#include <utility>

Result<GroupList> ReadGroupList()
{
    return ReadUpTo(kGroupListCapacity,
                    "SELECT name, descrip, blocked, group_id FROM groups",
                    [](const Row &row) {
                        return std::pair {GroupRow {.name = row.Text(1),
                                                    .description = row.Text(2),
                                                    .blocked = row.Flag(3)},
                                          row.Id<GroupId>(4)};
                    })
        .map([](const auto &rows) {
            GroupList list;
            for (const auto &[row, groupId] : rows) {
                list.rows.append(row);
                list.rowGroupIds.append(groupId);
            }
            return list;
        });
}

Result<std::vector<CountedGroup>> ReadAllGroups()
{
    QHash<GroupId, quint32> members;
    const auto counted = ReadAll("SELECT group_id, COUNT(*) FROM users GROUP BY group_id",
                                 [&members](const Row &row) {
                                     members.insert(row.Id<GroupId>(1), row.Integer(2));
                                     return true;
                                 });
    if (!counted) {
        return tl::unexpected(counted.error());
    }
    return ReadAll(
        "SELECT group_id, name, descrip, blocked FROM groups ORDER BY name ASC, group_id",
        [&members](const Row &row) {
            const auto groupId = row.Id<GroupId>(1);
            return CountedGroup {
                groupId, {row.Text(2), row.Text(3), row.Flag(4)}, members.value(groupId)};
        });
}

Result<quint32> CountGroups()
{
    return ReadOne("SELECT COUNT(*) FROM groups", [](const Row &row) { return row.Integer(1); })
        .map([](const std::optional<quint32> &count) { return count.value_or(0); });
}

Result<QList<NamedGroup>> ReadGroupNames()
{
    return ReadUpTo(kGroupListCapacity,
                    "SELECT name, group_id FROM groups",
                    [](const Row &row) {
                        return NamedGroup {.name = row.Text(1), .groupId = row.Id<GroupId>(2)};
                    })
        .map([](const std::vector<NamedGroup> &groups) {
            return QList<NamedGroup>(groups.begin(), groups.end());
        });
}

Result<std::optional<GroupId>> ReadGroupOfUser(UserId userId)
{
    return ReadOne(
        "SELECT group_id FROM users WHERE user_id = (?)",
        [](const Row &row) { return row.Id<GroupId>(1); },
        userId);
}
