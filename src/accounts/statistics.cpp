#include "accounts/statistics.h"

#include "access/group_members.h"
#include "access/usage_records.h"
#include "base/amount_text.h"
#include "base/day.h"
#include "db/session.h"
#include "db/value_codes.h"

using namespace Qt::StringLiterals;

namespace {

// The sum of the first column of all rows.
double SumOf(const char *sqlText, quint32 id)
{
    double sum = 0.0;
    RowCursor rows(sqlText, id);
    while (rows.Next()) {
        sum += queryResult.Amount(1);
    }
    return sum;
}

double UsedOfTrafficCredits(quint32 record)
{
    return SumOf("SELECT usage FROM billing WHERE trafid = (?)", record);
}

// Without a record of the current period there is nothing to read; the credits of all owners that
// were given in such a time stand under the id 0.
void AddPeriodTraffic(PeriodUsage &period, quint32 record)
{
    if (record == 0) {
        return;
    }
    RunQuery("SELECT data, senddata FROM traffic_use WHERE traf_id = (?)", FetchMode::One, record);
    period.received = queryResult.Amount(1);
    period.sent = queryResult.Amount(2);
    period.creditMegabytes = UsedOfTrafficCredits(record);
}

void AddPeriodTime(PeriodUsage &period, quint32 record)
{
    if (record == 0) {
        return;
    }
    RunQuery("SELECT data FROM time_use WHERE time_id = (?)", FetchMode::One, record);
    period.hours = queryResult.Amount(1);
    period.creditHours = SumOf("SELECT usage FROM billing WHERE time_id = (?)", record);
}

void AddOverall(UsageStatistics &statistics, const char *sqlText, quint32 userId)
{
    RowCursor rows(sqlText, userId);
    while (rows.Next()) {
        statistics.received += queryResult.Amount(1);
        statistics.sent += queryResult.Amount(2);
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

UsageStatistics ReadUserStatistics(quint32 userId)
{
    UsageStatistics statistics;
    RunQuery("SELECT trafperiod, timeperiod, mode FROM users WHERE user_id = (?)",
             FetchMode::One,
             userId);
    const quint32 trafficPeriod = queryResult.Integer(1);
    const quint32 timePeriod = queryResult.Integer(2);
    const quint32 userMode = queryResult.Integer(3);
    auto &period = statistics.period;
    period.limitsTraffic = userMode == mode::kTraffic || userMode == mode::kTrafficAndTime;
    period.limitsTime = userMode == mode::kTime || userMode == mode::kTrafficAndTime;
    if (period.limitsTraffic) {
        AddPeriodTraffic(period, FindUserTrafficRecord(userId, trafficPeriod));
    }
    if (period.limitsTime) {
        AddPeriodTime(period, FindUserTimeRecord(userId, timePeriod));
    }
    AddOverall(statistics,
               "SELECT data, senddata FROM traffic_use WHERE user_id = (?) and period = 0",
               userId);
    return statistics;
}

UsageStatistics ReadGroupStatistics(quint32 groupId)
{
    UsageStatistics statistics;
    for (const quint32 member : MembersOf(groupId)) {
        // kept: records of every period, the limits' own ones besides those of the days
        AddOverall(
            statistics, "SELECT data, senddata FROM traffic_use WHERE user_id = (?)", member);
    }
    auto &period = statistics.period;
    period.limitsTraffic = ModeOf(GroupOwner(groupId)) == mode::kTraffic;
    const quint32 record = period.limitsTraffic ? FindGroupTrafficRecord(groupId) : 0;
    if (record != 0) {
        RunQuery("SELECT data FROM traffic_use WHERE traf_id = (?)", FetchMode::One, record);
        period.received = queryResult.Amount(1);
        period.creditMegabytes = UsedOfTrafficCredits(record);
    }
    return statistics;
}

UsageStatistics ReadStatistics(const Owner &owner)
{
    return owner.IsUser() ? ReadUserStatistics(owner.id) : ReadGroupStatistics(owner.id);
}

QString StatisticsTip(const Owner &owner, const PeriodUsage &period)
{
    QStringList sentences;
    if (period.limitsTraffic) {
        sentences << CreditSentence(u"data received"_s, period.creditMegabytes, u"Mb"_s);
    }
    if (period.limitsTime) {
        sentences << CreditSentence(u"time on-line"_s, period.creditHours, u"hr"_s);
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
                   owner.id,
                   DayOf(first));
    while (rows.Next()) {
        const QDate day = QDate::fromString(queryResult.Text(1).left(10), Qt::ISODate);
        const qint64 index = first.daysTo(day);
        if (index >= 0 && index < kChartDays) {
            days[static_cast<std::size_t>(index)].received += queryResult.Amount(2);
            days[static_cast<std::size_t>(index)].sent += queryResult.Amount(3);
        }
    }
    return days;
}
