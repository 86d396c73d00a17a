// The credits of an account as the account page lists them, and their running balance.
#pragma once

#include "access/owner.h"
#include "access/staged_account.h"
#include "accounts/currency.h"
#include "db/failure.h"

#include <QStringList>

#include <vector>

// The page keeps this many stored credits and stops reading there.
constexpr quint32 kMostListedCredits = 100;

enum class CreditStatus {
    New, // added in the window and not yet stored
    Active, // open
    Expired // closed, or open with an expiry day that has passed
};

struct ListedCredit
{
    BillId billId; // not set for a staged one
    CreditStatus status = CreditStatus::New;
    QStringList cells; // of CreditColumns, after the number
};

struct CreditList
{
    std::vector<ListedCredit> rows; // newest first
    Megabytes balance; // of the open pre-paid credits
};

// Where the status stands in a credit's cells.
[[nodiscard]] qsizetype StatusCell(AccountingMode ownerMode);

[[nodiscard]] QString StatusText(CreditStatus status);

// Reads the stored credits of an owner in the mode given. A group in a limit mode shows only those
// of its current traffic record.
[[nodiscard]] Result<CreditList>
ReadCredits(const Owner &owner, AccountingMode ownerMode, const Currency &currency);

// The row of a credit that has just been staged: today's date, "New".
[[nodiscard]] ListedCredit
StagedRow(const StagedCredit &credit, AccountingMode ownerMode, const Currency &currency);
