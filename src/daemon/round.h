// One piece of the service's work on the database: what was counted is written, and what holds from
// now on is read. It knows of no kernel and no bus.
#pragma once

#include "daemon/service_settings.h"
#include "db/data_mark.h"
#include "metering/count.h"
#include "metering/counters.h"
#include "metering/gateway_claim.h"
#include "metering/monitored_ports.h"
#include "metering/new_period.h"
#include "metering/new_users.h"
#include "metering/standing.h"

#include <QStringList>

#include <chrono>
#include <vector>

// By value: it may outlive whoever asked for it.
struct Round
{
    GatewayClaim claim;
    bool isLast = false; // the id is given back
    std::vector<CounterKey> forgotten; // counters that are gone from the kernel
    std::vector<Count> counts; // by their moments
    bool reconcile = false; // the last count has all counters of the kernel: others are gone
    bool beginsDay = false; // the first one of a day, or of the service
    Prices prices;
    QDateTime now; // in the gateway's zone
    QSet<UserId> loggedIn;
    std::vector<Station> stations; // new ones, and those with another hardware address
    StationRules stationRules;
    DataMark
        known; // of what the asker knows and holds still unless somebody writes; not read: nothing
};

// What holds until somebody writes, or until its next change.
struct Known
{
    Standings standings;
    MonitoredPorts ports;
};

struct RoundOutcome
{
    ClaimOutcome claim = ClaimOutcome::Ours; // else nothing was done
    std::vector<Counted> counted; // of each of the counts, and of the day that began
    MarksWritten marks;
    StationsTaken stations;
    QStringList refusedStations; // a sentence on each that the database did not take
    DataMark mark; // of what is known now
    std::optional<Known> known; // nothing: what the asker knows holds still
};

[[nodiscard]] Result<RoundOutcome> RunRound(const Round &round);

// What the service begins with.
struct Beginning
{
    QString refusal; // why the service must not work with this database; empty: it may
    CountersByKey counters; // of the generation that stands in the kernel
    Known known;
};

// What ReadBeginning asks for. `generation` of the claim is 0 when no table stands.
struct BeginningWanted
{
    QString dataSource; // for the words of a refusal
    GatewayClaim claim;
    std::chrono::seconds silence; // until another gateway of this id counts as gone
    QDateTime now;
    Prices prices;
};

[[nodiscard]] Result<Beginning> ReadBeginning(const BeginningWanted &wanted);

[[nodiscard]] Moment MomentOf(const QDateTime &time);
