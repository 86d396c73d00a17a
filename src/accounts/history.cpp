#include "accounts/history.h"

#include "access/access_mode.h"
#include "accounts/credit_entry.h"
#include "accounts/credit_list.h"
#include "base/amount_text.h"
#include "base/day.h"
#include "db/session.h"

#include <algorithm>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

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
std::vector<BillId> SelectedCredits(const HistoryFilter &filter)
{
    const auto [text, since] = BuildFilter(filter, Today());
    BindValue(1, filter.owner.Number());
    if (since) {
        BindValue(2, *since);
    }
    std::vector<BillId> ids;
    RowCursor rows(text.constData());
    while (rows.Next()) {
        ids.push_back(queryResult.Id<BillId>(1));
    }
    std::sort(ids.begin(), ids.end());
    return ids;
}

// A date and time as the engines write it; fractions of a second are left out.
QDateTime MadeInBuffer()
{
    const QString text = queryResult.Text(1);
    return {QDate::fromString(text.left(10), Qt::ISODate),
            QTime::fromString(text.mid(11, 8), u"HH:mm:ss"_s)};
}

bool IsRead(int result)
{
    return result == kQuerySuccess || result == kQuerySuccessWithInfo;
}

std::optional<HistoryRow> ReadLimitRow(BillId billId)
{
    if (!IsRead(RunQuery("SELECT date, data, closed, usage, mode FROM billing WHERE bill_id = (?)",
                         FetchMode::One,
                         billId))) {
        return std::nullopt;
    }
    HistoryRow row;
    row.billId = billId;
    row.made = MadeInBuffer();
    if (queryResult.Code<BillingMode>(5) == BillingMode::Time) {
        row.amount = Hours {queryResult.Amount(2)};
        row.used = Hours {queryResult.Amount(4)};
    } else {
        row.amount = Megabytes {queryResult.Amount(2)};
        row.used = Megabytes {queryResult.Amount(4)};
    }
    row.status = queryResult.Flag(3) ? HistoryStatus::Closed : HistoryStatus::Active;
    return row;
}

std::optional<HistoryRow> ReadPrepaidRow(BillId billId)
{
    if (!IsRead(
            RunQuery("SELECT date, closed, usage, unlimited, expiredday, moneydata, moneyusage, "
                     "data FROM billing WHERE bill_id = (?)",
                     FetchMode::One,
                     billId))) {
        return std::nullopt;
    }
    HistoryRow row;
    row.billId = billId;
    row.made = MadeInBuffer();
    const bool unlimited = queryResult.Integer(4) != 0;
    const BaseUnits money {queryResult.Amount(6)};
    row.usedMegabytes = Megabytes {queryResult.Amount(3)};
    row.used = row.usedMegabytes;
    row.expiryDay = unlimited ? u"Unlimited"_s : queryResult.Text(5);
    if (money > kLeastMoney) {
        row.amount = money;
        row.used = BaseUnits {queryResult.Amount(7)};
    } else if (queryResult.IsEmpty(8)) {
        row.amount = Unbounded {};
    } else {
        row.amount = Megabytes {queryResult.Amount(8)};
    }
    if (queryResult.Flag(2)) {
        row.status = HistoryStatus::Closed;
    } else if (HasExpired(unlimited, row.expiryDay)) {
        row.status = HistoryStatus::Expired;
    }
    return row;
}

QString StatusCellText(HistoryStatus status)
{
    switch (status) {
    case HistoryStatus::New:
        return u"New"_s;
    case HistoryStatus::Active:
        return u"Active"_s;
    case HistoryStatus::Expired:
        return u"Expired"_s;
    case HistoryStatus::Closed:
        return u"Closed"_s;
    }
    return {};
}

QString TypeText(CreditKind kind)
{
    switch (kind) {
    case CreditKind::Traffic:
        return u"Mbytes"_s;
    case CreditKind::Money:
        return u"Money"_s;
    case CreditKind::Unlimited:
        return u"Unlim"_s;
    case CreditKind::Time:
        return u"hr"_s;
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
    return {u"All records"_s, u"Today"_s, u"Last week"_s, u"Last month"_s};
}

HistoryPeriod HistoryPeriodFrom(const QString &name)
{
    const auto index = HistoryPeriodNames().indexOf(name);
    return index < 0 ? HistoryPeriod::AllRecords : static_cast<HistoryPeriod>(index);
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

std::vector<HistoryRow> ReadHistory(const HistoryFilter &filter)
{
    std::vector<HistoryRow> rows;
    for (const BillId billId : SelectedCredits(filter)) {
        // One that is gone by now is left out.
        if (auto row =
                IsLimitMode(filter.ownerMode) ? ReadLimitRow(billId) : ReadPrepaidRow(billId)) {
            rows.push_back(*std::move(row));
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
    row.expiryDay = credit.neverExpires ? u"Unlimited"_s : credit.expiryDay;
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

QStringList HistoryColumns(AccountingMode ownerMode)
{
    QStringList columns {
        u"N"_s, u"Date"_s, u"Time"_s, u"Credit"_s, u"Used"_s, u"Balance"_s, u"Type"_s};
    if (ownerMode == AccountingMode::Provider) {
        columns << u"Used, Mb"_s << u"Expiry date"_s;
    }
    return columns << u"Status"_s;
}

QStringList HistoryCells(const HistoryRow &row, AccountingMode ownerMode, double rate)
{
    const CreditKind kind = KindOf(row.amount);
    QStringList cells {row.made.toString(u"dd.MM.yyyy"_s),
                       row.made.toString(u"HH:mm:ss"_s),
                       kind == CreditKind::Unlimited ? u"Unlim"_s : ShownAmount(row.amount, rate),
                       ShownAmount(row.used, rate),
                       ShownAmount(row.balance, rate),
                       TypeText(kind)};
    if (ownerMode == AccountingMode::Provider) {
        cells << AmountText(row.usedMegabytes.value) << row.expiryDay;
    }
    return cells << StatusCellText(row.status);
}
