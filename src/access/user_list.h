// The rows of the users list, read from the database.
#pragma once

#include "access/access_facts.h"
#include "base/function_ref.h"
#include "db/failure.h"
#include "db/ids.h"
#include "db/parameters.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>

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
    std::optional<AccountUse> use; // nothing: not read, or none

    bool operator==(const UserRow &) const = default;
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

// By what was used and what is left; only a search puts rows in these orders (access/user_search.h).
constexpr int kUsed = 1'000'001;
constexpr int kLeft = 1'000'002;
[[nodiscard]] constexpr bool IsByAccount(int order)
{
    return order == kUsed || order == kLeft;
}
} // namespace user_order

// The monitored users that have a group, at most 1000. Group names are looked up once for each group,
// and only when asked for; that of a group that is gone is empty.
[[nodiscard]] Result<UserList> ReadUserList(int order, bool ascending, bool withGroupNames);

// How many such users there are, whatever the list shows.
[[nodiscard]] Result<quint32> CountListedUsers();

// For other statements that give rows of the list.
namespace user_list {
// Of all that the list has at all: "AND" may follow.
extern const char *const kSelect;
extern const char *const kCount;

// Begins with a blank; empty for a code that is no order.
[[nodiscard]] QByteArray OrderClause(int order, bool ascending);

// The rows of such a statement, at most `most` of them; 0 for one that has a bound of its own: a driver
// writes the other behind it.
[[nodiscard]] Result<UserList>
Read(const QByteArray &statement, const ValueList &values, quint32 most, bool withGroupNames);

// Every row with its group's name, handed to `take` one after the other; `take` returns false to end it.
// `restart` is called before the rows come, once more when they come from the beginning again.
[[nodiscard]] std::optional<Failure> ForEach(const QByteArray &statement,
                                             const ValueList &values,
                                             FunctionRef<void()> restart,
                                             FunctionRef<bool(const UserRow &, UserId)> take);
} // namespace user_list

// Twelve characters as six pairs joined with "-"; a shorter text as the pairs it has.
[[nodiscard]] QString MacAddressText(const QString &stored);
