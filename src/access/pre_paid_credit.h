// A pre-paid credit as it is stored.
#pragma once

#include "access/credit_expiry.h"
#include "db/quantities.h"

// An open pre-paid credit: of money where it has any, else of traffic, else without a bound.
struct PrePaidCredit
{
    BaseUnits money;
    BaseUnits moneyUsed;
    Megabytes traffic;
    Megabytes trafficUsed;
    CreditExpiry expiry;

    bool operator==(const PrePaidCredit &) const = default;
};
