// A pre-paid credit as it is stored.
#pragma once

#include "access/credit_expiry.h"
#include "db/quantities.h"

enum class PrePaidKind { Money, Traffic, Unbounded };

// An open pre-paid credit: of money where it has any, else of traffic, else without a bound.
struct PrePaidCredit
{
    BaseUnits money;
    BaseUnits moneyUsed;
    Megabytes traffic;
    Megabytes trafficUsed;
    CreditExpiry expiry;

    [[nodiscard]] constexpr PrePaidKind Kind() const
    {
        constexpr BaseUnits kLeast {0.0001}; // a credit of less is not one of money
        if (money > kLeast) {
            return PrePaidKind::Money;
        }
        return traffic > Megabytes {} ? PrePaidKind::Traffic : PrePaidKind::Unbounded;
    }

    bool operator==(const PrePaidCredit &) const = default;
};
