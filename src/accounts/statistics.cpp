#include "accounts/statistics.h"

#include "access/group_members.h"
#include "access/usage_records.h"
#include "base/amount_text.h"
#include "base/day.h"
#include "db/session.h"

using namespace Qt::StringLiterals;

namespace {

// The sum of the first column of all rows.
template <typename Unit, typename RecordId>
Unit SumOf(const char *sqlText, RecordId record)
{
    Unit sum;
    RowCursor rows(sqlText, record);
    while (rows.Next()) {
        sum += Unit {queryResult.Amount(1)};
    }
    return sum;
}

Megabytes UsedOfTrafficCredits(TrafficRecordId record)
{
    return SumOf<Megabytes>("SELECT usage FROM billing WHERE trafid = (?)", record);
}

// Without a record of the current period there is nothing to read; the credits of all owners that
// were given in such a time stand under the id 0.
void AddPeriodTraffic(PeriodUsage &period, TrafficRecordId record)
{
    if (!record.IsSet()) {
        return;
    }
    RunQuery("SELECT data, senddata FROM traffic_use WHERE traf_id = (?)", FetchMode::One, record);
    period.received = Megabytes {queryResult.Amount(1)};
    period.sent = Megabytes {queryResult.Amount(2)};
    period.creditMegabytes = UsedOfTrafficCredits(record);
}

void AddPeriodTime(PeriodUsage &period, TimeRecordId record)
{
    if (!record.IsSet()) {
        return;
    }
    RunQuery("SELECT data FROM time_use WHERE time_id = (?)", FetchMode::One, record);
    period.hours = Hours {queryResult.Amount(1)};
    period.creditHours = SumOf<Hours>("SELECT usage FROM billing WHERE time_id = (?)", record);
}

void AddOverall(UsageStatistics &statistics, const char *sqlText, UserId userId)
{
    RowCursor rows(sqlText, userId);
    while (rows.Next()) {
        statistics.received += Megabytes {queryResult.Amount(1)};
        statistics.sent += Megabytes {queryResult.Amount(2)};
    }
}

QString CreditSentence(const QString &what, double fromCredits, const QString &unit)
{
    if (!(fromCredits > 0.0)) {
        return u"Nothing of the "_s % what
            % u" in this accounting period was taken from credits."_s;
    }
    return AmountText(fromCredits) % u' ' % unit % u" of the "_s % what
        % u" in this accounting period were taken from credits."_s;
}

} // namespace

UsageStatistics ReadUserStatistics(UserId userId)
{
    UsageStatistics statistics;
    RunQuery("SELECT trafperiod, timeperiod, mode FROM users WHERE user_id = (?)",
             FetchMode::One,
             userId);
    const auto trafficPeriod = queryResult.Code<LimitPeriod>(1);
    const auto timePeriod = queryResult.Code<LimitPeriod>(2);
    const auto mode = queryResult.Code<AccountingMode>(3);
    auto &period = statistics.period;
    period.limitsTraffic =
        mode == AccountingMode::Traffic || mode == AccountingMode::TrafficAndTime;
    period.limitsTime = mode == AccountingMode::Time || mode == AccountingMode::TrafficAndTime;
    if (period.limitsTraffic) {
        AddPeriodTraffic(period, FindUserTrafficRecord(userId, UsagePeriodOf(trafficPeriod)));
    }
    if (period.limitsTime) {
        AddPeriodTime(period, FindUserTimeRecord(userId, UsagePeriodOf(timePeriod)));
    }
    AddOverall(statistics,
               "SELECT data, senddata FROM traffic_use WHERE user_id = (?) and period = 0",
               userId);
    return statistics;
}

UsageStatistics ReadGroupStatistics(GroupId groupId)
{
    UsageStatistics statistics;
    for (const UserId member : MembersOf(groupId)) {
        // kept: records of every period, the limits' own ones besides those of the days
        AddOverall(
            statistics, "SELECT data, senddata FROM traffic_use WHERE user_id = (?)", member);
    }
    auto &period = statistics.period;
    period.limitsTraffic = ModeOf(groupId) == AccountingMode::Traffic;
    const auto record = period.limitsTraffic ? FindGroupTrafficRecord(groupId) : TrafficRecordId {};
    if (record.IsSet()) {
        RunQuery("SELECT data FROM traffic_use WHERE traf_id = (?)", FetchMode::One, record);
        period.received = Megabytes {queryResult.Amount(1)};
        period.creditMegabytes = UsedOfTrafficCredits(record);
    }
    return statistics;
}

UsageStatistics ReadStatistics(const Owner &owner)
{
    return owner.IsUser() ? ReadUserStatistics(owner.User()) : ReadGroupStatistics(owner.Group());
}

QString StatisticsTip(const Owner &owner, const PeriodUsage &period)
{
    QStringList sentences;
    if (period.limitsTraffic) {
        sentences << CreditSentence(u"data received"_s, period.creditMegabytes.value, u"Mb"_s);
    }
    if (period.limitsTime) {
        sentences << CreditSentence(u"time on-line"_s, period.creditHours.value, u"hr"_s);
    }
    if (sentences.isEmpty()) {
        return owner.IsUser() ? u"This user has no limit within an accounting period."_s
                              : u"This group has no limit within an accounting period."_s;
    }
    return sentences.join(u' ');
}

std::vector<DailyTraffic> ReadDailyTraffic(const Owner &owner)
{
    const QDate first = Today().addDays(1 - kChartDays);
    std::vector<DailyTraffic> days(kChartDays);
    for (int i = 0; i < kChartDays; ++i) {
        days[static_cast<std::size_t>(i)].day = first.addDays(i);
    }
    RowCursor rows(owner.IsUser()
                       ? "SELECT current_time, data, senddata FROM traffic_use "
                         "WHERE user_id = (?) and period = 0 and current_time >= (?)"
                       : "SELECT current_time, data, senddata FROM traffic_use WHERE user_id IN "
                         "(SELECT user_id FROM users WHERE group_id = (?)) and period = 0 and "
                         "current_time >= (?)",
                   owner.Number(),
                   DayOf(first));
    while (rows.Next()) {
        const QDate day = QDate::fromString(queryResult.Text(1).left(10), Qt::ISODate);
        const qint64 index = first.daysTo(day);
        if (index >= 0 && index < kChartDays) {
            days[static_cast<std::size_t>(index)].received += Megabytes {queryResult.Amount(2)};
            days[static_cast<std::size_t>(index)].sent += Megabytes {queryResult.Amount(3)};
        }
    }
    return days;
}
