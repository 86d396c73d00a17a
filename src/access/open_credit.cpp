#include "access/open_credit.h"

#include "base/day.h"
#include "db/query.h"

#include <algorithm>
#include <vector>

namespace {

// A credit with neither an amount of money nor one of traffic has no bound.
bool IsLeft(const Row &row)
{
    const BaseUnits money {row.Amount(1)};
    const BaseUnits moneyUsed {row.Amount(2)};
    const Megabytes traffic {row.Amount(3)};
    const Megabytes trafficUsed {row.Amount(4)};
    const bool unbounded = money <= BaseUnits {} && traffic <= Megabytes {};
    return unbounded || money > moneyUsed || traffic > trafficUsed;
}

// Whether any row that the query gives is one that counts.
template <typename Counts>
Result<bool> AnyRow(const char *sqlText, const Counts &counts, quint32 owner)
{
    return ReadAll(sqlText, counts, owner).map([](const std::vector<bool> &rows) {
        return std::ranges::find(rows, true) != rows.end();
    });
}

// The credits without regard to their expiry, then the same ones with it. The second query is not
// asked where there is nothing to expire.
struct CreditQueries
{
    const char *open;
    const char *withExpiry;
};

template <typename Open, typename Unexpired>
Result<bool> AnyUnexpired(const CreditQueries &queries,
                          const Open &isOpen,
                          const Unexpired &isUnexpired,
                          quint32 owner)
{
    auto any = AnyRow(queries.open, isOpen, owner);
    return any && *any ? AnyRow(queries.withExpiry, isUnexpired, owner) : any;
}

constexpr OwnerText kOpenWithExpiry {
    "SELECT moneydata, moneyusage, data, usage, unlimited, expiredday FROM billing "
    "WHERE object_id = (?) AND mode=2 AND closed=0",
    "SELECT moneydata, moneyusage, data, usage, unlimited, expiredday FROM billing "
    "WHERE group_id = (?) AND mode=2 AND closed=0"};

// Of a user's credits the closed ones are read too; column 1 tells them apart.
Result<bool> AnyOfUser(const CreditQueries &queries, UserId userId)
{
    return AnyUnexpired(
        queries,
        [](const Row &row) { return !row.Flag(1); },
        [](const Row &row) {
            return !row.Flag(1) && !HasExpired(row.Integer(2) != 0, row.Text(3));
        },
        userId.value);
}

} // namespace

bool HasExpired(bool unlimited, const QString &expiryDay)
{
    return CreditExpiry {unlimited, expiryDay}.IsOver(Today());
}

Result<bool> HasCreditLeft(const Owner &owner)
{
    static constexpr OwnerText kOpen {
        "SELECT moneydata, moneyusage, data, usage FROM billing WHERE object_id = (?) AND mode=2 "
        "AND closed=0",
        "SELECT moneydata, moneyusage, data, usage FROM billing WHERE group_id = (?) AND mode=2 "
        "AND closed=0"};
    return AnyUnexpired(
        {kOpen.For(owner), kOpenWithExpiry.For(owner)},
        IsLeft,
        [](const Row &row) { return IsLeft(row) && !HasExpired(row.Integer(5) != 0, row.Text(6)); },
        owner.Number());
}

Result<std::vector<PrePaidCredit>> ReadOpenCredits(const Owner &owner)
{
    return ReadAll(
        kOpenWithExpiry.For(owner),
        [](const Row &row) {
            return PrePaidCredit {BaseUnits {row.Amount(1)},
                                  BaseUnits {row.Amount(2)},
                                  Megabytes {row.Amount(3)},
                                  Megabytes {row.Amount(4)},
                                  {row.Integer(5) != 0, row.Text(6)}};
        },
        owner.Number());
}

Result<bool> HasOpenTrafficCredit(const Owner &owner)
{
    static constexpr CreditQueries kOfUser {
        "SELECT closed FROM billing WHERE object_id = (?) AND mode=1",
        "SELECT closed, unlimited, expiredday FROM billing WHERE object_id = (?) AND mode=1"};
    static constexpr CreditQueries kOfGroup {
        "SELECT data, usage FROM billing WHERE group_id = (?) AND mode=1 AND closed=0",
        "SELECT unlimited, expiredday FROM billing WHERE group_id = (?) AND mode=1 AND closed=0"};
    if (owner.IsUser()) {
        return AnyOfUser(kOfUser, owner.User());
    }
    return AnyUnexpired(
        kOfGroup,
        [](const Row &) { return true; },
        [](const Row &row) { return !HasExpired(row.Integer(1) != 0, row.Text(2)); },
        owner.Number());
}

Result<bool> HasOpenTimeCredit(UserId userId)
{
    static constexpr CreditQueries kOfUser {
        "SELECT closed FROM billing WHERE object_id = (?) AND mode=4",
        "SELECT closed, unlimited, expiredday FROM billing WHERE object_id = (?) AND mode=4"};
    return AnyOfUser(kOfUser, userId);
}
