#include "metering/charging.h"

#include "metering/bytes.h"

#include <algorithm>
#include <limits>

namespace {

constexpr Hours kLeastTime {0.001 / 3600}; // what rounding leaves of an amount
constexpr Megabytes kUnbounded {std::numeric_limits<double>::infinity()};

// What may be used of an amount: of traffic, whole bytes.
Megabytes Usable(Megabytes amount)
{
    return amount == kUnbounded ? amount : MegabytesOf(WholeBytesIn(amount));
}

Hours Usable(Hours amount)
{
    return amount > kLeastTime ? amount : Hours {};
}

// Takes `amount` from credits in their order, and those that are used up or over out of both lists.
// `leftOf` gives what a credit still pays for, `pay` notes what it paid. Gives what nothing paid for.
template <typename Unit, typename Credit, typename LeftOf, typename Pay>
Unit TakeFrom(std::vector<Credit> &credits,
              std::vector<BillId> &bills,
              Unit amount,
              const LeftOf &leftOf,
              const Pay &pay)
{
    std::vector<Credit> open;
    std::vector<BillId> openBills;
    for (size_t i = 0; i < credits.size(); ++i) {
        Credit &credit = credits[i];
        const Unit paid = std::min(amount, leftOf(credit));
        if (paid > Unit {}) {
            pay(credit, bills[i], paid);
            amount -= paid;
        }
        if (leftOf(credit) > Unit {}) {
            open.push_back(credit);
            openBills.push_back(bills[i]);
        }
    }
    credits = std::move(open);
    bills = std::move(openBills);
    return amount;
}

// The credits of the one list that are missing in the other.
std::vector<BillId> Missing(const std::vector<BillId> &before, const std::vector<BillId> &after)
{
    std::vector<BillId> missing;
    std::ranges::copy_if(before, std::back_inserter(missing), [&](BillId bill) {
        return std::ranges::find(after, bill) == after.end();
    });
    return missing;
}

void Close(std::vector<BillId> &bills, std::vector<BillId> &closed)
{
    closed.insert(closed.end(), bills.begin(), bills.end());
    bills.clear();
}

template <typename Unit>
Charge ChargeLimit(LimitRules<Unit> &rules, LimitCredits &credits, Unit amount, QDate day)
{
    std::vector<BillId> &bills = credits.open;
    Charge charge;
    const std::vector<BillId> before = bills;
    const Unit used = rules.use ? rules.use->used : Unit {};
    const Unit covered = std::min(amount, std::max(rules.limit - used, Unit {}));
    const Unit unpaid = TakeFrom(
        rules.credits,
        bills,
        amount - covered,
        [day](const LimitCredit<Unit> &credit) {
            return credit.expiry.IsOver(day) ? Unit {} : Usable(credit.given - credit.used);
        },
        [&charge](LimitCredit<Unit> &credit, BillId bill, Unit paid) {
            credit.used += paid;
            charge.payments.push_back({bill, paid.value, {}, 0});
        });
    charge.counted = (covered + unpaid).value;
    charge.closed = Missing(before, bills);
    Close(credits.ended, charge.closed);
    if (rules.use) {
        rules.use->used += covered + unpaid;
    }
    return charge;
}

Megabytes LeftOfCredit(const PrePaidCredit &credit, double price, QDate day)
{
    if (credit.expiry.IsOver(day)) {
        return {};
    }
    switch (credit.Kind()) {
    case PrePaidKind::Money: {
        const BaseUnits money = credit.money - credit.moneyUsed;
        return price > 0 ? Usable(Megabytes {money.value / price}) : kUnbounded;
    }
    case PrePaidKind::Traffic:
        return Usable(credit.traffic - credit.trafficUsed);
    case PrePaidKind::Unbounded:
        break;
    }
    return kUnbounded;
}

} // namespace

Charge ChargeTraffic(Account &account, Megabytes amount, QDate day)
{
    return ChargeLimit(account.rules.traffic, account.trafficCredits, amount, day);
}

Charge ChargeTime(Account &account, Hours amount, QDate day)
{
    return ChargeLimit(account.rules.time, account.timeCredits, amount, day);
}

Charge ChargePrePaid(Account &account, Megabytes amount, QDate day)
{
    Charge charge;
    const double price = account.rules.price;
    const std::vector<BillId> before = account.prePaidCredits;
    (void)TakeFrom(
        account.rules.credits,
        account.prePaidCredits,
        amount,
        [price, day](const PrePaidCredit &credit) { return LeftOfCredit(credit, price, day); },
        [price, &charge](PrePaidCredit &credit, BillId bill, Megabytes paid) {
            const double paidPrice = credit.Kind() == PrePaidKind::Money ? price : 0;
            const BaseUnits money {paid.value * paidPrice};
            credit.trafficUsed += paid;
            credit.moneyUsed += money;
            charge.payments.push_back({bill, paid.value, money, paidPrice});
        });
    charge.closed = Missing(before, account.prePaidCredits);
    return charge;
}

bool EndTraffic(Account &account, QDate day, std::vector<BillId> &closed)
{
    OwnerRules &rules = account.rules;
    const auto left = LeftOf(AccountFindings(rules, day).facts, false, rules.price).traffic;
    if (!left || *left > kLargestPacket) {
        return false;
    }
    if (rules.traffic.use) {
        rules.traffic.use->reached = true;
    }
    rules.traffic.credits.clear();
    Close(account.trafficCredits.open, closed);
    if (rules.mode == AccountingMode::Provider) {
        rules.credits.clear();
        Close(account.prePaidCredits, closed);
    }
    return true;
}
