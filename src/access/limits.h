// Limits of the accounting period and the price of traffic: stored, staged, and read again.
#pragma once

#include "access/owner.h"
#include "db/quantities.h"
#include "db/value_codes.h"

#include <optional>

struct Limits
{
    LimitPeriod period = LimitPeriod::None;
    WholeMegabytes traffic;
    WholeHours time; // users only
    bool ownPrice = false; // false: the global price holds
    double price = 0.0; // units of the currency per megabyte

    bool operator==(const Limits &) const = default;
};

// The stored limits with what the administrator changed laid over them.
struct LimitsDraft
{
    Limits stored; // as last read
    std::optional<LimitPeriod> period;
    std::optional<WholeMegabytes> traffic;
    std::optional<WholeHours> time;
    std::optional<bool> ownPrice;
    std::optional<double> price;
    bool trafficRaised = false; // above the stored limit at the time of the change
    bool timeRaised = false;

    [[nodiscard]] Limits Staged() const;
};

// What can be changed in an accounting mode.
struct LimitFields
{
    bool period = false;
    bool traffic = false;
    bool time = false;
    bool rates = false;

    bool operator==(const LimitFields &) const = default;
};

[[nodiscard]] LimitFields FieldsFor(AccountingMode mode);

// Kept: the period is that of the traffic limit, for a time limit too.
[[nodiscard]] Limits ReadLimits(const Owner &owner);

// Stages a limit and notes whether it is above the stored one, which is read again for that.
void StageTrafficLimit(const Owner &owner, WholeMegabytes limit, LimitsDraft &draft);
void StageTimeLimit(UserId userId, WholeHours limit, LimitsDraft &draft);
