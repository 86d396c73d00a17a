// Why a user may send or may not: the one rule by which access is decided, as facts in the order in
// which the decision is taken. It knows of no window and no database.
#pragma once

#include "access/access_marks.h"
#include "access/pre_paid_credit.h"
#include "access/week_times.h"
#include "db/quantities.h"

#include <QDateTime>
#include <QStringList>

#include <optional>
#include <variant>
#include <vector>

// What was counted of the accounting period that `countedOn` lies in.
template <typename Unit>
struct CountedUse
{
    Unit used;
    bool reached = false; // it was noted that the limit was reached
    QDate countedOn;

    bool operator==(const CountedUse &) const = default;
};

// An open credit that extends a limit.
template <typename Unit>
struct LimitCredit
{
    Unit given;
    Unit used;
    CreditExpiry expiry;

    bool operator==(const LimitCredit &) const = default;
};

template <typename Unit>
struct LimitRules
{
    Unit limit;
    LimitPeriod period = LimitPeriod::None;
    std::optional<CountedUse<Unit>> use; // nothing counted yet
    std::vector<LimitCredit<Unit>> credits; // of the record of `use`, or of none yet

    bool operator==(const LimitRules &) const = default;
};

struct PortRules
{
    bool allowOnly = false; // true: only what is picked may pass; false: it is what may not
    QStringList picked; // protocols; none of them: no restriction

    bool operator==(const PortRules &) const = default;
};

// What is the same of a user and of a group.
struct OwnerRules
{
    AccountingMode mode = AccountingMode::NoControl;
    StoredBlock block;
    LimitRules<Megabytes> traffic;
    LimitRules<Hours> time; // of users only
    std::vector<PrePaidCredit> credits;
    double price = 0; // base units for each megabyte; 0: nothing is taken from money
    WeekRules times;
    PortRules ports;
};

struct UserRules
{
    bool monitored = true;
    OwnerRules own;
    bool timeBlocked = false; // users.timeblocked, the service's own mark
    bool authRequired = false;
    int logins = 0; // bound to the user
    std::optional<bool> loggedIn; // nothing: only the service knows
    std::optional<QDateTime> blockedSince; // where that is known
    std::optional<OwnerRules> group; // nothing: the user's group is gone
};

// What an account has used and has left, in one unit.
struct AccountUse
{
    enum class Unit { Traffic, Time, Money }; // megabytes, hours, base units

    Unit unit = Unit::Traffic;
    double used = 0;
    std::optional<double> left; // nothing: without a bound

    bool operator==(const AccountUse &) const = default;
};

// What a traffic limit may lack when it is noted as reached: the packet that was refused.
inline constexpr Megabytes kLargestPacket {65535.0 / (1 << 20)};

enum class FactKind {
    Unmonitored,
    AdministratorBlock, // BlockFact
    ServiceBlock, // BlockFact; no limit below accounts for it
    ShownAsAllowed, // marked as blocked, and let through all the same
    TrafficLimit, // LimitFact<Megabytes>
    TimeLimit, // LimitFact<Hours>
    PrePaid, // PrePaidFact
    TimesOfWeek, // WeekFact
    Login, // LoginFact
    GroupBlock, // BlockFact
    Protocols, // PortRules
    NothingWrong,
};

enum class FactEffect {
    None, // for information
    Narrows, // some may pass and some not
    NeedsLogin, // whether the user is logged in is not known here
    Refuses,
    LetsPass, // whatever else there is
};

struct BlockFact
{
    BlockReason reason = BlockReason::None;
    std::optional<QDateTime> since;
    AccountingMode mode =
        AccountingMode::NoControl; // of whom is blocked: it tells what lifts a block

    bool operator==(const BlockFact &) const = default;
};

// Open credits whose last day is over; they are worth nothing.
struct ExpiredCredits
{
    int count = 0;
    QDate lastDay; // of the one that expired last

    bool operator==(const ExpiredCredits &) const = default;
};

template <typename Unit>
struct LimitFact
{
    Unit limit;
    Unit used;
    Unit left; // of the limit and the credits together
    Unit creditLeft;
    ExpiredCredits expired;
    QDate since; // first and last day of the period; not valid for a period of no meaning
    QDate lastDay;

    bool operator==(const LimitFact &) const = default;
};

struct PrePaidFact
{
    bool unbounded = false; // the rest says nothing then
    Megabytes traffic; // what is left
    BaseUnits money;
    ExpiredCredits expired;
    QDate lastDay; // until which there is credit; not valid when it is not known to end

    bool operator==(const PrePaidFact &) const = default;
};

struct WeekFact
{
    bool grant = false;
    WeekState state;

    bool operator==(const WeekFact &) const = default;
};

struct LoginFact
{
    int logins = 0;

    bool operator==(const LoginFact &) const = default;
};

struct Fact
{
    FactKind kind = FactKind::NothingWrong;
    FactEffect effect = FactEffect::None;
    bool ofGroup = false; // the group's, for its members
    std::variant<std::monostate,
                 BlockFact,
                 LimitFact<Megabytes>,
                 LimitFact<Hours>,
                 PrePaidFact,
                 WeekFact,
                 LoginFact,
                 PortRules>
        values;

    bool operator==(const Fact &) const = default;
};

enum class Verdict { MaySend, AfterLogin, MayNotSend };

struct AccessFindings
{
    std::vector<Fact> facts; // at least one
    Verdict verdict = Verdict::MaySend;
    size_t decidedBy = 0; // index of the fact that decides
    AccessState listed = AccessState::Allowed; // what the users list shows
    bool markedDenied = false; // what the access page says
};

// Of a limit, of traffic before time, or of the pre-paid credits that count; nothing for an owner without
// control. It is what the facts say of the same rules.
[[nodiscard]] std::optional<AccountUse> AccountUseOf(const OwnerRules &owner, QDate today);

// Of a stored block the service's own is believed as it stands. The service, which judges anew whether
// that still holds, hands in the row without it.
[[nodiscard]] AccessFindings DecideAccess(const UserRules &user, const Moment &now);
