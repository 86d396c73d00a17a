#include "access/usage_records.h"

#include "db/session.h"

namespace {

template <typename IdType, typename... Values>
IdType LastId(const char *sqlText, const Values &...values)
{
    RunQuery(sqlText, FetchMode::All, values...);
    return queryResult.Id<IdType>(1);
}

} // namespace

TrafficRecordId FindUserTrafficRecord(UserId userId, UsagePeriod period)
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
        return {};
    }
}

TimeRecordId FindUserTimeRecord(UserId userId, UsagePeriod period)
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
        return {};
    }
}

TrafficRecordId FindGroupTrafficRecord(GroupId groupId)
{
    RunQuery("SELECT trafperiod FROM groups WHERE group_id = (?) ", FetchMode::All, groupId);
    if (queryResult.Code<LimitPeriod>(1) == LimitPeriod::Day) {
        return LastId<TrafficRecordId>(
            "SELECT traf_id FROM traffic_use WHERE current_time = (?) and group_id = (?) "
            "and period = 1",
            DayOf(Today()),
            groupId);
    }
    return LastId<TrafficRecordId>(
        "SELECT traf_id FROM traffic_use WHERE group_id = (?) and period = 2", groupId);
}
