// Amounts with their unit in the type: megabytes are never added to hours, nor handed over for them.
#pragma once

#include <QtGlobal>

#include <compare>

template <typename Tag, typename Number>
struct Quantity
{
    Number value {};

    constexpr Quantity() = default;
    explicit constexpr Quantity(Number number) : value(number) { }

    constexpr bool operator==(const Quantity &) const = default;
    constexpr auto operator<=>(const Quantity &other) const { return value <=> other.value; }

    constexpr Quantity &operator+=(Quantity other)
    {
        value += other.value;
        return *this;
    }
    constexpr Quantity &operator-=(Quantity other)
    {
        value -= other.value;
        return *this;
    }
    friend constexpr Quantity operator+(Quantity left, Quantity right) { return left += right; }
    friend constexpr Quantity operator-(Quantity left, Quantity right) { return left -= right; }
};

// What was used or given.
using Megabytes = Quantity<struct MegabytesTag, double>;
using Hours = Quantity<struct HoursTag, double>;
using BaseUnits = Quantity<struct BaseUnitsTag, double>; // money as it is stored

// Limits of an accounting period.
using WholeMegabytes = Quantity<struct WholeMegabytesTag, quint32>;
using WholeHours = Quantity<struct WholeHoursTag, quint32>;

// A limit as what is used of it is counted.
[[nodiscard]] constexpr Megabytes AmountOf(WholeMegabytes limit)
{
    return Megabytes {static_cast<double>(limit.value)};
}

[[nodiscard]] constexpr Hours AmountOf(WholeHours limit)
{
    return Hours {static_cast<double>(limit.value)};
}
