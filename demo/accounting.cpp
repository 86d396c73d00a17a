#include "demo/accounting.h"

#include "access/usage_records.h"
#include "demo/books.h"
#include "demo/charging.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// What counting traffic, counting time and counting a group's traffic differ in.
template <typename OwnerId, typename RecordId>
struct Meter
{
    Result<RecordId> (*find)(OwnerId owner, UsagePeriod period);
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

User ReadUser(Books &books, UserId userId)
{
    const auto user = ReadOne(
        "SELECT mode, traflim, timelim, trafperiod, timeperiod, group_id, own_price, trafprice "
        "FROM users WHERE user_id = (?)",
        [](const Row &row) {
            return User {row.Code<AccountingMode>(1),
                         WholeMegabytes {row.Integer(2)},
                         WholeHours {row.Integer(3)},
                         row.Code<LimitPeriod>(4),
                         row.Code<LimitPeriod>(5),
                         row.Id<GroupId>(6),
                         row.Flag(7),
                         row.Amount(8)};
        },
        userId);
    return books.Take(user).value_or(User());
}

// What a usage record holds.
struct Used
{
    QString day;
    double amount = 0;
};

template <typename OwnerId, typename RecordId>
Used ReadUsed(Books &books, const Meter<OwnerId, RecordId> &meter, RecordId record)
{
    return books
        .Take(ReadOne(
            meter.read,
            [](const Row &row) {
                return Used {row.Text(1), row.Amount(2)};
            },
            record))
        .value_or(Used());
}

// A monthly record is kept for ever and begins anew with its owner's first use in a month.
template <typename OwnerId, typename RecordId>
bool IsOfAnEarlierMonth(Books &books, const Meter<OwnerId, RecordId> &meter, RecordId record)
{
    return ReadUsed(books, meter, record).day.left(7) < Today().toString(u"yyyy-MM"_s);
}

template <typename OwnerId, typename RecordId>
RecordId
RecordFor(Books &books, const Meter<OwnerId, RecordId> &meter, OwnerId owner, UsagePeriod period)
{
    const RecordId record = books.Take(meter.find(owner, period));
    if (!record.IsSet()) {
        books.Write(meter.insert, owner, period, DayOf(Today()));
        return books.Take(meter.find(owner, period));
    }
    if (period == UsagePeriod::Month && IsOfAnEarlierMonth(books, meter, record)) {
        books.Write(meter.closeCredits, record);
        books.Write(meter.renew, DayOf(Today()), record);
    }
    return record;
}

void AddSent(Books &books, TrafficRecordId record, Megabytes sent)
{
    books.Write(
        "UPDATE traffic_use SET senddata = senddata + (?) WHERE traf_id = (?)", sent, record);
}

// False when neither the limit nor a credit has anything left.
template <typename OwnerId, typename RecordId, typename Unit>
bool CountTowards(
    Books &books, const Meter<OwnerId, RecordId> &meter, RecordId record, Unit limit, Unit amount)
{
    const Unit used {ReadUsed(books, meter, record).amount};
    const Unit room = std::max(limit - used, Unit {});
    const Unit covered = std::min(amount, room);
    const auto credits = CreditsOfRecord(books, meter.credits, record);
    const Charged<Unit> charged = Charge(books, credits, amount - covered);
    books.Write(meter.add, covered + charged.unpaid, record);
    const bool somethingLeft = covered < room || charged.creditLeft;
    if (!somethingLeft) {
        books.Write(meter.markUsedUp, record);
    }
    return somethingLeft;
}

void CountDay(Books &books, UserId userId, const Activity &activity)
{
    const auto traffic = RecordFor(books, kTraffic, userId, UsagePeriod::Statistics);
    books.Write(kTraffic.add, activity.received, traffic);
    AddSent(books, traffic, activity.sent);
    const auto time = RecordFor(books, kTime, userId, UsagePeriod::Statistics);
    books.Write(kTime.add, activity.hours, time);
}

struct GroupLimit
{
    AccountingMode mode;
    WholeMegabytes limit;
    LimitPeriod period;
};

// The group's own block is left to the administrator.
void CountGroup(Books &books, GroupId groupId, const Activity &activity)
{
    const auto group = books.Take(ReadOne(
        "SELECT mode, traflim, trafperiod FROM groups WHERE group_id = (?)",
        [](const Row &row) {
            return GroupLimit {row.Code<AccountingMode>(1),
                               WholeMegabytes {row.Integer(2)},
                               row.Code<LimitPeriod>(3)};
        },
        groupId));
    if (!group || group->mode != AccountingMode::Traffic) {
        return;
    }
    const bool daily = group->period == LimitPeriod::Day;
    const auto record =
        RecordFor(books, kGroupTraffic, groupId, daily ? UsagePeriod::Day : UsagePeriod::Month);
    AddSent(books, record, activity.sent);
    static_cast<void>(
        CountTowards(books, kGroupTraffic, record, AmountOf(group->limit), activity.received));
}

bool TrafficIsPaid(
    Books &books, UserId userId, const User &user, const Activity &activity, double price)
{
    if (user.mode == AccountingMode::Provider) {
        const auto credits = PrePaidCredits(books, userId, user.ownPrice ? user.price : price);
        return Charge(books, credits, activity.received).creditLeft;
    }
    if (!user.LimitsTraffic()) {
        return true;
    }
    const auto record = RecordFor(books, kTraffic, userId, UsagePeriodOf(user.trafficPeriod));
    AddSent(books, record, activity.sent);
    return CountTowards(books, kTraffic, record, AmountOf(user.trafficLimit), activity.received);
}

bool TimeIsPaid(Books &books, UserId userId, const User &user, const Activity &activity)
{
    if (!user.LimitsTime()) {
        return true;
    }
    const auto record = RecordFor(books, kTime, userId, UsagePeriodOf(user.timePeriod));
    return CountTowards(books, kTime, record, AmountOf(user.timeLimit), activity.hours);
}

template <typename RecordId>
bool HasBegunAnew(Books &books,
                  const Meter<UserId, RecordId> &meter,
                  UserId userId,
                  LimitPeriod period)
{
    const RecordId record = books.Take(meter.find(userId, UsagePeriodOf(period)));
    return !record.IsSet()
        || (period == LimitPeriod::Month && IsOfAnEarlierMonth(books, meter, record));
}

struct Blocked
{
    UserId userId;
    BlockReason reason;
};

bool MayGoOn(Books &books, const Blocked &blocked)
{
    const User user = ReadUser(books, blocked.userId);
    return blocked.reason == BlockReason::TrafficUsedUp
        ? user.LimitsTraffic() && HasBegunAnew(books, kTraffic, blocked.userId, user.trafficPeriod)
        : user.LimitsTime() && HasBegunAnew(books, kTime, blocked.userId, user.timePeriod);
}

} // namespace

Result<BlockReason> CountActivity(UserId userId, const Activity &activity, double price)
{
    Books books;
    const User user = ReadUser(books, userId);
    CountDay(books, userId, activity);
    CountGroup(books, user.groupId, activity);
    const bool trafficPaid = TrafficIsPaid(books, userId, user, activity, price);
    const bool timePaid = TimeIsPaid(books, userId, user, activity);
    if (trafficPaid && timePaid) {
        return books.Close(BlockReason::None);
    }
    const BlockReason reason = trafficPaid ? BlockReason::TimeUsedUp : BlockReason::TrafficUsedUp;
    books.Write(
        "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)", reason, userId);
    return books.Close(reason);
}

Result<int> BeginNewPeriods()
{
    Books books;
    const auto all =
        books.Take(ReadAll("SELECT user_id, blockreason FROM users WHERE blocked = true "
                           "and (blockreason = 1 or blockreason = 2)",
                           [](const Row &row) {
                               return Blocked {row.Id<UserId>(1), row.Code<BlockReason>(2)};
                           }));
    int unblocked = 0;
    for (const Blocked &blocked : all) {
        if (MayGoOn(books, blocked)) {
            books.Write("UPDATE users SET blocked = false WHERE user_id = (?)", blocked.userId);
            ++unblocked;
        }
    }
    return books.Close(unblocked);
}
