#include "access/user_list.h"

#include "access/owner.h"
#include "db/session.h"
#include "db/value_codes.h"

#include <QHash>

namespace {

constexpr char kSelect[] =
    "SELECT username, stationname, fullname, ip_addr, blocked, user_id, blockreason, mac_addr, "
    "group_id, timeaccess, timeblocked FROM users WHERE monitored = true AND group_id<>0";

constexpr const char *kOrderColumns[] = {
    "username", "stationname", "fullname", "ip_addr", "mac_addr", "blocked"};

QByteArray Statement(int order, bool ascending)
{
    QByteArray text = kSelect;
    if (order >= 0 && order < static_cast<int>(std::size(kOrderColumns))) {
        text.append(" ORDER BY ").append(kOrderColumns[order]).append(ascending ? " ASC" : " DESC");
    }
    return text;
}

// Of the current row of the list's statement.
AccessState CurrentAccess()
{
    if (queryResult.Flag(10) != queryResult.Flag(11)) {
        return AccessState::OutsideAllowedTime;
    }
    const bool allowed =
        !queryResult.Flag(5) || queryResult.Code<BlockReason>(7) == BlockReason::ShownAsAllowed;
    return allowed ? AccessState::Allowed : AccessState::Blocked;
}

UserRow CurrentRow()
{
    return {.userName = queryResult.Text(1),
            .stationName = queryResult.Text(2),
            .fullName = queryResult.Text(3),
            .ipAddress = queryResult.Text(4),
            .macAddress = MacAddressText(queryResult.Text(8)),
            .groupName = {},
            .access = CurrentAccess()};
}

void FillGroupNames(UserList &list, const QList<GroupId> &groupIds)
{
    QHash<GroupId, QString> names;
    for (qsizetype row = 0; row < list.rows.size(); ++row) {
        const GroupId groupId = groupIds[row];
        auto name = names.constFind(groupId);
        if (name == names.constEnd()) {
            name = names.insert(groupId, NameOf(groupId).value_or(QString()));
        }
        list.rows[row].groupName = *name;
    }
}

} // namespace

UserList ReadUserList(int order, bool ascending, bool withGroupNames)
{
    UserList list;
    QList<GroupId> groupIds;
    list.rows.reserve(kUserListCapacity);
    list.rowUserIds.reserve(kUserListCapacity);
    groupIds.reserve(kUserListCapacity);
    {
        LimitRows(kUserListCapacity);
        RowCursor rows(Statement(order, ascending).constData());
        while (list.rows.size() < kUserListCapacity && rows.Next()) {
            list.rows.append(CurrentRow());
            list.rowUserIds.append(queryResult.Id<UserId>(6));
            groupIds.append(queryResult.Id<GroupId>(9));
        }
    }
    if (withGroupNames) {
        FillGroupNames(list, groupIds);
    }
    return list;
}

quint32 CountListedUsers()
{
    RunQuery("SELECT COUNT(*) FROM users WHERE monitored = true AND group_id<>0", FetchMode::All);
    return queryResult.Integer(1);
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
