#include "accounts/credit_columns.h"

#include "access/access_mode.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(CreditColumns)
};

QString HeaderText(CreditColumn column)
{
    switch (column) {
    case CreditColumn::Number:
        return Words::tr("N", "the number of a row");
    case CreditColumn::DateAndTime:
        return Words::tr("Date/Time");
    case CreditColumn::Date:
        return Words::tr("Date");
    case CreditColumn::Time:
        return Words::tr("Time", "of the day");
    case CreditColumn::Amount:
        return Words::tr("Credit");
    case CreditColumn::Used:
        return Words::tr("Used");
    case CreditColumn::UsedMegabytes:
        return Words::tr("Used Mb");
    case CreditColumn::UsedMoney:
        return Words::tr("Used cash");
    case CreditColumn::Balance:
        return Words::tr("Balance");
    case CreditColumn::Unit:
        return Words::tr("Type");
    case CreditColumn::ExpiryDay:
        return Words::tr("Exp.date");
    case CreditColumn::Status:
        return Words::tr("Status");
    }
    return {};
}

// The history spells two of them out.
QString HistoryHeaderText(CreditColumn column)
{
    switch (column) {
    case CreditColumn::UsedMegabytes:
        return Words::tr("Used, Mb");
    case CreditColumn::ExpiryDay:
        return Words::tr("Expiry date");
    default:
        return HeaderText(column);
    }
}

QStringList Texts(const QList<CreditColumn> &columns, QString (*textOf)(CreditColumn))
{
    QStringList texts;
    std::ranges::transform(columns, std::back_inserter(texts), textOf);
    return texts;
}

} // namespace

QList<CreditColumn> CreditColumns(AccountingMode ownerMode)
{
    using enum CreditColumn;
    if (!IsLimitMode(ownerMode)) { // a user without control is given pre-paid credit too
        return {Number, DateAndTime, Amount, Unit, UsedMegabytes, UsedMoney, ExpiryDay, Status};
    }
    return {Number, DateAndTime, Amount, Used, Status, Unit};
}

QList<CreditColumn> HistoryColumns(AccountingMode ownerMode)
{
    using enum CreditColumn;
    QList<CreditColumn> columns {Number, Date, Time, Amount, Used, Balance, Unit};
    if (ownerMode == AccountingMode::Provider) {
        columns << UsedMegabytes << ExpiryDay;
    }
    return columns << Status;
}

QStringList CreditHeaders(AccountingMode ownerMode)
{
    return Texts(CreditColumns(ownerMode), HeaderText);
}

QStringList HistoryHeaders(AccountingMode ownerMode)
{
    return Texts(HistoryColumns(ownerMode), HistoryHeaderText);
}

bool HoldsFigures(CreditColumn column)
{
    switch (column) {
    case CreditColumn::Number:
    case CreditColumn::Amount:
    case CreditColumn::Used:
    case CreditColumn::UsedMegabytes:
    case CreditColumn::UsedMoney:
    case CreditColumn::Balance:
        return true;
    default:
        return false;
    }
}
