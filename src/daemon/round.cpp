#include "daemon/round.h"

#include "startup/start_up.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

Result<Known> ReadKnown(const QDateTime &now, const Prices &prices, const QSet<UserId> &loggedIn)
{
    Known known;
    return ReadStandings(MomentOf(now), prices, loggedIn)
        .and_then([&](Standings standings) {
            known.standings = std::move(standings);
            return ReadMonitoredPorts();
        })
        .map([&](const MonitoredPorts &ports) {
            known.ports = ports;
            return std::move(known);
        });
}

// One thing after the other; the first failure ends it.
class RoundRunner
{
public:
    explicit RoundRunner(const Round &whole) : round(whole) { }

    Result<RoundOutcome> Run()
    {
        if (!HasClaim()) {
            return failure ? Result<RoundOutcome>(tl::unexpected(*failure)) : outcome;
        }
        if (HoldsStill()) {
            return Finish();
        }
        Forget();
        for (const Count &count : round.counts) {
            Write(count);
        }
        Reconcile();
        Settle();
        FindUsers();
        Read();
        WriteTheMarks();
        return Finish();
    }

private:
    template <typename Value>
    std::optional<Value> Take(Result<Value> result)
    {
        if (!result) {
            failure = std::move(result.error());
            return std::nullopt;
        }
        return *std::move(result);
    }

    bool HasClaim()
    {
        const auto renewed = Take(RenewClaim(round.claim, round.now));
        outcome.claim = renewed.value_or(ClaimOutcome::Ours);
        return renewed == ClaimOutcome::Ours;
    }

    // Nothing is to be written, and nobody else has written: with ever so many users this takes no time.
    bool HoldsStill()
    {
        const bool isAsked = round.forgotten.empty() && round.counts.empty() && !round.reconcile
            && !round.beginsDay && round.stations.empty();
        const auto mark = Take(ReadDataMark());
        outcome.mark = mark.value_or(DataMark());
        constexpr int kWrites = 1; // the claim's
        return isAsked && !failure && IsSameData(round.known, outcome.mark, kWrites);
    }

    Result<RoundOutcome> Finish()
    {
        if (!failure && round.isLast) {
            Take(ReleaseClaim(round.claim));
        }
        if (failure) {
            return tl::unexpected(*std::move(failure));
        }
        return std::move(outcome);
    }

    void Forget()
    {
        if (!round.forgotten.empty()) {
            Take(ForgetCounters(round.claim.gatewayId, round.forgotten));
        }
    }

    void Write(const Count &count)
    {
        if (failure) {
            return;
        }
        if (auto counted = Take(WriteCount(count, round.prices))) {
            outcome.counted.push_back(*std::move(counted));
        }
    }

    void Reconcile()
    {
        if (!failure && round.reconcile) {
            Take(ReconcileCounters(round.counts.back()));
        }
    }

    void Settle()
    {
        if (!failure && round.beginsDay) {
            if (auto settled = Take(SettleAccounts(round.now, round.prices))) {
                outcome.counted.push_back(*std::move(settled));
            }
        }
    }

    // One that the engine refuses keeps neither the others nor the rest of the round from going on.
    void FindUsers()
    {
        if (failure || round.stations.empty() || TakeAll(round.stations)) {
            return;
        }
        for (const Station &each : round.stations) {
            if (!failure && !TakeAll({each})) {
                outcome.refusedStations
                    << u"The workstation %1 cannot be written: %2"_s.arg(each.ip, whyRefused);
            }
        }
    }

    // False when the engine refuses them, for whyRefused.
    bool TakeAll(const std::vector<Station> &stations)
    {
        auto taken = TakeStations(stations, round.stationRules);
        using enum Failure::Kind;
        if (!taken && (taken.error().kind == Refused || taken.error().kind == NotUnique)) {
            whyRefused = taken.error().text;
            return false;
        }
        if (auto written = Take(std::move(taken))) {
            outcome.stations.made << written->made;
            outcome.stations.moved << written->moved;
            outcome.stations.completed << written->completed;
        }
        return true;
    }

    void Read()
    {
        if (failure) {
            return;
        }
        outcome.mark = Take(ReadDataMark()).value_or(DataMark());
        if (failure) {
            return;
        }
        if (auto known = Take(ReadKnown(round.now, round.prices, round.loggedIn))) {
            outcome.known = *std::move(known);
        }
    }

    void WriteTheMarks()
    {
        if (failure) {
            return;
        }
        if (auto written = Take(WriteMarks(outcome.known->standings))) {
            outcome.marks = *std::move(written);
        }
        if (!outcome.marks.IsEmpty()) {
            outcome.mark = {}; // the rows are others than were read
        }
    }

    const Round &round;
    RoundOutcome outcome;
    QString whyRefused;
    std::optional<Failure> failure;
};

} // namespace

Result<RoundOutcome> RunRound(const Round &round)
{
    return RoundRunner(round).Run();
}

Result<Beginning> ReadBeginning(const BeginningWanted &wanted)
{
    Beginning beginning;
    const auto refuse = [&beginning](const QString &why) {
        beginning.refusal = why;
        return std::move(beginning);
    };
    if (const auto problem = SchemaProblem(wanted.dataSource)) {
        return refuse(u"The database %1 cannot be used: %2"_s.arg(wanted.dataSource, *problem));
    }
    const auto claimed = ClaimGateway(wanted.claim, wanted.now, wanted.silence);
    if (claimed && *claimed == ClaimOutcome::AnotherIsAlive) {
        return refuse(
            u"Another gateway counts under the id \"%1\" in this database. Give this one an "
            "id of its own (GatewayId in the settings)."_s.arg(wanted.claim.gatewayId));
    }
    return claimed
        .and_then([&](ClaimOutcome) {
            return ReadCounters(wanted.claim.gatewayId, wanted.claim.generation);
        })
        .and_then([&](CountersByKey counters) {
            beginning.counters = std::move(counters);
            return ReadKnown(wanted.now, wanted.prices, {});
        })
        .map([&](Known known) {
            beginning.known = std::move(known);
            return std::move(beginning);
        });
}

Moment MomentOf(const QDateTime &time)
{
    return {time.date(), time.time()};
}
