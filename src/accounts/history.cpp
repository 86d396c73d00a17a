#include "accounts/history.h"

#include "access/access_mode.h"
#include "access/open_credit.h"
#include "accounts/credit_entry.h"
#include "base/amount_text.h"
#include "base/day.h"
#include "db/query.h"

#include <QCoreApplication>

#include <algorithm>
#include <type_traits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(History)
};

const char *ModeClause(AccountingMode ownerMode)
{
    switch (ownerMode) {
    case AccountingMode::Traffic:
        return " AND mode=1";
    case AccountingMode::Provider:
        return " AND mode=2";
    case AccountingMode::Time:
        return " AND mode=4";
    case AccountingMode::TrafficAndTime:
        return " AND (mode=1 OR mode=4)";
    default:
        return "";
    }
}

// Written as it stands, also when there is no such day.
QString StartOf(Day day)
{
    return QString::asprintf("%02d.%02d.%04d 00:00:00", day.day, day.month, day.year);
}

std::optional<QString> SinceOf(HistoryPeriod period, QDate today)
{
    switch (period) {
    case HistoryPeriod::Today:
        return StartOf(DayOf(today));
    case HistoryPeriod::LastWeek:
        return StartOf(FirstDayOfLastWeek(today));
    case HistoryPeriod::LastMonth:
        return StartOf(FirstDayOfLastMonth(today));
    case HistoryPeriod::AllRecords:
        break;
    }
    return std::nullopt;
}

// Oldest first: the engines hand the rows of the one statement over in orders of their own.
Result<std::vector<BillId>> SelectedCredits(const HistoryFilter &filter)
{
    const auto [text, since] = BuildFilter(filter, Today());
    const auto billId = [](const Row &row) { return row.Id<BillId>(1); };
    auto ids = since ? ReadAll(text.constData(), billId, filter.owner.Number(), *since)
                     : ReadAll(text.constData(), billId, filter.owner.Number());
    if (ids) {
        std::sort(ids->begin(), ids->end());
    }
    return ids;
}

// A date and time as the engines write it; fractions of a second are left out.
QDateTime MomentFrom(const QString &text)
{
    return {DateIn(text, u'-'), QTime::fromString(text.mid(11, 8), u"HH:mm:ss"_s)};
}

// A row of date, data, closed, usage, mode.
HistoryRow LimitCredit(const Row &row)
{
    HistoryRow credit;
    credit.made = MomentFrom(row.Text(1));
    if (row.Code<BillingMode>(5) == BillingMode::Time) {
        credit.amount = Hours {row.Amount(2)};
        credit.used = Hours {row.Amount(4)};
    } else {
        credit.amount = Megabytes {row.Amount(2)};
        credit.used = Megabytes {row.Amount(4)};
    }
    credit.status = row.Flag(3) ? HistoryStatus::Closed : HistoryStatus::Active;
    return credit;
}

// A row of date, closed, usage, unlimited, expiredday, moneydata, moneyusage, data.
HistoryRow PrepaidCredit(const Row &row)
{
    HistoryRow credit;
    credit.made = MomentFrom(row.Text(1));
    const bool unlimited = row.Integer(4) != 0;
    const BaseUnits money {row.Amount(6)};
    credit.usedMegabytes = Megabytes {row.Amount(3)};
    credit.used = credit.usedMegabytes;
    credit.expiryDay = unlimited ? Words::tr("Unlimited") : row.Text(5);
    if (money > kLeastMoney) {
        credit.amount = money;
        credit.used = BaseUnits {row.Amount(7)};
    } else if (row.IsEmpty(8)) {
        credit.amount = Unbounded {};
    } else {
        credit.amount = Megabytes {row.Amount(8)};
    }
    if (row.Flag(2)) {
        credit.status = HistoryStatus::Closed;
    } else if (HasExpired(unlimited, credit.expiryDay)) {
        credit.status = HistoryStatus::Expired;
    }
    return credit;
}

// Nothing when the credit is gone by now.
Result<std::optional<HistoryRow>> ReadCredit(BillId billId, AccountingMode ownerMode)
{
    if (IsLimitMode(ownerMode)) {
        return ReadOne("SELECT date, data, closed, usage, mode FROM billing WHERE bill_id = (?)",
                       LimitCredit,
                       billId);
    }
    return ReadOne("SELECT date, closed, usage, unlimited, expiredday, moneydata, moneyusage, "
                   "data FROM billing WHERE bill_id = (?)",
                   PrepaidCredit,
                   billId);
}

QString StatusCellText(HistoryStatus status)
{
    switch (status) {
    case HistoryStatus::New:
        return Words::tr("New");
    case HistoryStatus::Active:
        return Words::tr("Active");
    case HistoryStatus::Expired:
        return Words::tr("Expired");
    case HistoryStatus::Closed:
        return Words::tr("Closed");
    }
    return {};
}

QString TypeText(CreditKind kind)
{
    switch (kind) {
    case CreditKind::Traffic:
        return Words::tr("Mbytes");
    case CreditKind::Money:
        return Words::tr("Money");
    case CreditKind::Unlimited:
        return Words::tr("Unlim");
    case CreditKind::Time:
        return Words::tr("hr");
    }
    return {};
}

struct Balances
{
    Megabytes traffic;
    BaseUnits money;
    Hours time;

    // Adds what is left of a credit and returns the sum that it belongs to. An unlimited one adds
    // nothing and shows the megabytes'.
    CreditAmount AddRest(const HistoryRow &row)
    {
        switch (KindOf(row.amount)) {
        case CreditKind::Traffic:
            return Add(traffic, row);
        case CreditKind::Money:
            return Add(money, row);
        case CreditKind::Time:
            return Add(time, row);
        case CreditKind::Unlimited:
            break;
        }
        return traffic;
    }

private:
    template <typename Unit>
    static Unit Add(Unit &sum, const HistoryRow &row)
    {
        if (row.status != HistoryStatus::Closed) {
            sum += std::get<Unit>(row.amount) - std::get<Unit>(row.used);
        }
        return sum;
    }
};

// Of a credit not yet used, in the amount's unit.
CreditAmount NothingOf(const CreditAmount &amount)
{
    return std::visit(
        [](auto given) -> CreditAmount {
            if constexpr (std::is_same_v<decltype(given), Unbounded>) {
                return Megabytes {};
            } else {
                return decltype(given) {};
            }
        },
        amount);
}

// Money is shown at `rate`.
QString ShownAmount(const CreditAmount &amount, double rate)
{
    const double factor = KindOf(amount) == CreditKind::Money ? rate : 1.0;
    return AmountText(NumberOf(amount) * factor);
}

} // namespace

QStringList HistoryPeriodNames()
{
    return {Words::tr("All records"),
            Words::tr("Today"),
            Words::tr("Last week"),
            Words::tr("Last month")};
}

FilterStatement BuildFilter(const HistoryFilter &filter, QDate today)
{
    FilterStatement built;
    built.text = filter.owner.IsUser() ? "SELECT bill_id FROM billing WHERE object_id = (?)"
                                       : "SELECT bill_id FROM billing WHERE group_id = (?)";
    built.text += ModeClause(filter.ownerMode);
    if (filter.openOnly) {
        built.text += " AND closed=0";
    }
    built.since = SinceOf(filter.period, today);
    if (built.since) {
        built.text += " AND date >= (?)";
    }
    return built;
}

Result<std::vector<HistoryRow>> ReadHistory(const HistoryFilter &filter)
{
    const auto selected = SelectedCredits(filter);
    if (!selected) {
        return tl::unexpected(selected.error());
    }
    std::vector<HistoryRow> rows;
    for (const BillId billId : *selected) {
        auto credit = ReadCredit(billId, filter.ownerMode);
        if (!credit) {
            return tl::unexpected(std::move(credit.error()));
        }
        if (*credit) {
            rows.push_back(**std::move(credit));
            rows.back().billId = billId;
        }
    }
    return rows;
}

HistoryRow HistoryRowOf(const StagedCredit &credit)
{
    HistoryRow row;
    row.made = {Today(), QTime::currentTime()};
    row.amount = credit.amount;
    row.used = NothingOf(credit.amount);
    row.expiryDay = credit.neverExpires ? Words::tr("Unlimited") : credit.expiryDay;
    row.status = HistoryStatus::New;
    return row;
}

void AddUpBalances(std::vector<HistoryRow> &rows)
{
    Balances balances;
    for (HistoryRow &row : rows) {
        row.balance = balances.AddRest(row);
    }
}

QStringList HistoryCells(const HistoryRow &row, AccountingMode ownerMode, double rate)
{
    const CreditKind kind = KindOf(row.amount);
    QStringList cells {row.made.toString(u"dd.MM.yyyy"_s),
                       row.made.toString(u"HH:mm:ss"_s),
                       kind == CreditKind::Unlimited ? Words::tr("Unlim")
                                                     : ShownAmount(row.amount, rate),
                       ShownAmount(row.used, rate),
                       ShownAmount(row.balance, rate),
                       TypeText(kind)};
    if (ownerMode == AccountingMode::Provider) {
        cells << AmountText(row.usedMegabytes.value) << row.expiryDay;
    }
    return cells << StatusCellText(row.status);
}
