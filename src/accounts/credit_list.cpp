#include "accounts/credit_list.h"

#include "access/access_mode.h"
#include "access/open_credit.h"
#include "access/usage_records.h"
#include "accounts/credit_columns.h"
#include "accounts/credit_entry.h"
#include "base/amount_text.h"
#include "db/query.h"

#include <QCoreApplication>

#include <algorithm>
#include <iterator>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(CreditList)
};

constexpr qsizetype kDateLength = 10; // of "%Y-%m-%d", which a date and time begins with

QString DateCell(const QString &stored)
{
    return stored.left(kDateLength);
}

QStringList LimitCells(const QString &date,
                       const QString &amount,
                       const QString &used,
                       CreditStatus status,
                       const QString &unit)
{
    return {date, amount, used, StatusText(status), unit};
}

// A row of date, data, closed, usage, bill_id.
ListedCredit LimitCredit(const Row &row, const QString &unit)
{
    const auto status = row.Flag(3) ? CreditStatus::Expired : CreditStatus::Active;
    return {row.Id<BillId>(5),
            status,
            LimitCells(DateCell(row.Text(1)),
                       AmountText(row.Amount(2)),
                       AmountText(row.Amount(4)),
                       status,
                       unit)};
}

// What a pre-paid credit's row says of its amount.
struct PrepaidAmount
{
    QString credit;
    QString type;
    QString usedMoney;
};

// A row of date, data, closed, usage, bill_id, unlimited, expiredday, currencydata, moneydata,
// moneyusage.
PrepaidAmount AmountIn(const Row &row, const Currency &currency)
{
    const BaseUnits money {row.Amount(9)};
    const QString usedMoney = SignificantText(row.Amount(10) * currency.rate, 4);
    if (money > kLeastMoney) {
        return {SignificantText(money.value * currency.rate, 4),
                UnitName(currency, CreditKind::Money),
                usedMoney};
    }
    if (row.IsEmpty(2)) {
        return {Words::tr("Unlim"), Words::tr("None"), usedMoney};
    }
    return {AmountText(row.Amount(2)), UnitName(currency, CreditKind::Traffic), usedMoney};
}

struct PrepaidCredit
{
    ListedCredit listed;
    Megabytes left; // 0 when it is closed
};

PrepaidCredit PrepaidCreditIn(const Row &row, const Currency &currency)
{
    const bool closed = row.Flag(3);
    const bool unlimited = row.Integer(6) != 0;
    const QString day = row.Text(7);
    const auto status =
        closed || HasExpired(unlimited, day) ? CreditStatus::Expired : CreditStatus::Active;
    const auto [credit, type, usedMoney] = AmountIn(row, currency);
    // kept: a money credit counts with its megabytes, which are used but never given
    const Megabytes left =
        closed ? Megabytes {} : Megabytes {row.Amount(2)} - Megabytes {row.Amount(4)};
    return {{row.Id<BillId>(5),
             status,
             {DateCell(row.Text(1)),
              credit,
              type,
              AmountText(row.Amount(4)),
              usedMoney,
              unlimited ? Words::tr("Unlimited") : day,
              StatusText(status)}},
            left};
}

using Credits = std::vector<ListedCredit>;

// At most `most`, which may be none at all.
template <typename... Values>
Result<Credits>
ReadLimitCredits(size_t most, const QString &unit, const char *sqlText, const Values &...values)
{
    if (most == 0) {
        return Credits();
    }
    return ReadUpTo(
        static_cast<quint32>(most),
        sqlText,
        [&](const Row &row) { return LimitCredit(row, unit); },
        values...);
}

Result<Credits> ReadTrafficCredits(const Owner &owner, const Currency &currency)
{
    const QString unit = UnitName(currency, CreditKind::Traffic);
    if (owner.IsUser()) {
        return ReadLimitCredits(kMostListedCredits,
                                unit,
                                "SELECT date, data, closed, usage, bill_id FROM billing "
                                "WHERE object_id = (?) and mode = 1 ORDER BY date DESC",
                                owner.User());
    }
    return FindGroupTrafficRecord(owner.Group()).and_then([&](TrafficRecordId record) {
        return ReadLimitCredits(
            kMostListedCredits,
            unit,
            "SELECT date, data, closed, usage, bill_id FROM billing "
            "WHERE group_id = (?) and mode = 1 and trafid = (?) ORDER BY date DESC",
            owner.Group(),
            record);
    });
}

Result<Credits> ReadTimeCredits(size_t most, UserId userId, const Currency &currency)
{
    return ReadLimitCredits(most,
                            UnitName(currency, CreditKind::Time),
                            "SELECT date, data, closed, usage, bill_id FROM billing "
                            "WHERE object_id = (?) and mode = 4  ORDER BY date DESC",
                            userId);
}

// Those of the limits that the mode has: traffic first.
Result<CreditList>
ReadLimitList(const Owner &owner, AccountingMode ownerMode, const Currency &currency)
{
    CreditList list;
    if (ownerMode != AccountingMode::Time) {
        auto traffic = ReadTrafficCredits(owner, currency);
        if (!traffic) {
            return tl::unexpected(std::move(traffic.error()));
        }
        list.rows = *std::move(traffic);
    }
    if (owner.IsUser() && ownerMode != AccountingMode::Traffic) {
        auto time = ReadTimeCredits(kMostListedCredits - list.rows.size(), owner.User(), currency);
        if (!time) {
            return tl::unexpected(std::move(time.error()));
        }
        std::move(time->begin(), time->end(), std::back_inserter(list.rows));
    }
    return list;
}

Result<CreditList> ReadPrepaidList(const Owner &owner, const Currency &currency)
{
    static constexpr OwnerText kCredits {
        "SELECT date, data, closed, usage, bill_id, unlimited, expiredday, currencydata, moneydata, "
        "moneyusage FROM billing WHERE object_id = (?) and mode = 2  ORDER BY date DESC",
        "SELECT date, data, closed, usage, bill_id, unlimited, expiredday, currencydata, moneydata, "
        "moneyusage FROM billing WHERE group_id = (?) and mode = 2  ORDER BY date DESC"};
    return ReadUpTo(
               kMostListedCredits,
               kCredits.For(owner),
               [&](const Row &row) { return PrepaidCreditIn(row, currency); },
               owner.Number())
        .map([](std::vector<PrepaidCredit> credits) {
            CreditList list;
            for (PrepaidCredit &credit : credits) {
                list.balance += credit.left;
                list.rows.push_back(std::move(credit.listed));
            }
            return list;
        });
}

QString StagedAmount(const StagedCredit &credit, const Currency &currency)
{
    switch (credit.Kind()) {
    case CreditKind::Money:
        return SignificantText(NumberOf(credit.amount) * currency.rate, 4);
    case CreditKind::Unlimited:
        return Words::tr("Unlim");
    default:
        return AmountText(NumberOf(credit.amount));
    }
}

} // namespace

qsizetype StatusCell(AccountingMode ownerMode)
{
    return CreditColumns(ownerMode).indexOf(CreditColumn::Status) - 1;
}

QString StatusText(CreditStatus status)
{
    switch (status) {
    case CreditStatus::New:
        return Words::tr("New");
    case CreditStatus::Active:
        return Words::tr("Active");
    case CreditStatus::Expired:
        return Words::tr("Expired");
    }
    return {};
}

Result<CreditList>
ReadCredits(const Owner &owner, AccountingMode ownerMode, const Currency &currency)
{
    if (IsLimitMode(ownerMode)) {
        return ReadLimitList(owner, ownerMode, currency);
    }
    return ownerMode == AccountingMode::Provider ? ReadPrepaidList(owner, currency) : CreditList();
}

ListedCredit
StagedRow(const StagedCredit &credit, AccountingMode ownerMode, const Currency &currency)
{
    const QString date = Today().toString(u"yyyy-MM-dd"_s);
    const QString unit = UnitName(currency, credit.Kind());
    if (IsLimitMode(ownerMode)) {
        return {
            {},
            CreditStatus::New,
            LimitCells(
                date, SignificantText(NumberOf(credit.amount), 5), {}, CreditStatus::New, unit)};
    }
    return {{},
            CreditStatus::New,
            {date,
             StagedAmount(credit, currency),
             credit.Kind() == CreditKind::Unlimited ? Words::tr("None") : unit,
             {},
             {},
             credit.neverExpires ? Words::tr("Unlimited") : credit.expiryDay,
             StatusText(CreditStatus::New)}};
}
