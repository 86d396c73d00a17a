// What the gateway counted, and how it gets into the accounts: each byte once.
#pragma once

#include "base/net_address.h"
#include "db/failure.h"
#include "db/ids.h"

#include <QDateTime>
#include <QList>
#include <QSet>
#include <QString>

#include <vector>

// The counters of one address in bytes, from the beginning of the generation.
struct AddressCounters
{
    NetAddress address;
    bool unknown = false; // counted before the address was somebody's
    UserId owner; // whose bytes are those since the last count; nobody's are not accounted
    quint64 received = 0; // what limits and credits are about
    quint64 sent = 0;
};

// How long a user was on line since the last count. Who was on line has sent something: of a user
// without a new byte in the same count it is taken for one that has been accounted already.
struct OnlineTime
{
    UserId user;
    double seconds = 0;
};

struct Count
{
    QString gatewayId; // at most 64 characters
    quint64 generation = 0; // of the kernel's table; in another one all counters began at nothing
    QDateTime
        at; // when the counters were read, in the gateway's zone; midnight ends the day before it
    std::vector<AddressCounters> counters; // those that have not changed may be left out
    std::vector<OnlineTime> online; // each user once
    // Whom the kernel refused a packet at the bound that it was given: nothing is left, although what
    // was counted may be short of the bound by less than a packet.
    QSet<UserId> usedUp;
    QSet<GroupId> usedUpGroups;
};

struct Prices
{
    double price = 0; // of traffic for whoever has none of its own, base units for each megabyte
};

// What became of a count, over all its batches.
struct Counted
{
    quint64 received = 0; // bytes accounted by this count
    quint64 sent = 0;
    int users = 0; // who had any
    QList<UserId> trafficUsedUp; // blocked by this count with reason 1
    QList<UserId> timeUsedUp; // with reason 2
    QList<GroupId> groupsUsedUp; // with reason 1
    QList<UserId> lifted; // whose block of reason 1 or 2 nothing accounted for any more
    QList<GroupId> groupsLifted;
};

// Writes what is new in the count: the day's records (period 0), the records of limits of users and
// groups, credits with what each day took of them, and blocks of those who have nothing left. It does
// so in batches of whole users, each in a transaction of its own together with the counters that it
// accounts, which on SQLite holds the database for at most 50 ms.
//
// When it fails, what was written stays. Hand in the same count again then, before any later one:
// nothing is counted twice, as a counter at or below what was accounted in its generation has nothing
// new. Counts are handed in by their moment; one of a day before today goes to that day.
[[nodiscard]] Result<Counted> WriteCount(const Count &count, const Prices &prices);
