// The columns of an account's lists of credits.
#pragma once

#include "db/value_codes.h"

#include <QList>
#include <QString>

enum class CreditColumn {
    Number, // of the row
    DateAndTime,
    Date,
    Time,
    Amount,
    Used, // in the amount's unit
    UsedMegabytes,
    UsedMoney,
    Balance,
    Unit,
    ExpiryDay,
    Status
};

// Of the account page, Number first. They differ between the limit modes and pre-paid credit.
[[nodiscard]] QList<CreditColumn> CreditColumns(AccountingMode ownerMode);

// Of the history, Number first.
[[nodiscard]] QList<CreditColumn> HistoryColumns(AccountingMode ownerMode);

// What stands above the columns, in their order.
[[nodiscard]] QStringList CreditHeaders(AccountingMode ownerMode);
[[nodiscard]] QStringList HistoryHeaders(AccountingMode ownerMode);

// Figures, which stand at the right of their cells.
[[nodiscard]] bool HoldsFigures(CreditColumn column);
