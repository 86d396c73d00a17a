// The rows of the users list, read from the database.
#pragma once

#include "access/access_marks.h"
#include "db/failure.h"
#include "db/ids.h"

#include <QList>
#include <QString>

// The text columns as they are shown: a hardware address as pairs joined with "-".
struct UserRow
{
    QString userName;
    QString stationName;
    QString fullName;
    QString ipAddress;
    QString macAddress;
    QString groupName;
    AccessState access = AccessState::Allowed;
};

// Row i shows the user rowUserIds[i].
struct UserList
{
    QList<UserRow> rows;
    QList<UserId> rowUserIds;
};

constexpr quint32 kUserListCapacity = 1000;

// The list's orders. Any other code reads the rows in the database's own order.
namespace user_order {
constexpr int kUserName = 0;
constexpr int kStationName = 1;
constexpr int kFullName = 2;
constexpr int kIpAddress = 3;
constexpr int kMacAddress = 4;
constexpr int kBlocked = 5;
} // namespace user_order

// The monitored users that have a group, at most 1000. Group names are looked up once for each group,
// and only when asked for; that of a group that is gone is empty.
[[nodiscard]] Result<UserList> ReadUserList(int order, bool ascending, bool withGroupNames);

// How many such users there are, whatever the list shows.
[[nodiscard]] Result<quint32> CountListedUsers();

// Twelve characters as six pairs joined with "-"; a shorter text as the pairs it has.
[[nodiscard]] QString MacAddressText(const QString &stored);
