#include "reports/statement.h"

#include <algorithm>
#include <cmath>

namespace {

using Kind = StatementLine::Kind;

// Sums of the same days that were added up in another order.
bool IsNothing(double amount, double of)
{
    constexpr double kNoise = 1e-7;
    return std::abs(amount) <= kNoise * std::max(1.0, std::abs(of));
}

bool HasUnrecordedUse(const StatementCredit &credit)
{
    return !IsNothing(credit.used.amount - credit.recorded.amount, credit.used.amount)
        || !IsNothing((credit.used.money - credit.recorded.money).value, credit.used.money.value);
}

class Account
{
public:
    Account(const std::vector<StatementCredit> &ofCredits,
            const StatementPeriod &inPeriod,
            double atRate,
            bool withBalance)
        : credits(ofCredits)
        , period(inPeriod)
        , rate(atRate)
        , from(inPeriod.from)
        , hasBalance(withBalance || std::ranges::any_of(ofCredits, &StatementCredit::IsOfMoney))
    { }

    [[nodiscard]] std::vector<StatementLine> Lines()
    {
        SetUnrecordedApart();
        Open();
        for (const StatementCredit &credit : credits) {
            if (!IsBehind(credit.given)) {
                Tell(credit);
            }
        }
        Close();
        return std::move(lines);
    }

private:
    [[nodiscard]] bool IsBehind(QDate day) const { return period.to.isValid() && day > period.to; }
    [[nodiscard]] bool IsBefore(QDate day) const { return from.isValid() && day < from; }
    [[nodiscard]] bool IsWithin(QDate day) const { return !IsBefore(day) && !IsBehind(day); }

    // What was used before the first day with days lies in this period.
    [[nodiscard]] bool HasUnknownDays() const
    {
        const QDate since = period.recordedSince;
        const bool isReached = from.isValid() && since.isValid() && from >= since;
        return !isReached && std::ranges::any_of(credits, [&](const StatementCredit &credit) {
            return HasUnrecordedUse(credit) && (!since.isValid() || credit.given < since);
        });
    }

    void SetUnrecordedApart()
    {
        if (!HasUnknownDays()) {
            return;
        }
        const bool hasDays = period.recordedSince.isValid() && !IsBehind(period.recordedSince);
        from = hasDays ? period.recordedSince : from;
        hasTotalsOnly = !hasDays;
        hasBalance = hasBalance && hasDays;
        for (const StatementCredit &credit : credits) {
            if (hasTotalsOnly ? !IsBehind(credit.given) : IsBefore(credit.given)) {
                TellUnrecorded(credit, period.recordedSince);
            }
        }
    }

    void TellUnrecorded(const StatementCredit &credit, QDate before)
    {
        if (!HasUnrecordedUse(credit)) {
            return;
        }
        StatementLine line {.kind = Kind::TotalOnly, .day = before, .credit = &credit};
        line.used.amount = credit.used.amount - credit.recorded.amount;
        line.used.money = credit.used.money - credit.recorded.money;
        if (IsWithin(credit.given)) {
            Change(line, BaseUnits {-line.used.money.value});
        } else {
            lines.push_back(line); // the opening balance is without it already
        }
    }

    // The day from which on a closed credit's rest is gone.
    [[nodiscard]] QDate LapseOf(const StatementCredit &credit) const
    {
        if (!credit.isClosed) {
            return {};
        }
        const bool hasExpired = credit.lastDay.isValid() && credit.lastDay < period.today;
        const QDate last = credit.lastUse.isValid() ? credit.lastUse : credit.given;
        return hasExpired ? std::max(credit.lastDay.addDays(1), last) : last;
    }

    [[nodiscard]] static BaseUnits UsedBefore(const StatementCredit &credit)
    {
        return credit.used.money - credit.within.money - credit.after.money;
    }

    [[nodiscard]] static BaseUnits RestOf(const StatementCredit &credit)
    {
        return credit.money - credit.used.money;
    }

    [[nodiscard]] BaseUnits ExactOpening() const
    {
        BaseUnits sum;
        for (const StatementCredit &credit : credits) {
            if (credit.IsOfMoney() && IsBefore(credit.given)) {
                sum += credit.money - UsedBefore(credit);
                const QDate lapse = LapseOf(credit);
                sum -= lapse.isValid() && IsBefore(lapse) ? RestOf(credit) : BaseUnits {};
            }
        }
        return sum;
    }

    [[nodiscard]] BaseUnits ExactClosing() const
    {
        BaseUnits sum;
        for (const StatementCredit &credit : credits) {
            if (credit.IsOfMoney() && !IsBehind(credit.given)) {
                sum += credit.money - (credit.used.money - credit.after.money);
                const QDate lapse = LapseOf(credit);
                sum -= lapse.isValid() && !IsBehind(lapse) ? RestOf(credit) : BaseUnits {};
            }
        }
        return sum;
    }

    void Open()
    {
        if (hasBalance) {
            balance = InCents(ExactOpening(), rate);
            lines.push_back(
                {.kind = Kind::Opening, .day = from, .isMoney = true, .balance = balance});
        }
    }

    void Change(StatementLine line, BaseUnits money)
    {
        line.isMoney = hasBalance && line.credit->IsOfMoney();
        if (line.isMoney) {
            line.change = InCents(money, rate);
            balance += line.change;
            line.balance = balance;
        }
        lines.push_back(line);
    }

    void Tell(const StatementCredit &credit)
    {
        if (IsWithin(credit.given)) {
            Change({.kind = Kind::Given, .day = credit.given, .credit = &credit}, credit.money);
            if (!hasTotalsOnly) {
                TellUnrecorded(credit, {});
            }
        }
        const double left = credit.amount - (credit.used.amount - credit.after.amount);
        const bool isLeft = !credit.isClosed && left > 0 && IsBefore(credit.given);
        if (credit.within.amount > 0 || credit.within.money.value > 0 || isLeft) {
            Change({.kind = Kind::Used,
                    .credit = &credit,
                    .used = credit.within,
                    .left = std::max(0.0, left)},
                   BaseUnits {-credit.within.money.value});
        }
        const QDate lapse = LapseOf(credit);
        const Cents rest = InCents(RestOf(credit), rate);
        if (credit.IsOfMoney() && lapse.isValid() && IsWithin(lapse) && rest.value != 0) {
            Change({.kind = Kind::Lapsed, .day = lapse, .credit = &credit},
                   BaseUnits {-RestOf(credit).value});
        }
    }

    void Close()
    {
        if (!hasBalance) {
            return;
        }
        const Cents exact = InCents(ExactClosing(), rate);
        if (exact != balance) {
            lines.push_back({.kind = Kind::Rounding,
                             .isMoney = true,
                             .change = exact - balance,
                             .balance = exact});
        }
        lines.push_back(
            {.kind = Kind::Closing, .day = period.to, .isMoney = true, .balance = exact});
    }

    const std::vector<StatementCredit> &credits;
    const StatementPeriod &period;
    double rate;
    QDate from; // of what is told by days
    bool hasBalance;
    bool hasTotalsOnly = false; // no day of the period has its days
    Cents balance;
    std::vector<StatementLine> lines;
};

} // namespace

Cents InCents(BaseUnits money, double rate)
{
    constexpr double kMost = 9e18; // what a Cents holds
    return Cents {std::llround(std::clamp(money.value * rate * 100, -kMost, kMost))};
}

std::vector<StatementLine> AccountLines(const std::vector<StatementCredit> &credits,
                                        const StatementPeriod &period,
                                        double rate,
                                        bool hasBalance)
{
    return Account(credits, period, rate, hasBalance).Lines();
}
