// The history of an account: which credits the filter selects, and how they are listed.
#pragma once

#include "access/owner.h"
#include "access/staged_account.h"
#include "db/failure.h"

#include <QByteArray>
#include <QDateTime>
#include <QStringList>

#include <optional>
#include <vector>

enum class HistoryPeriod { AllRecords = 0, Today = 1, LastWeek = 2, LastMonth = 3 };

// The texts of the choices, each at its period's number.
[[nodiscard]] QStringList HistoryPeriodNames();

struct HistoryFilter
{
    Owner owner;
    AccountingMode ownerMode = AccountingMode::NoControl;
    bool openOnly = false;
    HistoryPeriod period = HistoryPeriod::AllRecords;
};

// The filter's statement; `since` is its second value, "%d.%m.%Y 00:00:00", or nothing. The simple
// arithmetic of base/day.h can name a day that does not exist.
struct FilterStatement
{
    QByteArray text;
    std::optional<QString> since;
};

[[nodiscard]] FilterStatement BuildFilter(const HistoryFilter &filter, QDate today);

enum class HistoryStatus { New, Active, Expired, Closed };

struct HistoryRow
{
    BillId billId; // not set for a credit that is staged and not yet stored
    QDateTime made;
    CreditAmount amount;
    CreditAmount used; // in the amount's unit; megabytes of an unlimited credit
    Megabytes usedMegabytes; // pre-paid credits
    QString expiryDay; // pre-paid credits: as stored, or "Unlimited"
    HistoryStatus status = HistoryStatus::Active;
    CreditAmount balance; // up to this row, in the same unit as what was used
};

// The credits that the filter selects, oldest first, without their balances. One that is gone by the
// time that it is read is left out.
[[nodiscard]] Result<std::vector<HistoryRow>> ReadHistory(const HistoryFilter &filter);

// The row of a staged credit, made today.
[[nodiscard]] HistoryRow HistoryRowOf(const StagedCredit &credit);

// Fills in the running balance: what is left of every credit that is not closed, added up in list
// order. Megabytes, hours and money are three sums; a row shows that of its own kind. An unlimited
// credit adds nothing.
void AddUpBalances(std::vector<HistoryRow> &rows);

// What stands in the columns after the number (accounts/credit_columns.h). Money is shown at `rate`.
[[nodiscard]] QStringList
HistoryCells(const HistoryRow &row, AccountingMode ownerMode, double rate);
