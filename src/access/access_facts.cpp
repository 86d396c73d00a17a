#include "access/access_facts.h"

#include <algorithm>
#include <utility>

namespace {

// What a limit may lack when it is noted as reached: the packet, or this second, that was refused.
constexpr Hours kOneSecond {1.0 / 3600};
constexpr Megabytes AtMostLacking(Megabytes /*unit*/)
{
    return kLargestPacket;
}
constexpr Hours AtMostLacking(Hours /*unit*/)
{
    return kOneSecond;
}

constexpr double kNothing = 1e-9; // what rounding leaves of an amount

QDate FirstDayOf(LimitPeriod period, QDate today)
{
    switch (period) {
    case LimitPeriod::Day:
        return today;
    case LimitPeriod::Month:
        return {today.year(), today.month(), 1};
    case LimitPeriod::None:
        break;
    }
    return {};
}

QDate LastDayOf(LimitPeriod period, QDate today)
{
    return period == LimitPeriod::Month ? QDate(today.year(), today.month(), today.daysInMonth())
                                        : FirstDayOf(period, today);
}

// True for a credit that counts; one that expired is noted.
bool Counts(const CreditExpiry &expiry, QDate today, ExpiredCredits &expired)
{
    if (!expiry.IsOver(today)) {
        return true;
    }
    ++expired.count;
    expired.lastDay = std::max(expired.lastDay, expiry.LastDay());
    return false;
}

// What was counted, and the credits of it, belong to a record that begins anew with its owner's first
// use in a period: one of an earlier period says nothing of this one.
template <typename Unit>
LimitFact<Unit> Judge(const LimitRules<Unit> &rules, QDate today)
{
    LimitFact<Unit> fact {.limit = rules.limit,
                          .used = {},
                          .left = {},
                          .creditLeft = {},
                          .expired = {},
                          .since = FirstDayOf(rules.period, today),
                          .lastDay = LastDayOf(rules.period, today)};
    const bool isStale = rules.use && fact.since.isValid() && rules.use->countedOn < fact.since;
    if (rules.use && !isStale) {
        fact.used = rules.use->used;
    }
    for (const LimitCredit<Unit> &credit : rules.credits) {
        if (!isStale && Counts(credit.expiry, today, fact.expired)) {
            fact.creditLeft += std::max(credit.given - credit.used, Unit {});
        }
    }
    Unit room = std::max(rules.limit - fact.used, Unit {});
    if (rules.use && !isStale && rules.use->reached && room <= AtMostLacking(Unit {})) {
        room = {};
    }
    fact.left = room + fact.creditLeft;
    return fact;
}

// What one credit is worth.
PrePaidFact Worth(const PrePaidCredit &credit, double price)
{
    PrePaidFact worth;
    switch (credit.Kind()) {
    case PrePaidKind::Money:
        worth.unbounded = price <= 0;
        worth.money = std::max(credit.money - credit.moneyUsed, BaseUnits {});
        break;
    case PrePaidKind::Traffic:
        worth.traffic = std::max(credit.traffic - credit.trafficUsed, Megabytes {});
        break;
    case PrePaidKind::Unbounded:
        worth.unbounded = true;
        break;
    }
    return worth;
}

PrePaidFact Judge(const std::vector<PrePaidCredit> &credits, double price, QDate today)
{
    PrePaidFact fact;
    bool ends = true;
    for (const PrePaidCredit &credit : credits) {
        const PrePaidFact worth = Worth(credit, price);
        if (!Counts(credit.expiry, today, fact.expired) || worth == PrePaidFact {}) {
            continue;
        }
        fact.unbounded = fact.unbounded || worth.unbounded;
        fact.traffic += worth.traffic;
        fact.money += worth.money;
        ends = ends && credit.expiry.LastDay().isValid();
        fact.lastDay = std::max(fact.lastDay, credit.expiry.LastDay());
    }
    if (!ends) {
        fact.lastDay = {};
    }
    return fact;
}

bool IsUsedUp(const PrePaidFact &fact)
{
    return !fact.unbounded && fact.traffic.value <= kNothing && fact.money.value <= kNothing;
}

template <typename Unit>
bool IsUsedUp(const LimitFact<Unit> &fact)
{
    return fact.left.value <= kNothing;
}

bool LimitsTraffic(AccountingMode mode)
{
    return mode == AccountingMode::Traffic || mode == AccountingMode::TrafficAndTime;
}

bool LimitsTime(AccountingMode mode)
{
    return mode == AccountingMode::Time || mode == AccountingMode::TrafficAndTime;
}

template <typename Unit>
AccountUse UseOf(const LimitFact<Unit> &fact, AccountUse::Unit unit)
{
    return {unit, fact.used.value, fact.left.value};
}

// In money where that is all there is.
AccountUse UseOf(const std::vector<PrePaidCredit> &credits, double price, QDate today)
{
    ExpiredCredits expired;
    Megabytes traffic;
    BaseUnits money;
    bool ofMoney = false;
    bool ofTraffic = false;
    for (const PrePaidCredit &credit : credits) {
        if (Counts(credit.expiry, today, expired)) {
            const bool isMoney = credit.Kind() == PrePaidKind::Money;
            ofMoney = ofMoney || isMoney;
            ofTraffic = ofTraffic || !isMoney;
            traffic += credit.trafficUsed;
            money += credit.moneyUsed;
        }
    }
    const PrePaidFact fact = Judge(credits, price, today);
    const bool inMoney = ofMoney && !ofTraffic;
    AccountUse use {inMoney ? AccountUse::Unit::Money : AccountUse::Unit::Traffic,
                    inMoney ? money.value : traffic.value,
                    inMoney ? fact.money.value : fact.traffic.value};
    if (fact.unbounded) {
        use.left.reset();
    }
    return use;
}

FactEffect RefusesIf(bool refuses)
{
    return refuses ? FactEffect::Refuses : FactEffect::None;
}

// Gathers the facts of one user at one moment, in the order in which the decision is taken.
class Gathering
{
public:
    Gathering(const UserRules &whose, const Moment &when) : user(whose), now(when) { }

    std::vector<Fact> Run()
    {
        if (!user.monitored) {
            AddFact(FactKind::Unmonitored, FactEffect::LetsPass);
            return facts;
        }
        AddOwnBlock();
        AddTimes(user.own.times, false);
        AddLogin();
        if (user.group) {
            AddGroup(*user.group);
        }
        AddPorts(user.own.ports, false);
        if (user.group) {
            AddPorts(user.group->ports, true);
        }
        const auto isHarmless = [](const Fact &fact) { return fact.effect == FactEffect::None; };
        if (std::ranges::all_of(facts, isHarmless)) {
            AddFact(FactKind::NothingWrong, FactEffect::None);
        }
        return facts;
    }

private:
    template <typename... Values>
    void AddFact(FactKind kind, FactEffect effect, bool ofGroup = false, Values &&...values)
    {
        facts.push_back({kind, effect, ofGroup, {std::forward<Values>(values)...}});
    }

    void AddOwnBlock()
    {
        const BlockFact block {user.own.block.reason, user.blockedSince, user.own.mode};
        const BlockMeaning meaning = MeaningOf(user.own.block);
        if (meaning == BlockMeaning::ByAdministrator || meaning == BlockMeaning::Unknown) {
            AddFact(FactKind::AdministratorBlock, FactEffect::Refuses, false, block);
        } else if (meaning == BlockMeaning::ShownAsAllowed) {
            AddFact(FactKind::ShownAsAllowed, FactEffect::None);
        }
        const size_t place = facts.size();
        AddLimits(user.own, false);
        if (meaning == BlockMeaning::ByService && !AccountsFor(place, block.reason)) {
            facts.insert(facts.begin() + static_cast<std::ptrdiff_t>(place),
                         {FactKind::ServiceBlock, FactEffect::Refuses, false, block});
        }
    }

    void AddLimits(const OwnerRules &owner, bool ofGroup)
    {
        const AccountingMode mode = owner.mode;
        if (LimitsTraffic(mode)) {
            const auto fact = Judge(owner.traffic, now.day);
            AddFact(FactKind::TrafficLimit, RefusesIf(IsUsedUp(fact)), ofGroup, fact);
        }
        if (LimitsTime(mode) && !ofGroup) {
            const auto fact = Judge(owner.time, now.day);
            AddFact(FactKind::TimeLimit, RefusesIf(IsUsedUp(fact)), ofGroup, fact);
        }
        // A group pays for those of its members that have no account of their own.
        const bool pays = !ofGroup || user.own.mode == AccountingMode::NoControl;
        if (mode == AccountingMode::Provider && pays) {
            const auto fact = Judge(owner.credits, owner.price, now.day);
            AddFact(FactKind::PrePaid, RefusesIf(IsUsedUp(fact)), ofGroup, fact);
        }
    }

    // Whether a limit from `place` on is used up for which a block of this reason stands.
    [[nodiscard]] bool AccountsFor(size_t place, BlockReason reason) const
    {
        return std::any_of(
            facts.begin() + static_cast<std::ptrdiff_t>(place), facts.end(), [&](const Fact &fact) {
                const bool isTime = fact.kind == FactKind::TimeLimit;
                return fact.effect == FactEffect::Refuses
                    && reason == (isTime ? BlockReason::TimeUsedUp : BlockReason::TrafficUsedUp);
            });
    }

    void AddTimes(const WeekRules &rules, bool ofGroup)
    {
        if (!rules.ranges.empty()) {
            const WeekFact fact {rules.grant, TimesAt(rules, now)};
            AddFact(FactKind::TimesOfWeek, RefusesIf(!fact.state.allowed), ofGroup, fact);
        }
    }

    void AddLogin()
    {
        if (user.authRequired) {
            const FactEffect effect =
                user.loggedIn ? RefusesIf(!*user.loggedIn) : FactEffect::NeedsLogin;
            AddFact(FactKind::Login, effect, false, LoginFact {user.logins});
        }
    }

    // A group's block denies whatever its reason.
    void AddGroup(const OwnerRules &group)
    {
        const size_t place = facts.size();
        AddLimits(group, true);
        if (group.block.blocked && !AccountsFor(place, group.block.reason)) {
            facts.insert(facts.begin() + static_cast<std::ptrdiff_t>(place),
                         {FactKind::GroupBlock,
                          FactEffect::Refuses,
                          true,
                          BlockFact {group.block.reason, {}, group.mode}});
        }
        AddTimes(group.times, true);
    }

    void AddPorts(const PortRules &ports, bool ofGroup)
    {
        if (!ports.picked.isEmpty()) {
            AddFact(FactKind::Protocols, FactEffect::Narrows, ofGroup, ports);
        }
    }

    const UserRules &user;
    const Moment &now;
    std::vector<Fact> facts;
};

Verdict VerdictBy(FactEffect effect)
{
    switch (effect) {
    case FactEffect::Refuses:
        return Verdict::MayNotSend;
    case FactEffect::NeedsLogin:
        return Verdict::AfterLogin;
    default:
        return Verdict::MaySend;
    }
}

} // namespace

std::optional<AccountUse> AccountUseOf(const OwnerRules &owner, QDate today)
{
    if (LimitsTraffic(owner.mode)) {
        return UseOf(Judge(owner.traffic, today), AccountUse::Unit::Traffic);
    }
    if (LimitsTime(owner.mode)) {
        return UseOf(Judge(owner.time, today), AccountUse::Unit::Time);
    }
    return owner.mode == AccountingMode::Provider
        ? std::optional(UseOf(owner.credits, owner.price, today))
        : std::nullopt;
}

AccessFindings DecideAccess(const UserRules &user, const Moment &now)
{
    AccessFindings findings;
    findings.facts = Gathering(user, now).Run();
    // The first of the strongest; of those without effect the last one, which says that nothing is wrong.
    size_t decides = findings.facts.size() - 1;
    for (size_t i = findings.facts.size(); i-- > 0;) {
        if (findings.facts[i].effect != FactEffect::None
            && findings.facts[i].effect >= findings.facts[decides].effect) {
            decides = i;
        }
    }
    findings.decidedBy = decides;
    findings.verdict = VerdictBy(findings.facts[decides].effect);
    findings.listed = PictureOf({user.own.block, user.own.times.grant, user.timeBlocked});
    findings.markedDenied = Denies(MeaningOf(user.own.block));
    return findings;
}
