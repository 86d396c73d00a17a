// Bytes as the gateway counts them, and the megabytes that the accounts hold of them.
#pragma once

#include "db/quantities.h"

#include <algorithm>
#include <cmath>

constexpr double kBytesOfMegabyte = 1 << 20;

// Exact, as are sums of such amounts.
[[nodiscard]] inline Megabytes MegabytesOf(quint64 bytes)
{
    return Megabytes {static_cast<double>(bytes) / kBytesOfMegabyte};
}

// The nearest number: amounts are read from texts of 15 digits.
[[nodiscard]] inline quint64 BytesOf(Megabytes amount)
{
    return static_cast<quint64>(std::max(std::round(amount.value * kBytesOfMegabyte), 0.0));
}

// What may be used of an amount that need not be of whole bytes.
[[nodiscard]] inline quint64 WholeBytesIn(Megabytes amount)
{
    constexpr double kLostDigits = 0.05; // of a byte, in such a text of up to 100 terabytes
    constexpr double kMost = 9e18;
    const double bytes = std::floor(amount.value * kBytesOfMegabyte + kLostDigits);
    return static_cast<quint64>(std::clamp(bytes, 0.0, kMost));
}
