// What a window has staged of an account and not yet stored.
#pragma once

#include "db/ids.h"
#include "db/quantities.h"

#include <QString>

#include <optional>
#include <variant>
#include <vector>

// The kinds of credit. The numbers are those of groups.credit.
enum class CreditKind : quint32 {
    Traffic = 1, // megabytes
    Money = 2, // base units
    Unlimited = 3, // no amount at all
    Time = 4, // hours; in the limit modes only
};

// In place of an amount.
struct Unbounded
{
    constexpr auto operator<=>(const Unbounded &) const = default;
};

// How much a credit gives; what it is an amount of is the credit's kind. Money is in base units,
// whatever currency it was typed in.
using CreditAmount = std::variant<Megabytes, BaseUnits, Unbounded, Hours>;

[[nodiscard]] CreditKind KindOf(const CreditAmount &amount);

// The amount without its unit; 0 for none.
[[nodiscard]] double NumberOf(const CreditAmount &amount);

struct StagedCredit
{
    CreditAmount amount;
    bool neverExpires = true; // the limit modes look at neither this nor the day
    QString expiryDay; // "%Y.%m.%d"

    [[nodiscard]] CreditKind Kind() const { return KindOf(amount); }
    [[nodiscard]] bool MayUnblock() const { return Kind() != CreditKind::Unlimited; }
    bool operator==(const StagedCredit &) const = default;
};

struct StagedAccount
{
    std::vector<StagedCredit> credits; // to be written, in this order; a sheet stages at most one
    std::vector<BillId> closed; // the stored credits to be closed

    bool operator==(const StagedAccount &) const = default;
    [[nodiscard]] bool IsEmpty() const { return credits.empty() && closed.empty(); }
    [[nodiscard]] bool MayUnblock() const; // whether one of the credits may lift the owner's block
    void Clear() { *this = {}; }
};
