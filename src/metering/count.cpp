#include "metering/count.h"

#include "metering/batch.h"

namespace {

Parts PartsOf(const Count &count)
{
    Parts parts;
    for (const AddressCounters &each : count.counters) {
        if (each.owner.IsSet()) {
            parts[each.owner].counters.push_back(&each);
        }
    }
    for (const OnlineTime &each : count.online) {
        parts[each.user].seconds += each.seconds;
    }
    for (const UserId user : count.usedUp) {
        parts[user].isSettled = true;
    }
    return parts;
}

// The day to which belongs what was counted up to the moment.
QDate DayCounted(const QDateTime &at)
{
    return at.addMSecs(-1).date();
}

} // namespace

Result<Counted> WriteCount(const Count &count, const Prices &prices)
{
    return WriteParts(PartsOf(count), {count, prices, DayCounted(count.at), count.usedUpGroups});
}
