#include "demo/charging.h"

#include "base/day.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

constexpr Megabytes kUnbounded {std::numeric_limits<double>::infinity()};
constexpr double kNothing = 1e-9; // what rounding leaves of an amount
constexpr BaseUnits kLeastMoney {0.0001};

void Close(Books &books, BillId billId)
{
    books.Write("UPDATE billing SET closed = 1 WHERE bill_id = (?)", billId);
}

struct PrePaid
{
    Credit<Megabytes> credit;
    bool expires = false;
    QString lastDay;

    [[nodiscard]] bool IsOver(const QString &today) const { return expires && lastDay < today; }
};

// A row of bill_id, data, usage, moneydata, moneyusage.
Credit<Megabytes> CreditIn(const Row &row, double price)
{
    const auto billId = row.Id<BillId>(1);
    const BaseUnits money {row.Amount(4)};
    if (money > kLeastMoney) {
        const BaseUnits left = money - BaseUnits {row.Amount(5)};
        return {billId, price > 0 ? Megabytes {left.value / price} : kUnbounded, price};
    }
    if (row.IsEmpty(2)) {
        return {billId, kUnbounded, 0};
    }
    return {billId, Megabytes {row.Amount(2)} - Megabytes {row.Amount(3)}, 0};
}

template <typename Unit, typename RecordId>
std::vector<Credit<Unit>> ReadCredits(Books &books, const char *sqlText, RecordId record)
{
    return books.Take(ReadAll(
        sqlText,
        [](const Row &row) {
            const Unit left = Unit {row.Amount(2)} - Unit {row.Amount(3)};
            return Credit<Unit> {row.Id<BillId>(1), left, 0};
        },
        record));
}

template <typename Unit>
Charged<Unit> ChargeEach(Books &books, const std::vector<Credit<Unit>> &credits, Unit amount)
{
    bool creditLeft = false;
    for (const Credit<Unit> &credit : credits) {
        const Unit paid = std::min(amount, std::max(credit.left, Unit {}));
        if (paid > Unit {}) {
            books.Write("UPDATE billing SET usage = usage + (?), moneyusage = moneyusage + (?) "
                        "WHERE bill_id = (?)",
                        paid,
                        BaseUnits {paid.value * credit.price},
                        credit.billId);
        }
        amount -= paid;
        if (credit.left - paid > Unit {kNothing}) {
            creditLeft = true;
        } else {
            Close(books, credit.billId);
        }
    }
    return {amount, creditLeft};
}

} // namespace

std::vector<Credit<Megabytes>>
CreditsOfRecord(Books &books, const char *sqlText, TrafficRecordId record)
{
    return ReadCredits<Megabytes>(books, sqlText, record);
}

std::vector<Credit<Hours>> CreditsOfRecord(Books &books, const char *sqlText, TimeRecordId record)
{
    return ReadCredits<Hours>(books, sqlText, record);
}

std::vector<Credit<Megabytes>> PrePaidCredits(Books &books, UserId userId, double price)
{
    const auto open = books.Take(ReadAll(
        "SELECT bill_id, data, usage, moneydata, moneyusage, unlimited, expiredday "
        "FROM billing WHERE object_id = (?) and mode = 2 and closed = 0 "
        "ORDER BY date, bill_id",
        [&](const Row &row) {
            return PrePaid {CreditIn(row, price), !row.Flag(6) && !row.IsEmpty(7), row.Text(7)};
        },
        userId));
    const QString today = Today().toString(u"yyyy.MM.dd"_s);
    std::vector<Credit<Megabytes>> credits;
    for (const PrePaid &each : open) {
        if (each.IsOver(today)) {
            Close(books, each.credit.billId);
        } else {
            credits.push_back(each.credit);
        }
    }
    return credits;
}

Charged<Megabytes>
Charge(Books &books, const std::vector<Credit<Megabytes>> &credits, Megabytes amount)
{
    return ChargeEach(books, credits, amount);
}

Charged<Hours> Charge(Books &books, const std::vector<Credit<Hours>> &credits, Hours amount)
{
    return ChargeEach(books, credits, amount);
}
