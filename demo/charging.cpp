#include "demo/charging.h"

#include "base/day.h"
#include "db/session.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr double kUnbounded = std::numeric_limits<double>::infinity();
constexpr double kNothing = 1e-9; // what rounding leaves of an amount
constexpr double kLeastMoney = 0.0001;

void Close(quint32 billId)
{
    Execute("UPDATE billing SET closed = 1 WHERE bill_id = (?)", billId);
}

// The pre-paid credit in the current row: bill_id, data, usage, moneydata, moneyusage.
Credit PrePaidCredit(double price)
{
    const quint32 billId = queryResult.Integer(1);
    const double money = queryResult.Amount(4);
    if (money > kLeastMoney) {
        const double left = money - queryResult.Amount(5);
        return {billId, price > 0 ? left / price : kUnbounded, price};
    }
    if (queryResult.IsEmpty(2)) {
        return {billId, kUnbounded, 0};
    }
    return {billId, queryResult.Amount(2) - queryResult.Amount(3), 0};
}

} // namespace

std::vector<Credit> CreditsOfRecord(const char *sqlText, quint32 recordId)
{
    std::vector<Credit> credits;
    RowCursor rows(sqlText, recordId);
    while (rows.Next()) {
        const double left = queryResult.Amount(2) - queryResult.Amount(3);
        credits.push_back({queryResult.Integer(1), left, 0});
    }
    return credits;
}

std::vector<Credit> PrePaidCredits(quint32 userId, double price)
{
    const QString today = Today().toString(u"yyyy.MM.dd"_s);
    std::vector<Credit> credits;
    std::vector<quint32> expired;
    {
        RowCursor rows("SELECT bill_id, data, usage, moneydata, moneyusage, unlimited, expiredday "
                       "FROM billing WHERE object_id = (?) and mode = 2 and closed = 0 "
                       "ORDER BY date, bill_id",
                       userId);
        while (rows.Next()) {
            const QString lastDay = queryResult.Text(7);
            const bool expires = !queryResult.Flag(6) && !lastDay.isEmpty();
            if (expires && lastDay < today) {
                expired.push_back(queryResult.Integer(1));
            } else {
                credits.push_back(PrePaidCredit(price));
            }
        }
    }
    std::for_each(expired.begin(), expired.end(), Close);
    return credits;
}

Charged Charge(const std::vector<Credit> &credits, double amount)
{
    bool creditLeft = false;
    for (const Credit &credit : credits) {
        const double paid = std::min(amount, std::max(credit.left, 0.0));
        if (paid > 0) {
            Execute("UPDATE billing SET usage = usage + (?), moneyusage = moneyusage + (?) "
                    "WHERE bill_id = (?)",
                    paid,
                    paid * credit.price,
                    credit.billId);
        }
        amount -= paid;
        if (credit.left - paid > kNothing) {
            creditLeft = true;
        } else {
            Close(credit.billId);
        }
    }
    return {amount, creditLeft};
}
