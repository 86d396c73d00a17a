#include "demo/charging.h"

#include "base/day.h"
#include "db/session.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr Megabytes kUnbounded {std::numeric_limits<double>::infinity()};
constexpr double kNothing = 1e-9; // what rounding leaves of an amount
constexpr BaseUnits kLeastMoney {0.0001};

void Close(BillId billId)
{
    Execute("UPDATE billing SET closed = 1 WHERE bill_id = (?)", billId);
}

// The pre-paid credit in the current row: bill_id, data, usage, moneydata, moneyusage.
Credit<Megabytes> PrePaidCredit(double price)
{
    const auto billId = queryResult.Id<BillId>(1);
    const BaseUnits money {queryResult.Amount(4)};
    if (money > kLeastMoney) {
        const BaseUnits left = money - BaseUnits {queryResult.Amount(5)};
        return {billId, price > 0 ? Megabytes {left.value / price} : kUnbounded, price};
    }
    if (queryResult.IsEmpty(2)) {
        return {billId, kUnbounded, 0};
    }
    return {billId, Megabytes {queryResult.Amount(2)} - Megabytes {queryResult.Amount(3)}, 0};
}

template <typename Unit, typename RecordId>
std::vector<Credit<Unit>> ReadCredits(const char *sqlText, RecordId record)
{
    std::vector<Credit<Unit>> credits;
    RowCursor rows(sqlText, record);
    while (rows.Next()) {
        const Unit left = Unit {queryResult.Amount(2)} - Unit {queryResult.Amount(3)};
        credits.push_back({queryResult.Id<BillId>(1), left, 0});
    }
    return credits;
}

template <typename Unit>
Charged<Unit> ChargeEach(const std::vector<Credit<Unit>> &credits, Unit amount)
{
    bool creditLeft = false;
    for (const Credit<Unit> &credit : credits) {
        const Unit paid = std::min(amount, std::max(credit.left, Unit {}));
        if (paid > Unit {}) {
            Execute("UPDATE billing SET usage = usage + (?), moneyusage = moneyusage + (?) "
                    "WHERE bill_id = (?)",
                    paid,
                    BaseUnits {paid.value * credit.price},
                    credit.billId);
        }
        amount -= paid;
        if (credit.left - paid > Unit {kNothing}) {
            creditLeft = true;
        } else {
            Close(credit.billId);
        }
    }
    return {amount, creditLeft};
}

} // namespace

std::vector<Credit<Megabytes>> CreditsOfRecord(const char *sqlText, TrafficRecordId record)
{
    return ReadCredits<Megabytes>(sqlText, record);
}

std::vector<Credit<Hours>> CreditsOfRecord(const char *sqlText, TimeRecordId record)
{
    return ReadCredits<Hours>(sqlText, record);
}

std::vector<Credit<Megabytes>> PrePaidCredits(UserId userId, double price)
{
    const QString today = Today().toString(u"yyyy.MM.dd"_s);
    std::vector<Credit<Megabytes>> credits;
    std::vector<BillId> expired;
    {
        RowCursor rows("SELECT bill_id, data, usage, moneydata, moneyusage, unlimited, expiredday "
                       "FROM billing WHERE object_id = (?) and mode = 2 and closed = 0 "
                       "ORDER BY date, bill_id",
                       userId);
        while (rows.Next()) {
            const QString lastDay = queryResult.Text(7);
            const bool expires = !queryResult.Flag(6) && !lastDay.isEmpty();
            if (expires && lastDay < today) {
                expired.push_back(queryResult.Id<BillId>(1));
            } else {
                credits.push_back(PrePaidCredit(price));
            }
        }
    }
    std::for_each(expired.begin(), expired.end(), Close);
    return credits;
}

Charged<Megabytes> Charge(const std::vector<Credit<Megabytes>> &credits, Megabytes amount)
{
    return ChargeEach(credits, amount);
}

Charged<Hours> Charge(const std::vector<Credit<Hours>> &credits, Hours amount)
{
    return ChargeEach(credits, amount);
}
