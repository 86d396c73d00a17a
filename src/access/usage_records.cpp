#include "access/usage_records.h"

#include "db/session.h"
#include "db/value_codes.h"

namespace {

template <typename... Values>
quint32 LastId(const char *sqlText, const Values &...values)
{
    RunQuery(sqlText, FetchMode::All, values...);
    return queryResult.Integer(1);
}

} // namespace

quint32 FindUserTrafficRecord(quint32 userId, quint32 usagePeriod)
{
    const Day today = DayOf(Today());
    switch (usagePeriod) {
    case usage_period::kStatistics:
        return LastId("SELECT traf_id FROM traffic_use WHERE current_time = (?) and user_id = (?) "
                      "and period = 0",
                      today,
                      userId);
    case usage_period::kDay:
        return LastId("SELECT traf_id FROM traffic_use WHERE current_time = (?) and user_id = (?) "
                      "and period = 1",
                      today,
                      userId);
    case usage_period::kMonth:
        return LastId("SELECT traf_id FROM traffic_use WHERE user_id = (?) and period = 2", userId);
    default:
        return 0;
    }
}

quint32 FindUserTimeRecord(quint32 userId, quint32 usagePeriod)
{
    const Day today = DayOf(Today());
    switch (usagePeriod) {
    case usage_period::kStatistics:
        return LastId("SELECT time_id FROM time_use WHERE current_time = (?) and user_id = (?) "
                      "and period = 0",
                      today,
                      userId);
    case usage_period::kDay:
        return LastId("SELECT time_id FROM time_use WHERE current_time = (?) and user_id = (?) "
                      "and period = 1",
                      today,
                      userId);
    case usage_period::kMonth:
        return LastId("SELECT time_id FROM time_use WHERE user_id = (?) and period = 2", userId);
    default:
        return 0;
    }
}

quint32 FindGroupTrafficRecord(quint32 groupId)
{
    const quint32 groupPeriod =
        LastId("SELECT trafperiod FROM groups WHERE group_id = (?) ", groupId);
    if (groupPeriod == period::kDay) {
        return LastId("SELECT traf_id FROM traffic_use WHERE current_time = (?) and group_id = (?) "
                      "and period = 1",
                      DayOf(Today()),
                      groupId);
    }
    return LastId("SELECT traf_id FROM traffic_use WHERE group_id = (?) and period = 2", groupId);
}
