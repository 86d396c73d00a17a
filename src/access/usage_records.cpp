#include "access/usage_records.h"

#include "db/query.h"

namespace {

// The last of several; not set when there is none.
template <typename IdType, typename... Values>
Result<IdType> LastId(const char *sqlText, const Values &...values)
{
    return ReadLast(
               sqlText, [](const Row &row) { return row.Id<IdType>(1); }, values...)
        .map([](const std::optional<IdType> &id) { return id.value_or(IdType {}); });
}

} // namespace

Result<TrafficRecordId> FindUserTrafficRecord(UserId userId, UsagePeriod period)
{
    const Day today = DayOf(Today());
    switch (period) {
    case UsagePeriod::Statistics:
        return LastId<TrafficRecordId>(
            "SELECT traf_id FROM traffic_use WHERE current_time = (?) and user_id = (?) "
            "and period = 0",
            today,
            userId);
    case UsagePeriod::Day:
        return LastId<TrafficRecordId>(
            "SELECT traf_id FROM traffic_use WHERE current_time = (?) and user_id = (?) "
            "and period = 1",
            today,
            userId);
    case UsagePeriod::Month:
        return LastId<TrafficRecordId>(
            "SELECT traf_id FROM traffic_use WHERE user_id = (?) and period = 2", userId);
    default:
        return {}; // no record is of such a period
    }
}

Result<TimeRecordId> FindUserTimeRecord(UserId userId, UsagePeriod period)
{
    const Day today = DayOf(Today());
    switch (period) {
    case UsagePeriod::Statistics:
        return LastId<TimeRecordId>(
            "SELECT time_id FROM time_use WHERE current_time = (?) and user_id = (?) "
            "and period = 0",
            today,
            userId);
    case UsagePeriod::Day:
        return LastId<TimeRecordId>(
            "SELECT time_id FROM time_use WHERE current_time = (?) and user_id = (?) "
            "and period = 1",
            today,
            userId);
    case UsagePeriod::Month:
        return LastId<TimeRecordId>(
            "SELECT time_id FROM time_use WHERE user_id = (?) and period = 2", userId);
    default:
        return {}; // no record is of such a period
    }
}

Result<TrafficRecordId> FindGroupTrafficRecord(GroupId groupId)
{
    const auto period = ReadLast(
        "SELECT trafperiod FROM groups WHERE group_id = (?) ",
        [](const Row &row) { return row.Code<LimitPeriod>(1); },
        groupId);
    if (!period) {
        return tl::unexpected(period.error());
    }
    if (*period == LimitPeriod::Day) {
        return LastId<TrafficRecordId>(
            "SELECT traf_id FROM traffic_use WHERE current_time = (?) and group_id = (?) "
            "and period = 1",
            DayOf(Today()),
            groupId);
    }
    return LastId<TrafficRecordId>(
        "SELECT traf_id FROM traffic_use WHERE group_id = (?) and period = 2", groupId);
}
