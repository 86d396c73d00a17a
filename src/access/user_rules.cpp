#include "access/user_rules.h"

#include "access/account_rules.h"
#include "access/load_steps.h"
#include "access/open_credit.h"
#include "access/time_ranges.h"
#include "base/day.h"
#include "db/query.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

// What is read step by step, of the user and then of its group.
struct Reading : StoredUser
{
    UserId userId;
    Moment now;
    double price = 0;
};

// The statements in which traffic and time, of a user and of a group, differ.
struct UseTexts
{
    const char *ofMonth; // owner
    const char *ofDay; // owner, usage period, day
    const char *credits; // owner, record
};

constexpr UseTexts kUserTraffic {
    "SELECT traf_id, data, blocked, current_time FROM traffic_use WHERE user_id = (?) "
    "and period = 2",
    "SELECT traf_id, data, blocked, current_time FROM traffic_use WHERE user_id = (?) "
    "and period = (?) and current_time = (?)",
    "SELECT data, usage, unlimited, expiredday FROM billing WHERE object_id = (?) and mode = 1 "
    "and closed = 0 and (trafid = (?) or trafid = 0) ORDER BY date, bill_id"};

constexpr UseTexts kGroupTraffic {
    "SELECT traf_id, data, blocked, current_time FROM traffic_use WHERE group_id = (?) "
    "and period = 2",
    "SELECT traf_id, data, blocked, current_time FROM traffic_use WHERE group_id = (?) "
    "and period = (?) and current_time = (?)",
    "SELECT data, usage, unlimited, expiredday FROM billing WHERE group_id = (?) and mode = 1 "
    "and closed = 0 and (trafid = (?) or trafid = 0) ORDER BY date, bill_id"};

constexpr UseTexts kUserTime {
    "SELECT time_id, data, blocked, current_time FROM time_use WHERE user_id = (?) "
    "and period = 2",
    "SELECT time_id, data, blocked, current_time FROM time_use WHERE user_id = (?) "
    "and period = (?) and current_time = (?)",
    "SELECT data, usage, unlimited, expiredday FROM billing WHERE object_id = (?) and mode = 4 "
    "and closed = 0 and (time_id = (?) or time_id = 0) ORDER BY date, bill_id"};

template <typename Unit>
struct ReadUse
{
    quint32 record = 0;
    CountedUse<Unit> use;
};

// Of several records the last one counts, as wherever they are looked up.
template <typename Unit>
Result<std::optional<ReadUse<Unit>>>
ReadCounted(const UseTexts &texts, const Owner &owner, LimitPeriod period, QDate today)
{
    const auto take = [](const Row &row) {
        const QDate day = DateIn(row.Text(4), u'-');
        return ReadUse<Unit> {row.Integer(1), {Unit {row.Amount(2)}, row.Flag(3), day}};
    };
    if (period == LimitPeriod::Month) {
        return ReadLast(texts.ofMonth, take, owner.Number());
    }
    return ReadLast(texts.ofDay, take, owner.Number(), UsagePeriodOf(period), DayOf(today));
}

template <typename Unit>
Result<bool>
ReadLimit(const UseTexts &texts, const Owner &owner, LimitRules<Unit> &rules, QDate today)
{
    const auto counted = ReadCounted<Unit>(texts, owner, rules.period, today);
    if (!counted) {
        return tl::unexpected(counted.error());
    }
    const quint32 record = *counted ? (*counted)->record : 0;
    if (*counted) {
        rules.use = (*counted)->use;
    }
    return ReadAll(
               texts.credits,
               [](const Row &row) {
                   return LimitCredit<Unit> {Unit {row.Amount(1)},
                                             Unit {row.Amount(2)},
                                             {row.Integer(3) != 0, row.Text(4)}};
               },
               owner.Number(),
               record)
        .map([&rules](std::vector<LimitCredit<Unit>> credits) {
            rules.credits = std::move(credits);
            return true;
        });
}

Result<bool> ReadTraffic(const Owner &owner, OwnerRules &rules, QDate today)
{
    if (rules.mode != AccountingMode::Traffic && rules.mode != AccountingMode::TrafficAndTime) {
        return true;
    }
    return ReadLimit(owner.IsUser() ? kUserTraffic : kGroupTraffic, owner, rules.traffic, today);
}

Result<bool> ReadCredits(const Owner &owner, OwnerRules &rules)
{
    if (rules.mode != AccountingMode::Provider) {
        return true;
    }
    return ReadOpenCredits(owner).map([&rules](std::vector<PrePaidCredit> credits) {
        rules.credits = std::move(credits);
        return true;
    });
}

Result<bool> ReadRanges(const Owner &owner, OwnerRules &rules)
{
    return ReadTimeRanges(owner).map([&rules](const std::vector<StoredRange> &stored) {
        for (const StoredRange &each : stored) {
            rules.times.ranges.push_back(each.range);
        }
        return true;
    });
}

Result<bool> ReadPicked(const Owner &owner, OwnerRules &rules)
{
    static constexpr OwnerText kPicked {
        "SELECT DISTINCT proto_name FROM protocols, ports, port_blocked WHERE "
        "port_blocked.user_id = (?) and port_blocked.port_id = ports.port_id and "
        "ports.proto_id = protocols.id ORDER BY proto_name",
        "SELECT DISTINCT proto_name FROM protocols, ports, port_blocked WHERE "
        "port_blocked.group_id = (?) and port_blocked.port_id = ports.port_id and "
        "ports.proto_id = protocols.id ORDER BY proto_name"};
    return ReadAll(
               kPicked.For(owner), [](const Row &row) { return row.Text(1); }, owner.Number())
        .map([&rules](const std::vector<QString> &names) {
            rules.ports.picked = {names.begin(), names.end()};
            return true;
        });
}

Result<bool> ReadName(Reading &reading)
{
    return TakeFound(NameOf(reading.userId), [&](QString name) { reading.name = std::move(name); });
}

Result<bool> ReadUserRow(Reading &reading)
{
    return TakeFound(
        ReadOne(
            "SELECT monitored, mode, traflim, timelim, trafperiod, timeperiod, own_price, "
            "trafprice, blocked, blockreason, authreq, portaccess, timeaccess, timeblocked, "
            "group_id FROM users WHERE user_id = (?)",
            [&price = reading.price](const Row &row) {
                UserRules user;
                user.monitored = row.Flag(1);
                user.own.mode = row.Code<AccountingMode>(2);
                user.own.traffic.limit = AmountOf(WholeMegabytes {row.Integer(3)});
                user.own.time.limit = AmountOf(WholeHours {row.Integer(4)});
                user.own.traffic.period = row.Code<LimitPeriod>(5);
                user.own.time.period = row.Code<LimitPeriod>(6);
                user.own.price = row.Flag(7) ? row.Amount(8) : price;
                user.own.block = {row.Flag(9), row.Code<BlockReason>(10)};
                user.authRequired = row.Integer(11) != 0;
                user.own.ports.allowOnly = row.Flag(12);
                user.own.times.grant = row.Flag(13);
                user.timeBlocked = row.Flag(14);
                return std::pair {user, row.Id<GroupId>(15)};
            },
            reading.userId),
        [&](std::pair<UserRules, GroupId> read) {
            std::tie(reading.rules, reading.groupId) = std::move(read);
        });
}

// A user may belong to a group that is gone.
Result<bool> ReadGroupRow(Reading &reading)
{
    return ReadOne(
               "SELECT mode, traflim, trafperiod, own_price, trafprice, blocked, blockreason, "
               "portaccess, timeaccess FROM groups WHERE group_id = (?)",
               [&price = reading.price](const Row &row) { return GroupRulesIn(row, price); },
               reading.groupId)
        .map([&](std::optional<OwnerRules> group) {
            reading.rules.group = std::move(group);
            return true;
        });
}

Result<bool> ReadLogins(Reading &reading)
{
    return TakeFound(ReadOne(
                         "SELECT COUNT(*) FROM logins WHERE userid = (?)",
                         [](const Row &row) { return row.Integer(1); },
                         reading.userId),
                     [&](quint32 count) { reading.rules.logins = static_cast<int>(count); });
}

// Each of what a user and a group have alike.
Result<bool> ReadOwner(const Owner &owner, OwnerRules &rules, QDate today)
{
    return ReadTraffic(owner, rules, today)
        .and_then([&](bool) { return ReadCredits(owner, rules); })
        .and_then([&](bool) { return ReadRanges(owner, rules); })
        .and_then([&](bool) { return ReadPicked(owner, rules); });
}

Result<bool> ReadOwn(Reading &reading)
{
    OwnerRules &own = reading.rules.own;
    const QDate today = reading.now.day;
    return ReadOwner(reading.userId, own, today).and_then([&](bool) -> Result<bool> {
        const bool limitsTime =
            own.mode == AccountingMode::Time || own.mode == AccountingMode::TrafficAndTime;
        return limitsTime ? ReadLimit(kUserTime, Owner(reading.userId), own.time, today)
                          : Result<bool>(true);
    });
}

Result<bool> ReadGroup(Reading &reading)
{
    return reading.rules.group ? ReadOwner(reading.groupId, *reading.rules.group, reading.now.day)
                               : Result<bool>(true);
}

template <LoadStep<Reading> kStep>
Result<bool> WhenMonitored(Reading &reading)
{
    return reading.rules.monitored ? kStep(reading) : Result<bool>(true);
}

} // namespace

Result<std::optional<StoredUser>> ReadUserRules(UserId userId, const Moment &now, double price)
{
    return LoadBySteps<Reading>({{}, userId, now, price},
                                {ReadName,
                                 ReadUserRow,
                                 WhenMonitored<ReadOwn>,
                                 WhenMonitored<ReadLogins>,
                                 WhenMonitored<ReadGroupRow>,
                                 WhenMonitored<ReadGroup>})
        .map([](std::optional<Reading> reading) {
            return reading ? std::optional<StoredUser>(*std::move(reading)) : std::nullopt;
        });
}
