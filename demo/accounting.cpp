#include "demo/accounting.h"

#include "access/blocking.h"
#include "access/usage_records.h"
#include "db/session.h"
#include "demo/charging.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

// What counting traffic, counting time and counting a group's traffic differ in.
template <typename OwnerId, typename RecordId>
struct Meter
{
    RecordId (*find)(OwnerId owner, UsagePeriod period);
    const char *insert; // owner, usage period, day
    const char *read; // day and amount of the record
    const char *add; // amount, record
    const char *renew; // day, record
    const char *markUsedUp; // record
    const char *credits; // record
    const char *closeCredits; // record
};

constexpr Meter<UserId, TrafficRecordId> kTraffic {
    FindUserTrafficRecord,
    "INSERT INTO traffic_use (user_id, period, current_time) VALUES ((?), (?), (?))",
    "SELECT current_time, data FROM traffic_use WHERE traf_id = (?)",
    "UPDATE traffic_use SET data = data + (?) WHERE traf_id = (?)",
    "UPDATE traffic_use SET current_time = (?), data = 0, senddata = 0, blocked = false "
    "WHERE traf_id = (?)",
    "UPDATE traffic_use SET blocked = true WHERE traf_id = (?)",
    "SELECT bill_id, data, usage FROM billing WHERE trafid = (?) and mode = 1 and closed = 0 "
    "ORDER BY date, bill_id",
    "UPDATE billing SET closed = 1 WHERE trafid = (?) and mode = 1"};

constexpr Meter<UserId, TimeRecordId> kTime {
    FindUserTimeRecord,
    "INSERT INTO time_use (user_id, period, current_time) VALUES ((?), (?), (?))",
    "SELECT current_time, data FROM time_use WHERE time_id = (?)",
    "UPDATE time_use SET data = data + (?) WHERE time_id = (?)",
    "UPDATE time_use SET current_time = (?), data = 0, blocked = false WHERE time_id = (?)",
    "UPDATE time_use SET blocked = true WHERE time_id = (?)",
    "SELECT bill_id, data, usage FROM billing WHERE time_id = (?) and mode = 4 and closed = 0 "
    "ORDER BY date, bill_id",
    "UPDATE billing SET closed = 1 WHERE time_id = (?) and mode = 4"};

constexpr Meter<GroupId, TrafficRecordId> kGroupTraffic {
    [](GroupId groupId, UsagePeriod) { return FindGroupTrafficRecord(groupId); },
    "INSERT INTO traffic_use (group_id, period, current_time) VALUES ((?), (?), (?))",
    kTraffic.read,
    kTraffic.add,
    kTraffic.renew,
    kTraffic.markUsedUp,
    kTraffic.credits,
    kTraffic.closeCredits};

struct User
{
    AccountingMode mode = AccountingMode::NoControl;
    WholeMegabytes trafficLimit;
    WholeHours timeLimit;
    LimitPeriod trafficPeriod = LimitPeriod::None;
    LimitPeriod timePeriod = LimitPeriod::None;
    GroupId groupId;
    bool ownPrice = false;
    double price = 0;

    [[nodiscard]] bool LimitsTraffic() const
    {
        return mode == AccountingMode::Traffic || mode == AccountingMode::TrafficAndTime;
    }
    [[nodiscard]] bool LimitsTime() const
    {
        return mode == AccountingMode::Time || mode == AccountingMode::TrafficAndTime;
    }
};

User ReadUser(UserId userId)
{
    RunQuery(
        "SELECT mode, traflim, timelim, trafperiod, timeperiod, group_id, own_price, trafprice "
        "FROM users WHERE user_id = (?)",
        FetchMode::One,
        userId);
    const QueryResult &row = queryResult;
    return {row.Code<AccountingMode>(1),
            WholeMegabytes {row.Integer(2)},
            WholeHours {row.Integer(3)},
            row.Code<LimitPeriod>(4),
            row.Code<LimitPeriod>(5),
            row.Id<GroupId>(6),
            row.Flag(7),
            row.Amount(8)};
}

// A monthly record is kept for ever and begins anew with its owner's first use in a month.
template <typename OwnerId, typename RecordId>
bool IsOfAnEarlierMonth(const Meter<OwnerId, RecordId> &meter, RecordId record)
{
    RunQuery(meter.read, FetchMode::One, record);
    return queryResult.Text(1).left(7) < Today().toString(u"yyyy-MM"_s);
}

template <typename OwnerId, typename RecordId>
RecordId RecordFor(const Meter<OwnerId, RecordId> &meter, OwnerId owner, UsagePeriod period)
{
    const RecordId record = meter.find(owner, period);
    if (!record.IsSet()) {
        Execute(meter.insert, owner, period, DayOf(Today()));
        return meter.find(owner, period);
    }
    if (period == UsagePeriod::Month && IsOfAnEarlierMonth(meter, record)) {
        Execute(meter.closeCredits, record);
        Execute(meter.renew, DayOf(Today()), record);
    }
    return record;
}

void AddSent(TrafficRecordId record, Megabytes sent)
{
    Execute("UPDATE traffic_use SET senddata = senddata + (?) WHERE traf_id = (?)", sent, record);
}

// False when neither the limit nor a credit has anything left.
template <typename OwnerId, typename RecordId, typename Unit>
bool CountTowards(const Meter<OwnerId, RecordId> &meter, RecordId record, Unit limit, Unit amount)
{
    RunQuery(meter.read, FetchMode::One, record);
    const Unit room = std::max(limit - Unit {queryResult.Amount(2)}, Unit {});
    const Unit covered = std::min(amount, room);
    const Charged<Unit> charged = Charge(CreditsOfRecord(meter.credits, record), amount - covered);
    Execute(meter.add, covered + charged.unpaid, record);
    const bool somethingLeft = covered < room || charged.creditLeft;
    if (!somethingLeft) {
        Execute(meter.markUsedUp, record);
    }
    return somethingLeft;
}

void CountDay(UserId userId, const Activity &activity)
{
    const auto traffic = RecordFor(kTraffic, userId, UsagePeriod::Statistics);
    Execute(kTraffic.add, activity.received, traffic);
    AddSent(traffic, activity.sent);
    Execute(kTime.add, activity.hours, RecordFor(kTime, userId, UsagePeriod::Statistics));
}

// The group's own block is left to the administrator.
void CountGroup(GroupId groupId, const Activity &activity)
{
    RunQuery("SELECT mode, traflim, trafperiod FROM groups WHERE group_id = (?)",
             FetchMode::One,
             groupId);
    if (queryResult.Code<AccountingMode>(1) != AccountingMode::Traffic) {
        return;
    }
    const WholeMegabytes limit {queryResult.Integer(2)};
    const bool daily = queryResult.Code<LimitPeriod>(3) == LimitPeriod::Day;
    const TrafficRecordId record =
        RecordFor(kGroupTraffic, groupId, daily ? UsagePeriod::Day : UsagePeriod::Month);
    AddSent(record, activity.sent);
    static_cast<void>(CountTowards(kGroupTraffic, record, AmountOf(limit), activity.received));
}

bool TrafficIsPaid(UserId userId, const User &user, const Activity &activity, double price)
{
    if (user.mode == AccountingMode::Provider) {
        const auto credits = PrePaidCredits(userId, user.ownPrice ? user.price : price);
        return Charge(credits, activity.received).creditLeft;
    }
    if (!user.LimitsTraffic()) {
        return true;
    }
    const auto record = RecordFor(kTraffic, userId, UsagePeriodOf(user.trafficPeriod));
    AddSent(record, activity.sent);
    return CountTowards(kTraffic, record, AmountOf(user.trafficLimit), activity.received);
}

bool TimeIsPaid(UserId userId, const User &user, const Activity &activity)
{
    return !user.LimitsTime()
        || CountTowards(kTime,
                        RecordFor(kTime, userId, UsagePeriodOf(user.timePeriod)),
                        AmountOf(user.timeLimit),
                        activity.hours);
}

template <typename RecordId>
bool HasBegunAnew(const Meter<UserId, RecordId> &meter, UserId userId, LimitPeriod period)
{
    const RecordId record = meter.find(userId, UsagePeriodOf(period));
    return !record.IsSet() || (period == LimitPeriod::Month && IsOfAnEarlierMonth(meter, record));
}

bool MayGoOn(UserId userId, BlockReason reason)
{
    const User user = ReadUser(userId);
    return reason == BlockReason::TrafficUsedUp
        ? user.LimitsTraffic() && HasBegunAnew(kTraffic, userId, user.trafficPeriod)
        : user.LimitsTime() && HasBegunAnew(kTime, userId, user.timePeriod);
}

} // namespace

BlockReason CountActivity(UserId userId, const Activity &activity, double price)
{
    const User user = ReadUser(userId);
    CountDay(userId, activity);
    CountGroup(user.groupId, activity);
    const bool trafficPaid = TrafficIsPaid(userId, user, activity, price);
    const bool timePaid = TimeIsPaid(userId, user, activity);
    if (trafficPaid && timePaid) {
        return BlockReason::None;
    }
    const BlockReason reason = trafficPaid ? BlockReason::TimeUsedUp : BlockReason::TrafficUsedUp;
    BlockUser(nullptr, userId, reason);
    return reason;
}

int BeginNewPeriods()
{
    struct Blocked
    {
        UserId userId;
        BlockReason reason;
    };
    std::vector<Blocked> blocked;
    {
        RowCursor rows("SELECT user_id, blockreason FROM users WHERE blocked = true "
                       "and (blockreason = 1 or blockreason = 2)");
        while (rows.Next()) {
            blocked.push_back({queryResult.Id<UserId>(1), queryResult.Code<BlockReason>(2)});
        }
    }
    int unblocked = 0;
    for (const auto &[userId, reason] : blocked) {
        if (MayGoOn(userId, reason)) {
            UnblockUser(nullptr, userId);
            ++unblocked;
        }
    }
    return unblocked;
}
