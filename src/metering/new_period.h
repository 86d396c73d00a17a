// A new day and a new month: limits begin anew.
#pragma once

#include "metering/standing.h"

// Settles every account as of the day of `at`: each limit has a record of its period, and a month's
// begins anew; credits that were given before there was a record are tied to it; those whose last day
// is over are closed; blocks are set or lifted by what is left. What it does is in the lists of Counted;
// nothing is counted. To be called when a day begins, when all counts of the day before are written, and
// at the start of the service. In batches, as WriteCount.
[[nodiscard]] Result<Counted> SettleAccounts(const QDateTime &at, const Prices &prices);

// What a row says of access, and what holds, brought together.
struct MarksWritten
{
    QList<UserId> trafficUsedUp; // blocked with reason 1
    QList<UserId> timeUsedUp; // with reason 2
    QList<UserId> lifted;
    QList<GroupId> groupsUsedUp;
    QList<GroupId> groupsLifted;
    int timeMarks = 0; // of users whose time of the week began or ended

    [[nodiscard]] bool IsEmpty() const { return *this == MarksWritten(); }
    bool operator==(const MarksWritten &) const = default;
};

// Writes where the rows differ from the standings read of them: blocks of who has nothing left or has
// again, as after a change of limits or credits, and users.timeblocked.
[[nodiscard]] Result<MarksWritten> WriteMarks(const Standings &standings);
