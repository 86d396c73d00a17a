// Limits of the accounting period and the price of traffic: stored, staged, and read again.
#pragma once

#include "access/owner.h"

#include <optional>

struct Limits
{
    quint32 period = 0; // 1 day, 2 month (db/value_codes.h)
    quint32 traffic = 0; // megabytes
    quint32 time = 0; // hours; users only
    bool ownPrice = false; // false: the global price holds
    double price = 0.0; // units of the currency per megabyte

    bool operator==(const Limits &) const = default;
};

// The stored limits with what the administrator changed laid over them.
struct LimitsDraft
{
    Limits stored; // as last read
    std::optional<quint32> period;
    std::optional<quint32> traffic;
    std::optional<quint32> time;
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

[[nodiscard]] LimitFields FieldsFor(quint32 accountingMode);

// Kept: the period is that of the traffic limit, for a time limit too.
[[nodiscard]] Limits ReadLimits(const Owner &owner);

// Stages a limit and notes whether it is above the stored one, which is read again for that.
void StageTrafficLimit(const Owner &owner, quint32 megabytes, LimitsDraft &draft);
void StageTimeLimit(const Owner &user, quint32 hours, LimitsDraft &draft);
