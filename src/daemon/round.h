// One piece of the service's work on the database: what was counted is written, and what holds from
// now on is read. It knows of no kernel and no bus.
#pragma once

#include "daemon/service_settings.h"
#include "metering/count.h"
#include "metering/counters.h"
#include "metering/monitored_ports.h"
#include "metering/new_period.h"
#include "metering/new_users.h"
#include "metering/standing.h"

#include <memory>
#include <vector>

// By value: it may outlive whoever asked for it.
struct Round
{
    std::vector<CounterKey> forgotten; // counters that are gone from the kernel
    std::vector<Count> counts; // by their moments
    bool reconcile = false; // the last count has all counters of the kernel: others are gone
    bool beginsDay = false; // the first one of a day, or of the service
    Prices prices;
    QDateTime now; // in the gateway's zone
    QSet<UserId> loggedIn;
    std::vector<FoundWorkstation> found;
    NewUserRules newUsers;
};

struct RoundOutcome
{
    std::vector<Counted> counted; // of each of the counts, and of the day that began
    MarksWritten marks;
    FoundUsers found;
    Standings standings;
    MonitoredPorts ports;
};

[[nodiscard]] Result<RoundOutcome> RunRound(const QString &gatewayId, const Round &round);

// What the service begins with.
struct Beginning
{
    CountersByKey counters; // of the generation that stands in the kernel
    Standings standings;
    MonitoredPorts ports;
};

// `generation` is 0 when no table stands.
[[nodiscard]] Result<Beginning> ReadBeginning(const QString &gatewayId,
                                              quint64 generation,
                                              const QDateTime &now,
                                              const Prices &prices);

[[nodiscard]] Moment MomentOf(const QDateTime &time);
