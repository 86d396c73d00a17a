// Limits of the accounting period and the price of traffic: stored, staged, and read again.
#pragma once

#include "access/owner.h"
#include "base/number_entry.h"
#include "db/quantities.h"
#include "db/value_codes.h"

#include <optional>

// What is taken as a price, in units of the currency per megabyte.
inline constexpr NumberBounds kPriceBounds {.least = 0.0, .most = 1e9, .decimals = 2};

struct Limits
{
    LimitPeriod period = LimitPeriod::None; // of the traffic limit
    LimitPeriod timePeriod = LimitPeriod::None; // of the time limit; users only
    WholeMegabytes traffic;
    WholeHours time; // users only
    bool ownPrice = false; // false: the global price holds
    double price = 0.0; // units of the currency per megabyte

    bool operator==(const Limits &) const = default;
};

// The period that is shown in a mode: that of the time limit where time alone is limited.
[[nodiscard]] LimitPeriod PeriodIn(AccountingMode mode, const Limits &limits);

// The stored limits with what the administrator changed laid over them.
struct LimitsDraft
{
    Limits stored; // as last read; of a value that was changed, as it was then
    std::optional<LimitPeriod> period; // of whichever limits the mode has
    std::optional<WholeMegabytes> traffic;
    std::optional<WholeHours> time;
    std::optional<bool> ownPrice;
    std::optional<double> price;

    [[nodiscard]] Limits Staged() const;

    // Shows what stands in the database now where nothing was changed.
    void TakeStored(const Limits &now);
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

// Nothing when the owner's row is gone.
[[nodiscard]] Result<std::optional<Limits>> ReadLimits(const Owner &owner);
