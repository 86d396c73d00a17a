#include "metering/standing.h"

#include "access/everybody.h"
#include "db/query.h"
#include "metering/account.h"
#include "metering/bytes.h"

#include <algorithm>
#include <iterator>

namespace {

// What the service blocked for is judged anew by what is left.
bool IsForUse(const StoredBlock &block)
{
    return block.blocked
        && (block.reason == BlockReason::TrafficUsedUp || block.reason == BlockReason::TimeUsedUp);
}

UserRules WithoutBlocksForUse(UserRules rules)
{
    if (IsForUse(rules.own.block)) {
        rules.own.block = {};
    }
    if (rules.group && IsForUse(rules.group->block)) {
        rules.group->block = {};
    }
    return rules;
}

// What ports leave open: of all, or of a few.
struct OpenPorts
{
    bool allowOnly = false;
    PortNumbers ports; // that alone are open, or closed

    [[nodiscard]] bool IsNothing() const { return allowOnly && ports.empty(); }
};

// What both leave open.
OpenPorts Both(const OpenPorts &one, const OpenPorts &other)
{
    OpenPorts both {one.allowOnly || other.allowOnly, {}};
    const auto to = std::back_inserter(both.ports);
    if (one.allowOnly && other.allowOnly) {
        std::ranges::set_intersection(one.ports, other.ports, to);
    } else if (one.allowOnly) {
        std::ranges::set_difference(one.ports, other.ports, to);
    } else if (other.allowOnly) {
        std::ranges::set_difference(other.ports, one.ports, to);
    } else {
        std::ranges::set_union(one.ports, other.ports, to);
    }
    return both;
}

// None picked: no restriction.
OpenPorts OpenTo(const PortRules &rules, const PortNumbers &ports)
{
    return rules.picked.isEmpty() ? OpenPorts {} : OpenPorts {rules.allowOnly, ports};
}

// What is read of one user, and the standing that comes of it.
class Judging
{
public:
    Judging(const KnownUser &whose, const Moment &when)
        : user(whose)
        , rules(WithoutBlocksForUse(whose.rules))
        , findings(DecideAccess(rules, when))
    {
        standing.user = user.userId;
        standing.address = NetAddress::From(user.ip);
        standing.hardware = HardwareAddress::From(user.mac);
        standing.block = user.rules.own.block;
        standing.authRequired = rules.authRequired;
        standing.timeMark = rules.timeBlocked;
        Decide();
        JudgeOwn();
        JudgeGroup();
        JudgePorts();
        JudgeTimes();
    }

    [[nodiscard]] const Standing &Judged() const { return standing; }
    [[nodiscard]] std::optional<quint64> GroupLeftBytes() const { return groupLeftBytes; }

    // Of a group with a traffic limit, or with a block for one that it had.
    [[nodiscard]] std::optional<GroupStanding> Group() const
    {
        const auto &group = user.rules.group;
        const bool limits = group && group->mode == AccountingMode::Traffic;
        if (!limits && !(group && IsForUse(group->block))) {
            return std::nullopt;
        }
        return GroupStanding {group->block, limits && groupLeftBytes == 0U};
    }

    [[nodiscard]] const std::optional<QDateTime> &Until() const { return until; }

private:
    void Decide()
    {
        const Fact &fact = findings.facts[findings.decidedBy];
        standing.refused = findings.verdict != Verdict::MaySend;
        standing.why = fact.kind;
        standing.whyOfGroup = fact.ofGroup;
    }

    // What refuses although the findings do not.
    void Refuse(FactKind why, bool ofGroup)
    {
        if (!standing.refused) {
            standing.refused = true;
            standing.why = why;
            standing.whyOfGroup = ofGroup;
        }
    }

    void JudgeOwn()
    {
        const AccountLeft left = LeftOf(findings.facts, false, rules.own.price);
        standing.usedUp = UsedUpIn(findings.facts, false);
        if (left.time) {
            standing.leftSeconds = left.time->value * 3600;
        }
        if (left.traffic) {
            standing.leftBytes = WholeBytesIn(*left.traffic);
        }
        if (standing.leftBytes == 0U) {
            const bool isCredit = rules.own.mode == AccountingMode::Provider;
            standing.usedUp = BlockReason::TrafficUsedUp;
            Refuse(isCredit ? FactKind::PrePaid : FactKind::TrafficLimit, false);
        }
    }

    void JudgeGroup()
    {
        if (!rules.group) {
            return;
        }
        const auto left = LeftOf(findings.facts, true, rules.group->price).traffic;
        if (!left) {
            return;
        }
        standing.sharedGroup = user.groupId;
        groupLeftBytes = WholeBytesIn(*left);
        if (groupLeftBytes == 0U) {
            const bool isCredit = rules.group->mode == AccountingMode::Provider;
            Refuse(isCredit ? FactKind::PrePaid : FactKind::TrafficLimit, true);
        }
    }

    void JudgePorts()
    {
        OpenPorts open = OpenTo(rules.own.ports, user.ports);
        if (rules.group) {
            open = Both(open, OpenTo(rules.group->ports, user.groupPorts));
        }
        if (open.IsNothing()) {
            Refuse(FactKind::Protocols, rules.group && !rules.group->ports.picked.isEmpty());
        }
        standing.portsAllowOnly = open.allowOnly;
        standing.ports = std::move(open.ports);
    }

    // The mark says whether the moment lies in the user's ranges, so that it and timeaccess differ where
    // the time is not allowed.
    void JudgeTimes()
    {
        bool allowed = true;
        for (const Fact &fact : findings.facts) {
            if (fact.kind != FactKind::TimesOfWeek) {
                continue;
            }
            const WeekState &state = std::get<WeekFact>(fact.values).state;
            allowed = fact.ofGroup ? allowed : state.allowed;
            if (state.until) {
                const QDateTime change(state.until->day, state.until->time);
                until = std::min(until.value_or(change), change);
            }
        }
        standing.timeMarkNow = allowed == rules.own.times.grant;
    }

    const KnownUser &user;
    const UserRules rules;
    const AccessFindings findings;
    Standing standing;
    std::optional<quint64> groupLeftBytes;
    std::optional<QDateTime> until; // when a time of the week begins or ends
};

QDateTime NextMidnight(const Moment &now)
{
    return {now.day.addDays(1), QTime(0, 0)};
}

void Add(const Judging &judging, GroupId group, Standings &standings)
{
    standings.users.push_back(judging.Judged());
    if (const auto left = judging.GroupLeftBytes()) {
        standings.groupLeftBytes[group] = *left;
    }
    if (const auto ofGroup = judging.Group()) {
        standings.groups[group] = *ofGroup;
    }
    if (const auto &until = judging.Until()) {
        standings.nextChange = std::min(standings.nextChange, *until);
    }
}

// How many will be read, but for those who come and go meanwhile.
Result<quint32> CountEverybody()
{
    return ReadOne("SELECT COUNT(*) FROM users SCANNED WHERE monitored = true",
                   [](const Row &row) { return row.Integer(1); })
        .map([](const std::optional<quint32> &count) { return count.value_or(0); });
}

// The room is taken at once: that of many users is large, and growing would take it twice over.
Result<Standings> ReadStandings(const Moment &now,
                                const Prices &prices,
                                const QSet<UserId> &loggedIn,
                                quint32 expected)
{
    Standings standings;
    return ReadEverybody(
               {now, prices.price},
               loggedIn,
               [&] {
                   standings = {};
                   standings.users.reserve(expected);
                   standings.nextChange = NextMidnight(now);
               },
               [&](const KnownUser &user) { Add(Judging(user, now), user.groupId, standings); })
        .map([&](bool) {
            std::ranges::sort(standings.users, {}, &Standing::user);
            return std::move(standings);
        });
}

} // namespace

const Standing *StandingOf(const Standings &standings, UserId userId)
{
    const auto found = std::ranges::lower_bound(standings.users, userId, {}, &Standing::user);
    return found != standings.users.end() && found->user == userId ? &*found : nullptr;
}

Result<Standings>
ReadStandings(const Moment &now, const Prices &prices, const QSet<UserId> &loggedIn)
{
    return CountEverybody().and_then(
        [&](quint32 expected) { return ReadStandings(now, prices, loggedIn, expected); });
}

Result<std::optional<OneStanding>>
ReadStanding(UserId userId, const Moment &now, const Prices &prices, bool loggedIn)
{
    return ReadKnownUser(userId, {now, prices.price}, loggedIn)
        .map([&now](const std::optional<KnownUser> &user) -> std::optional<OneStanding> {
            if (!user) {
                return std::nullopt;
            }
            const Judging judging(*user, now);
            return OneStanding {judging.Judged(), judging.GroupLeftBytes()};
        });
}
