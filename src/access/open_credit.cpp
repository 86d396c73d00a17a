#include "access/open_credit.h"

#include "db/session.h"

namespace {

// A credit with neither an amount of money nor one of traffic has no bound.
bool IsLeftInBuffer()
{
    const BaseUnits money {queryResult.Amount(1)};
    const BaseUnits moneyUsed {queryResult.Amount(2)};
    const Megabytes traffic {queryResult.Amount(3)};
    const Megabytes trafficUsed {queryResult.Amount(4)};
    const bool unbounded = money <= BaseUnits {} && traffic <= Megabytes {};
    return unbounded || money > moneyUsed || traffic > trafficUsed;
}

} // namespace

bool HasCreditLeft(const Owner &owner)
{
    static constexpr OwnerText kOpenCredits = {
        "SELECT moneydata, moneyusage, data, usage FROM billing WHERE object_id = (?) AND mode=2 "
        "AND closed=0",
        "SELECT moneydata, moneyusage, data, usage FROM billing WHERE group_id = (?) AND mode=2 "
        "AND closed=0"};
    bool left = false;
    RowCursor rows(kOpenCredits.For(owner), owner.Number());
    while (rows.Next()) {
        left = left || IsLeftInBuffer();
    }
    return left;
}
