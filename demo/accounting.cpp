#include "demo/accounting.h"

#include "access/blocking.h"
#include "access/usage_records.h"
#include "db/session.h"
#include "db/value_codes.h"
#include "demo/charging.h"

#include <algorithm>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kTrafficUsedUp = 1;
constexpr quint32 kTimeUsedUp = 2;

// What counting traffic, counting time and counting a group's traffic differ in.
struct Meter
{
    quint32 (*find)(quint32 owner, quint32 usagePeriod);
    const char *insert; // owner, usage period, day
    const char *read; // day and amount of the record
    const char *add; // amount, record
    const char *renew; // day, record
    const char *markUsedUp; // record
    const char *credits; // record
    const char *closeCredits; // record
};

constexpr Meter kTraffic {
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

constexpr Meter kTime {
    FindUserTimeRecord,
    "INSERT INTO time_use (user_id, period, current_time) VALUES ((?), (?), (?))",
    "SELECT current_time, data FROM time_use WHERE time_id = (?)",
    "UPDATE time_use SET data = data + (?) WHERE time_id = (?)",
    "UPDATE time_use SET current_time = (?), data = 0, blocked = false WHERE time_id = (?)",
    "UPDATE time_use SET blocked = true WHERE time_id = (?)",
    "SELECT bill_id, data, usage FROM billing WHERE time_id = (?) and mode = 4 and closed = 0 "
    "ORDER BY date, bill_id",
    "UPDATE billing SET closed = 1 WHERE time_id = (?) and mode = 4"};

constexpr Meter kGroupTraffic {
    [](quint32 groupId, quint32) { return FindGroupTrafficRecord(groupId); },
    "INSERT INTO traffic_use (group_id, period, current_time) VALUES ((?), (?), (?))",
    kTraffic.read,
    kTraffic.add,
    kTraffic.renew,
    kTraffic.markUsedUp,
    kTraffic.credits,
    kTraffic.closeCredits};

struct User
{
    quint32 mode = 0;
    quint32 trafficLimit = 0; // megabytes
    quint32 timeLimit = 0; // hours
    quint32 trafficPeriod = 0;
    quint32 timePeriod = 0;
    quint32 groupId = 0;
    bool ownPrice = false;
    double price = 0;

    [[nodiscard]] bool LimitsTraffic() const
    {
        return mode == mode::kTraffic || mode == mode::kTrafficAndTime;
    }
    [[nodiscard]] bool LimitsTime() const
    {
        return mode == mode::kTime || mode == mode::kTrafficAndTime;
    }
};

User ReadUser(quint32 userId)
{
    RunQuery(
        "SELECT mode, traflim, timelim, trafperiod, timeperiod, group_id, own_price, trafprice "
        "FROM users WHERE user_id = (?)",
        FetchMode::One,
        userId);
    const QueryResult &row = queryResult;
    return {row.Integer(1),
            row.Integer(2),
            row.Integer(3),
            row.Integer(4),
            row.Integer(5),
            row.Integer(6),
            row.Flag(7),
            row.Amount(8)};
}

// A limit's period code is its usage record's period code.
static_assert(period::kDay == usage_period::kDay && period::kMonth == usage_period::kMonth);

// A monthly record is kept for ever and begins anew with its owner's first use in a month.
bool IsOfAnEarlierMonth(const Meter &meter, quint32 record)
{
    RunQuery(meter.read, FetchMode::One, record);
    return queryResult.Text(1).left(7) < Today().toString(u"yyyy-MM"_s);
}

quint32 RecordFor(const Meter &meter, quint32 owner, quint32 usagePeriod)
{
    quint32 record = meter.find(owner, usagePeriod);
    if (record == 0) {
        Execute(meter.insert, owner, usagePeriod, DayOf(Today()));
        return meter.find(owner, usagePeriod);
    }
    if (usagePeriod == usage_period::kMonth && IsOfAnEarlierMonth(meter, record)) {
        Execute(meter.closeCredits, record);
        Execute(meter.renew, DayOf(Today()), record);
    }
    return record;
}

void AddSent(quint32 trafficRecord, double sent)
{
    Execute("UPDATE traffic_use SET senddata = senddata + (?) WHERE traf_id = (?)",
            sent,
            trafficRecord);
}

// False when neither the limit nor a credit has anything left.
bool CountTowards(const Meter &meter, quint32 record, double limit, double amount)
{
    RunQuery(meter.read, FetchMode::One, record);
    const double room = std::max(limit - queryResult.Amount(2), 0.0);
    const double covered = std::min(amount, room);
    const Charged charged = Charge(CreditsOfRecord(meter.credits, record), amount - covered);
    Execute(meter.add, covered + charged.unpaid, record);
    const bool somethingLeft = covered < room || charged.creditLeft;
    if (!somethingLeft) {
        Execute(meter.markUsedUp, record);
    }
    return somethingLeft;
}

void CountDay(quint32 userId, const Activity &activity)
{
    const quint32 traffic = RecordFor(kTraffic, userId, usage_period::kStatistics);
    Execute(kTraffic.add, activity.received, traffic);
    AddSent(traffic, activity.sent);
    Execute(kTime.add, activity.hours, RecordFor(kTime, userId, usage_period::kStatistics));
}

// The group's own block is left to the administrator.
void CountGroup(quint32 groupId, const Activity &activity)
{
    RunQuery("SELECT mode, traflim, trafperiod FROM groups WHERE group_id = (?)",
             FetchMode::One,
             groupId);
    if (queryResult.Integer(1) != mode::kTraffic) {
        return;
    }
    const quint32 limit = queryResult.Integer(2);
    const bool daily = queryResult.Integer(3) == period::kDay;
    const quint32 record =
        RecordFor(kGroupTraffic, groupId, daily ? usage_period::kDay : usage_period::kMonth);
    AddSent(record, activity.sent);
    static_cast<void>(CountTowards(kGroupTraffic, record, limit, activity.received));
}

bool TrafficIsPaid(quint32 userId, const User &user, const Activity &activity, double price)
{
    if (user.mode == mode::kProvider) {
        const auto credits = PrePaidCredits(userId, user.ownPrice ? user.price : price);
        return Charge(credits, activity.received).creditLeft;
    }
    if (!user.LimitsTraffic()) {
        return true;
    }
    const quint32 record = RecordFor(kTraffic, userId, user.trafficPeriod);
    AddSent(record, activity.sent);
    return CountTowards(kTraffic, record, user.trafficLimit, activity.received);
}

bool TimeIsPaid(quint32 userId, const User &user, const Activity &activity)
{
    return !user.LimitsTime()
        || CountTowards(
            kTime, RecordFor(kTime, userId, user.timePeriod), user.timeLimit, activity.hours);
}

bool HasBegunAnew(const Meter &meter, quint32 userId, quint32 usagePeriod)
{
    const quint32 record = meter.find(userId, usagePeriod);
    return record == 0
        || (usagePeriod == usage_period::kMonth && IsOfAnEarlierMonth(meter, record));
}

bool MayGoOn(quint32 userId, quint32 reason)
{
    const User user = ReadUser(userId);
    return reason == kTrafficUsedUp
        ? user.LimitsTraffic() && HasBegunAnew(kTraffic, userId, user.trafficPeriod)
        : user.LimitsTime() && HasBegunAnew(kTime, userId, user.timePeriod);
}

} // namespace

quint32 CountActivity(quint32 userId, const Activity &activity, double price)
{
    const User user = ReadUser(userId);
    CountDay(userId, activity);
    CountGroup(user.groupId, activity);
    const bool trafficPaid = TrafficIsPaid(userId, user, activity, price);
    const bool timePaid = TimeIsPaid(userId, user, activity);
    if (trafficPaid && timePaid) {
        return 0;
    }
    const quint32 reason = trafficPaid ? kTimeUsedUp : kTrafficUsedUp;
    BlockUser(nullptr, userId, reason);
    return reason;
}

int BeginNewPeriods()
{
    struct Blocked
    {
        quint32 userId;
        quint32 reason;
    };
    std::vector<Blocked> blocked;
    {
        RowCursor rows("SELECT user_id, blockreason FROM users WHERE blocked = true "
                       "and (blockreason = 1 or blockreason = 2)");
        while (rows.Next()) {
            blocked.push_back({queryResult.Integer(1), queryResult.Integer(2)});
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
