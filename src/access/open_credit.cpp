#include "access/open_credit.h"

#include "db/session.h"

namespace {

// A credit with neither an amount of money nor one of traffic has no bound.
bool IsLeftInBuffer()
{
    const double money = queryResult.Amount(1);
    const double moneyUsed = queryResult.Amount(2);
    const double traffic = queryResult.Amount(3);
    const double trafficUsed = queryResult.Amount(4);
    const bool unbounded = money <= 0.0 && traffic <= 0.0;
    return unbounded || money > moneyUsed || traffic > trafficUsed;
}

} // namespace

bool HasCreditLeft(const char *sqlText, quint32 ownerId)
{
    bool left = false;
    RowCursor rows(sqlText, ownerId);
    while (rows.Next()) {
        left = left || IsLeftInBuffer();
    }
    return left;
}
