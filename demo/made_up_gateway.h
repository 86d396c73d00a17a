// A gateway without packets: counters that grow by what people who do not exist did.
#pragma once

#include "demo/made_up_traffic.h"
#include "metering/count.h"

#include <QHash>

class MadeUpGateway
{
public:
    // As if its table had just been built: all counters begin at nothing.
    MadeUpGateway();

    // Lets the user have done so until the next count.
    void Add(UserId user, const Activity &activity);

    // What has changed since the last one that was taken as written.
    [[nodiscard]] Count At(const QDateTime &moment) const;
    void TakeWritten();

private:
    quint64 generation;
    QHash<UserId, AddressCounters> counters; // of an address for each user
    QHash<UserId, double> seconds; // on line; of who did something since the last count
};
