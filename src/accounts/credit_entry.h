// A credit as the administrator enters it: checked, and turned into what is staged.
#pragma once

#include "access/owner.h"
#include "access/staged_account.h"

#include <QDate>
#include <QList>

// Money at or below this is not told from none when it is listed.
constexpr BaseUnits kLeastMoney {0.0001};

// More megabytes, hours or money than this are not taken from a typed amount.
constexpr double kMostCredit = 1e9;

// The kinds of credit that an owner of this mode may be given: such as extend its limits, or pre-paid
// ones, of which Unlimited is one. None for a group without limit or pre-paid credit.
[[nodiscard]] QList<CreditKind> CreditKindsFor(const Owner &owner, AccountingMode mode);

// What is wrong with a credit as it was entered, in words for the administrator.
using CreditProblem = std::optional<QString>;

// `typed` is in megabytes, hours or the currency shown. A credit without an amount passes.
[[nodiscard]] CreditProblem CheckAmount(CreditKind kind, std::optional<double> typed, double rate);

// A day before today would make a credit that has expired before it is given.
[[nodiscard]] CreditProblem CheckExpiry(QDate day);

// A credit of what was typed and checked. An invalid day stands for no expiry.
[[nodiscard]] StagedCredit CreditFrom(CreditKind kind, double typed, double rate, QDate expiry);
