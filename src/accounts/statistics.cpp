#include "accounts/statistics.h"

#include "access/group_members.h"
#include "access/usage_records.h"
#include "base/amount_text.h"
#include "base/day.h"
#include "db/query.h"

#include <QCoreApplication>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Statistics)
};

struct Traffic
{
    Megabytes received;
    Megabytes sent;
};

// A row of data, senddata.
Traffic TrafficIn(const Row &row)
{
    return {Megabytes {row.Amount(1)}, Megabytes {row.Amount(2)}};
}

// A row of data.
Traffic ReceivedIn(const Row &row)
{
    return {Megabytes {row.Amount(1)}, {}};
}

// The sum of all rows of data, senddata.
template <typename IdType>
Result<Traffic> TrafficOf(const char *sqlText, IdType owner)
{
    return ReadAll(sqlText, TrafficIn, owner).map([](const std::vector<Traffic> &rows) {
        Traffic sum;
        for (const Traffic &row : rows) {
            sum.received += row.received;
            sum.sent += row.sent;
        }
        return sum;
    });
}

// The sum of all rows of one amount.
template <typename Unit, typename RecordId>
Result<Unit> SumOf(const char *sqlText, RecordId record)
{
    return ReadAll(
               sqlText, [](const Row &row) { return Unit {row.Amount(1)}; }, record)
        .map([](const std::vector<Unit> &rows) {
            return std::accumulate(rows.begin(), rows.end(), Unit {});
        });
}

// Puts what the record of the current period holds into `period`. Without one there is nothing to
// read; the credits of all owners that were given in such a time stand under the id 0.
Result<PeriodUsage> WithTraffic(PeriodUsage period,
                                const Result<TrafficRecordId> &record,
                                const char *sqlText,
                                Traffic (*reader)(const Row &))
{
    if (!record) {
        return tl::unexpected(record.error());
    }
    if (!record->IsSet()) {
        return period;
    }
    const auto used = ReadOne(sqlText, reader, *record);
    if (!used) {
        return tl::unexpected(used.error());
    }
    period.received = used->value_or(Traffic()).received;
    period.sent = used->value_or(Traffic()).sent;
    return SumOf<Megabytes>("SELECT usage FROM billing WHERE trafid = (?)", *record)
        .map([&](Megabytes credits) {
            period.creditMegabytes = credits;
            return period;
        });
}

// The same for time.
Result<PeriodUsage> WithTime(PeriodUsage period, const Result<TimeRecordId> &record)
{
    if (!record) {
        return tl::unexpected(record.error());
    }
    if (!record->IsSet()) {
        return period;
    }
    const auto used = SumOf<Hours>("SELECT data FROM time_use WHERE time_id = (?)", *record);
    if (!used) {
        return tl::unexpected(used.error());
    }
    period.hours = *used;
    return SumOf<Hours>("SELECT usage FROM billing WHERE time_id = (?)", *record)
        .map([&](Hours credits) {
            period.creditHours = credits;
            return period;
        });
}

struct UserLimits
{
    LimitPeriod trafficPeriod;
    LimitPeriod timePeriod;
    AccountingMode mode;
};

Result<PeriodUsage> ReadUserPeriod(UserId userId, const UserLimits &limits)
{
    const auto [trafficPeriod, timePeriod, mode] = limits;
    PeriodUsage period;
    period.limitsTraffic =
        mode == AccountingMode::Traffic || mode == AccountingMode::TrafficAndTime;
    period.limitsTime = mode == AccountingMode::Time || mode == AccountingMode::TrafficAndTime;
    Result<PeriodUsage> used = period;
    if (period.limitsTraffic) {
        used = WithTraffic(period,
                           FindUserTrafficRecord(userId, UsagePeriodOf(trafficPeriod)),
                           "SELECT data, senddata FROM traffic_use WHERE traf_id = (?)",
                           TrafficIn);
    }
    if (used && period.limitsTime) {
        used = WithTime(*used, FindUserTimeRecord(userId, UsagePeriodOf(timePeriod)));
    }
    return used;
}

Result<PeriodUsage> ReadGroupPeriod(GroupId groupId, AccountingMode mode)
{
    PeriodUsage period;
    period.limitsTraffic = mode == AccountingMode::Traffic;
    if (!period.limitsTraffic) {
        return period;
    }
    return WithTraffic(period,
                       FindGroupTrafficRecord(groupId),
                       "SELECT data FROM traffic_use WHERE traf_id = (?)",
                       ReceivedIn);
}

// Of every record of the members, whatever its period.
Result<Traffic> ReadMembersTraffic(GroupId groupId)
{
    const auto members = MembersOf(groupId);
    if (!members) {
        return tl::unexpected(members.error());
    }
    Traffic sum;
    for (const UserId member : *members) {
        const auto traffic =
            TrafficOf("SELECT data, senddata FROM traffic_use WHERE user_id = (?)", member);
        if (!traffic) {
            return traffic;
        }
        sum.received += traffic->received;
        sum.sent += traffic->sent;
    }
    return sum;
}

// Each day counts once: the records of the limits hold what the days' own records hold as well. Their
// sums may differ by what was counted between the two reads, or was rounded.
Result<Traffic> ReadGroupOverall(GroupId groupId)
{
    const auto all = ReadMembersTraffic(groupId);
    if (!all) {
        return all;
    }
    return TrafficOf("SELECT data, senddata FROM traffic_use WHERE user_id IN "
                     "(SELECT user_id FROM users WHERE group_id = (?)) and period <> 0",
                     groupId)
        .map([&](const Traffic &ofLimits) {
            return Traffic {std::max(all->received - ofLimits.received, Megabytes {}),
                            std::max(all->sent - ofLimits.sent, Megabytes {})};
        });
}

using Statistics = Result<std::optional<UsageStatistics>>;

Statistics Together(const Result<PeriodUsage> &period, const Result<Traffic> &overall)
{
    if (!period || !overall) {
        return tl::unexpected(period ? overall.error() : period.error());
    }
    return UsageStatistics {*period, overall->received, overall->sent};
}

Statistics ReadUserStatistics(UserId userId)
{
    const auto limits = ReadOne(
        "SELECT trafperiod, timeperiod, mode FROM users WHERE user_id = (?)",
        [](const Row &row) {
            return UserLimits {
                row.Code<LimitPeriod>(1), row.Code<LimitPeriod>(2), row.Code<AccountingMode>(3)};
        },
        userId);
    if (!limits) {
        return tl::unexpected(limits.error());
    }
    if (!*limits) {
        return std::nullopt;
    }
    const auto period = ReadUserPeriod(userId, **limits);
    if (!period) {
        return tl::unexpected(period.error());
    }
    return Together(
        *period,
        TrafficOf("SELECT data, senddata FROM traffic_use WHERE user_id = (?) and period = 0",
                  userId));
}

Statistics ReadGroupStatistics(GroupId groupId)
{
    const auto overall = ReadGroupOverall(groupId);
    if (!overall) {
        return tl::unexpected(overall.error());
    }
    const auto mode = ModeOf(groupId);
    if (!mode) {
        return tl::unexpected(mode.error());
    }
    if (!*mode) {
        return std::nullopt;
    }
    return Together(ReadGroupPeriod(groupId, **mode), *overall);
}

QString TrafficSentence(Megabytes fromCredits)
{
    return fromCredits > Megabytes {}
        ? Words::tr("%1 Mb of the data received in this accounting period were taken from credits.")
              .arg(AmountText(fromCredits.value))
        : Words::tr(
            "Nothing of the data received in this accounting period was taken from credits.");
}

QString TimeSentence(Hours fromCredits)
{
    return fromCredits > Hours {}
        ? Words::tr("%1 hr of the time on-line in this accounting period were taken from credits.")
              .arg(AmountText(fromCredits.value))
        : Words::tr(
            "Nothing of the time on-line in this accounting period was taken from credits.");
}

// The days from `first` on, each with the sum of its records.
std::vector<DailyTraffic> ByDay(const std::vector<DailyTraffic> &records, QDate first)
{
    std::vector<DailyTraffic> days(kChartDays);
    for (int i = 0; i < kChartDays; ++i) {
        days[static_cast<std::size_t>(i)].day = first.addDays(i);
    }
    for (const DailyTraffic &record : records) {
        const qint64 index = first.daysTo(record.day);
        if (index >= 0 && index < kChartDays) {
            days[static_cast<std::size_t>(index)].received += record.received;
            days[static_cast<std::size_t>(index)].sent += record.sent;
        }
    }
    return days;
}

} // namespace

Result<std::optional<UsageStatistics>> ReadStatistics(const Owner &owner)
{
    return owner.IsUser() ? ReadUserStatistics(owner.User()) : ReadGroupStatistics(owner.Group());
}

QString StatisticsTip(const Owner &owner, const PeriodUsage &period)
{
    QStringList sentences;
    if (period.limitsTraffic) {
        sentences << TrafficSentence(period.creditMegabytes);
    }
    if (period.limitsTime) {
        sentences << TimeSentence(period.creditHours);
    }
    if (sentences.isEmpty()) {
        return owner.IsUser() ? Words::tr("This user has no limit within an accounting period.")
                              : Words::tr("This group has no limit within an accounting period.");
    }
    return sentences.join(u' ');
}

Result<std::vector<DailyTraffic>> ReadDailyTraffic(const Owner &owner)
{
    static constexpr OwnerText kDays {
        "SELECT current_time, data, senddata FROM traffic_use "
        "WHERE user_id = (?) and period = 0 and current_time >= (?)",
        "SELECT current_time, data, senddata FROM traffic_use WHERE user_id IN "
        "(SELECT user_id FROM users WHERE group_id = (?)) and period = 0 and "
        "current_time >= (?)"};
    const QDate first = Today().addDays(1 - kChartDays);
    return ReadAll(
               kDays.For(owner),
               [](const Row &row) {
                   return DailyTraffic {DateIn(row.Text(1), u'-'),
                                        Megabytes {row.Amount(2)},
                                        Megabytes {row.Amount(3)}};
               },
               owner.Number(),
               DayOf(first))
        .map([&](const std::vector<DailyTraffic> &records) { return ByDay(records, first); });
}
