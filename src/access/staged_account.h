// What a window has staged of an account and not yet stored.
#pragma once

#include <QString>

#include <optional>
#include <vector>

// The kinds of credit. The numbers are those of groups.credit and of UnitName (accounts/currency.h).
enum class CreditKind : quint32 {
    Traffic = 1, // megabytes
    Money = 2, // base units
    Unlimited = 3, // no amount at all
    Time = 4, // hours; in the limit modes only
};

struct StagedCredit
{
    CreditKind kind = CreditKind::Traffic;
    double amount = 0.0; // megabytes, hours, or base units whatever currency it was typed in
    bool neverExpires = true; // the limit modes look at neither this nor the day
    QString expiryDay; // "%Y.%m.%d"

    bool operator==(const StagedCredit &) const = default;
};

struct StagedAccount
{
    std::vector<StagedCredit> credits; // to be written, in this order; a sheet stages at most one
    std::vector<quint32> closed; // bill ids of the stored credits to be closed

    bool operator==(const StagedAccount &) const = default;
    [[nodiscard]] bool IsEmpty() const { return credits.empty() && closed.empty(); }
    void Clear() { *this = {}; }
};
