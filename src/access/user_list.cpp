#include "access/user_list.h"

#include "access/owner.h"
#include "db/query.h"
#include "db/value_codes.h"

#include <QHash>

#include <algorithm>
#include <utility>
#include <vector>

const char *const user_list::kSelect =
    "SELECT username, stationname, fullname, ip_addr, blocked, user_id, blockreason, mac_addr, "
    "group_id, timeaccess, timeblocked FROM users WHERE monitored = true AND group_id<>0";

const char *const user_list::kCount =
    "SELECT COUNT(*) FROM users WHERE monitored = true AND group_id<>0";

namespace {

constexpr const char *kOrderColumns[] = {
    "username", "stationname", "fullname", "ip_addr", "mac_addr", "blocked"};

struct ReadUser
{
    UserRow row;
    UserId userId;
    GroupId groupId;
};

AccessState AccessOf(const Row &row)
{
    return PictureOf({.block = {row.Flag(5), row.Code<BlockReason>(7)},
                      .timeAccess = row.Flag(10),
                      .timeBlocked = row.Flag(11)});
}

ReadUser UserOf(const Row &row)
{
    return {.row = {.userName = row.Text(1),
                    .stationName = row.Text(2),
                    .fullName = row.Text(3),
                    .ipAddress = row.Text(4),
                    .macAddress = MacAddressText(row.Text(8)),
                    .groupName = {},
                    .access = AccessOf(row),
                    .use = {}},
            .userId = row.Id<UserId>(6),
            .groupId = row.Id<GroupId>(9)};
}

using GroupNames = QHash<GroupId, QString>;

// The name of a group that is gone is empty.
Result<GroupNames> ReadNames(const std::vector<ReadUser> &users)
{
    GroupNames names;
    for (const ReadUser &user : users) {
        if (!names.contains(user.groupId)) {
            const auto name = NameOf(user.groupId);
            if (!name) {
                return tl::unexpected(name.error());
            }
            names.insert(user.groupId, name->value_or(QString()));
        }
    }
    return names;
}

UserList ListOf(std::vector<ReadUser> users, const GroupNames &names)
{
    UserList list;
    list.rows.reserve(kUserListCapacity);
    list.rowUserIds.reserve(kUserListCapacity);
    for (ReadUser &user : users) {
        list.rows.append(std::move(user.row));
        list.rows.back().groupName = names.value(user.groupId);
        list.rowUserIds.append(user.userId);
    }
    return list;
}

} // namespace

QByteArray user_list::OrderClause(int order, bool ascending)
{
    QByteArray clause;
    if (order >= 0 && order < static_cast<int>(std::size(kOrderColumns))) {
        clause.append(" ORDER BY ").append(kOrderColumns[order]);
        clause.append(ascending ? " ASC" : " DESC");
    }
    return clause;
}

Result<UserList> user_list::Read(const QByteArray &statement,
                                 const ValueList &values,
                                 quint32 most,
                                 bool withGroupNames)
{
    auto users = ReadUpTo(most, statement.constData(), UserOf, values);
    if (!users) {
        return tl::unexpected(users.error());
    }
    return (withGroupNames ? ReadNames(*users) : Result<GroupNames>())
        .map([&users](const GroupNames &names) { return ListOf(*std::move(users), names); });
}

std::optional<Failure> user_list::ForEach(const QByteArray &statement,
                                          const ValueList &values,
                                          FunctionRef<void()> restart,
                                          FunctionRef<bool(const UserRow &, UserId)> take)
{
    GroupNames names;
    const auto groups = ReadAll("SELECT group_id, name FROM groups", [&names](const Row &row) {
        names.insert(row.Id<GroupId>(1), row.Text(2));
        return true;
    });
    if (!groups) {
        return groups.error();
    }
    return query::Read(
        statement.constData(),
        0,
        [&values] { BindValues(values); },
        restart,
        [&](const Row &row) {
            ReadUser user = UserOf(row);
            user.row.groupName = names.value(user.groupId);
            return take(user.row, user.userId) ? query::Then::GoOn : query::Then::Stop;
        });
}

Result<UserList> ReadUserList(int order, bool ascending, bool withGroupNames)
{
    const QByteArray statement = user_list::kSelect + user_list::OrderClause(order, ascending);
    return user_list::Read(statement, {}, kUserListCapacity, withGroupNames);
}

Result<quint32> CountListedUsers()
{
    return ReadOne(user_list::kCount, [](const Row &row) { return row.Integer(1); })
        .map([](const std::optional<quint32> &count) { return count.value_or(0); });
}

QString MacAddressText(const QString &stored)
{
    constexpr qsizetype kLength = 12;
    QString text;
    text.reserve(kLength + 5);
    for (qsizetype at = 0; at < qMin(stored.size(), kLength); at += 2) {
        if (at > 0) {
            text.append(u'-');
        }
        text.append(QStringView(stored).mid(at, qMin<qsizetype>(2, stored.size() - at)));
    }
    return text;
}
