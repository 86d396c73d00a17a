#include "accounts/credit_list.h"

#include "access/access_mode.h"
#include "access/usage_records.h"
#include "accounts/credit_entry.h"
#include "accounts/currency.h"
#include "base/amount_text.h"
#include "db/session.h"

using namespace Qt::StringLiterals;

namespace {

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

// The row in the buffer: date, data, closed, usage, bill_id.
ListedCredit LimitRow(const QString &unit)
{
    const auto status = queryResult.Flag(3) ? CreditStatus::Expired : CreditStatus::Active;
    return {queryResult.Id<BillId>(5),
            status,
            LimitCells(DateCell(queryResult.Text(1)),
                       AmountText(queryResult.Amount(2)),
                       AmountText(queryResult.Amount(4)),
                       status,
                       unit)};
}

// How money is shown; read from the configuration once for a list.
struct ShownMoney
{
    double rate;
    QString unit;
};

ShownMoney MoneyOf(const ConfigStore &config)
{
    return {CurrentRate(config), UnitName(config, CreditKind::Money)};
}

// What a pre-paid credit's row says of its amount.
struct PrepaidAmount
{
    QString credit;
    QString type;
    QString usedMoney;
};

// The row in the buffer: date, data, closed, usage, bill_id, unlimited, expiredday, currencydata,
// moneydata, moneyusage.
PrepaidAmount AmountInBuffer(const ShownMoney &shown)
{
    const BaseUnits money {queryResult.Amount(9)};
    const QString usedMoney = SignificantText(queryResult.Amount(10) * shown.rate, 4);
    if (money > kLeastMoney) {
        return {SignificantText(money.value * shown.rate, 4), shown.unit, usedMoney};
    }
    if (queryResult.IsEmpty(2)) {
        return {u"Unlim"_s, u"None"_s, usedMoney};
    }
    return {AmountText(queryResult.Amount(2)), u"Mbytes"_s, usedMoney};
}

ListedCredit PrepaidRow(const ShownMoney &shown)
{
    const bool closed = queryResult.Flag(3);
    const bool unlimited = queryResult.Integer(6) != 0;
    const QString day = queryResult.Text(7);
    const auto status =
        closed || HasExpired(unlimited, day) ? CreditStatus::Expired : CreditStatus::Active;
    const auto [credit, type, usedMoney] = AmountInBuffer(shown);
    return {queryResult.Id<BillId>(5),
            status,
            {DateCell(queryResult.Text(1)),
             credit,
             type,
             AmountText(queryResult.Amount(4)),
             usedMoney,
             unlimited ? u"Unlimited"_s : day,
             StatusText(status)}};
}

void AddLimitRows(CreditList &list, RowCursor &cursor, const QString &unit)
{
    while (list.rows.size() < kMostListedCredits && cursor.Next()) {
        list.rows.push_back(LimitRow(unit));
    }
}

void AddTrafficLimits(CreditList &list, const Owner &owner, const QString &unit)
{
    if (owner.IsUser()) {
        RowCursor cursor("SELECT date, data, closed, usage, bill_id FROM billing "
                         "WHERE object_id = (?) and mode = 1 ORDER BY date DESC",
                         owner.User());
        AddLimitRows(list, cursor, unit);
        return;
    }
    const TrafficRecordId record = FindGroupTrafficRecord(owner.Group());
    RowCursor cursor("SELECT date, data, closed, usage, bill_id FROM billing "
                     "WHERE group_id = (?) and mode = 1 and trafid = (?) ORDER BY date DESC",
                     owner.Group(),
                     record);
    AddLimitRows(list, cursor, unit);
}

void AddTimeLimits(CreditList &list, UserId userId, const QString &unit)
{
    RowCursor cursor("SELECT date, data, closed, usage, bill_id FROM billing "
                     "WHERE object_id = (?) and mode = 4  ORDER BY date DESC",
                     userId);
    AddLimitRows(list, cursor, unit);
}

void AddPrepaid(CreditList &list, const Owner &owner, const ShownMoney &shown)
{
    RowCursor cursor(owner.IsUser()
                         ? "SELECT date, data, closed, usage, bill_id, unlimited, expiredday, "
                           "currencydata, moneydata, moneyusage FROM billing "
                           "WHERE object_id = (?) and mode = 2  ORDER BY date DESC"
                         : "SELECT date, data, closed, usage, bill_id, unlimited, expiredday, "
                           "currencydata, moneydata, moneyusage FROM billing "
                           "WHERE group_id = (?) and mode = 2  ORDER BY date DESC",
                     owner.Number());
    while (list.rows.size() < kMostListedCredits && cursor.Next()) {
        if (!queryResult.Flag(3)) {
            // kept: a money credit counts with its megabytes, which are used but never given
            list.balance += Megabytes {queryResult.Amount(2)} - Megabytes {queryResult.Amount(4)};
        }
        list.rows.push_back(PrepaidRow(shown));
    }
}

QString StagedAmount(const StagedCredit &credit, const ConfigStore &config)
{
    switch (credit.Kind()) {
    case CreditKind::Money:
        return SignificantText(NumberOf(credit.amount) * CurrentRate(config), 4);
    case CreditKind::Unlimited:
        return u"Unlim"_s;
    default:
        return AmountText(NumberOf(credit.amount));
    }
}

} // namespace

QStringList CreditColumns(AccountingMode ownerMode)
{
    if (!IsLimitMode(ownerMode)) { // a user without control is given pre-paid credit too
        return {u"N"_s,
                u"Date/Time"_s,
                u"Credit"_s,
                u"Type"_s,
                u"Used Mb"_s,
                u"Used cash"_s,
                u"Exp.date"_s,
                u"Status"_s};
    }
    return {u"N"_s, u"Date/Time"_s, u"Credit"_s, u"Used"_s, u"Status"_s, u"Type"_s};
}

qsizetype StatusCell(AccountingMode ownerMode)
{
    return CreditColumns(ownerMode).indexOf(u"Status"_s) - 1;
}

QString StatusText(CreditStatus status)
{
    switch (status) {
    case CreditStatus::New:
        return u"New"_s;
    case CreditStatus::Active:
        return u"Active"_s;
    case CreditStatus::Expired:
        return u"Expired"_s;
    }
    return {};
}

CreditList ReadCredits(const Owner &owner, AccountingMode ownerMode, const ConfigStore &config)
{
    CreditList list;
    if (ownerMode == AccountingMode::Traffic || ownerMode == AccountingMode::TrafficAndTime) {
        AddTrafficLimits(list, owner, UnitName(config, CreditKind::Traffic));
    }
    if (owner.IsUser()
        && (ownerMode == AccountingMode::Time || ownerMode == AccountingMode::TrafficAndTime)) {
        AddTimeLimits(list, owner.User(), UnitName(config, CreditKind::Time));
    }
    if (ownerMode == AccountingMode::Provider) {
        AddPrepaid(list, owner, MoneyOf(config));
    }
    return list;
}

ListedCredit
StagedRow(const StagedCredit &credit, AccountingMode ownerMode, const ConfigStore &config)
{
    const QString date = Today().toString(u"yyyy-MM-dd"_s);
    const QString unit = UnitName(config, credit.Kind());
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
             StagedAmount(credit, config),
             credit.Kind() == CreditKind::Unlimited ? u"None"_s : unit,
             {},
             {},
             credit.neverExpires ? u"Unlimited"_s : credit.expiryDay,
             StatusText(CreditStatus::New)}};
}

bool HasExpired(bool unlimited, const QString &expiryDay)
{
    const QDate day = QDate::fromString(expiryDay, u"yyyy.MM.dd"_s);
    return !unlimited && day.isValid() && day < Today();
}
