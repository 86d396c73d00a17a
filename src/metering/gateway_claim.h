// Which machine counts under a gateway's id: two at once would write over each other's counters.
#pragma once

#include "db/failure.h"

#include <QDateTime>
#include <QString>

#include <chrono>

struct GatewayClaim
{
    QString gatewayId; // at most 64 characters
    QString instance; // the same for every start on one machine; at most 64 characters
    quint64 generation = 0;
};

enum class ClaimOutcome {
    Ours,
    AnotherIsAlive, // another instance has told of itself within the time given
};

// Takes the id at the start: from nobody, from this instance's last run, or from one that has been silent
// for `silence` by the clock that `now` comes from.
[[nodiscard]] Result<ClaimOutcome>
ClaimGateway(const GatewayClaim &claim, const QDateTime &now, std::chrono::seconds silence);

// Tells that this instance is alive, and what its table is. AnotherIsAlive: it has the id no longer.
[[nodiscard]] Result<ClaimOutcome> RenewClaim(const GatewayClaim &claim, const QDateTime &now);

// The end in good order: any other may begin at once.
[[nodiscard]] Result<bool> ReleaseClaim(const GatewayClaim &claim);
