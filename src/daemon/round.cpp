#include "daemon/round.h"

#include <algorithm>
#include <utility>

namespace {

// One thing after the other; the first failure ends it.
class RoundRunner
{
public:
    RoundRunner(const QString &gatewayId, const Round &whole) : gateway(gatewayId), round(whole) { }

    Result<RoundOutcome> Run()
    {
        Forget();
        for (const Count &count : round.counts) {
            Write(count);
        }
        Reconcile();
        Settle();
        MakeUsers();
        Read();
        WriteTheMarks();
        if (failure) {
            return tl::unexpected(*std::move(failure));
        }
        return std::move(outcome);
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

    void Forget()
    {
        if (!round.forgotten.empty()) {
            Take(ForgetCounters(gateway, round.forgotten));
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

    void MakeUsers()
    {
        if (!failure && !round.found.empty()) {
            if (auto made = Take(MakeNewUsers(round.found, round.newUsers))) {
                outcome.found = *std::move(made);
            }
        }
    }

    void Read()
    {
        if (failure) {
            return;
        }
        if (auto read = Take(ReadStandings(MomentOf(round.now), round.prices, round.loggedIn))) {
            outcome.standings = *std::move(read);
        }
        if (auto read = failure ? std::nullopt : Take(ReadMonitoredPorts())) {
            outcome.ports = *std::move(read);
        }
    }

    void WriteTheMarks()
    {
        if (failure) {
            return;
        }
        if (auto written = Take(WriteMarks(outcome.standings))) {
            outcome.marks = *std::move(written);
        }
    }

    const QString &gateway;
    const Round &round;
    RoundOutcome outcome;
    std::optional<Failure> failure;
};

} // namespace

Result<RoundOutcome> RunRound(const QString &gatewayId, const Round &round)
{
    return RoundRunner(gatewayId, round).Run();
}

Result<Beginning> ReadBeginning(const QString &gatewayId,
                                quint64 generation,
                                const QDateTime &now,
                                const Prices &prices)
{
    Beginning beginning;
    return ReadCounters(gatewayId, generation)
        .and_then([&](const CountersByKey &counters) {
            beginning.counters = counters;
            return ReadStandings(MomentOf(now), prices, {});
        })
        .and_then([&](const Standings &standings) {
            beginning.standings = standings;
            return ReadMonitoredPorts();
        })
        .map([&](const MonitoredPorts &ports) {
            beginning.ports = ports;
            return std::move(beginning);
        });
}

Moment MomentOf(const QDateTime &time)
{
    return {time.date(), time.time()};
}
