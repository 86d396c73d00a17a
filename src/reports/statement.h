// What a user's statement says of credits and money: pure arithmetic over what was read of them.
#pragma once

#include "db/quantities.h"
#include "db/value_codes.h"

#include <QDate>

#include <vector>

using Cents = Quantity<struct CentsTag, qint64>; // hundredths of the currency that a site shows

// At so much currency for a base unit, which must be above 0; halves go away from zero.
[[nodiscard]] Cents InCents(BaseUnits money, double rate);

// What was taken of a credit: megabytes or hours, by its kind, and money.
struct CreditUse
{
    double amount = 0;
    BaseUnits money {};
};

// A row of `billing` with what `credit_use` knows of its days.
struct StatementCredit
{
    quint32 bill = 0;
    BillingMode mode = BillingMode::Credit;
    QDate given;
    QDate lastDay; // on which it can be used; not valid: it never expires
    double amount = 0; // megabytes or hours; 0 for money and for a credit without an amount
    BaseUnits money; // 0 unless it is a credit of money
    bool isClosed = false;
    CreditUse used {}; // in all
    CreditUse recorded; // of that, what has a day
    CreditUse within; // of that, in the period
    CreditUse after; // of that, behind it
    QDate lastUse; // recorded; not valid without one

    [[nodiscard]] bool IsOfMoney() const { return money.value > 0; }
};

// Both days belong to it; not valid for one without that end.
struct StatementPeriod
{
    QDate from;
    QDate to;
    QDate recordedSince; // the first day of all that credit_use has; not valid without any
    QDate today; // what has expired before it is over
};

struct StatementLine
{
    enum class Kind {
        TotalOnly, // what was used without days, before `day` where there is one
        Opening, // balance, at the beginning of `day`
        Given, // on `day`
        Used, // in the period
        Lapsed, // from `day` on a closed credit's rest is no longer there
        Rounding, // what the rounding of the lines comes to
        Closing, // balance, at the end of `day`
    };

    Kind kind = Kind::Opening;
    QDate day {}; // not valid where there is none
    const StatementCredit *credit = nullptr; // of Given, Used, Lapsed and TotalOnly
    CreditUse used {}; // of Used and TotalOnly
    double left = 0; // of Used: of the credit's amount, at the end of the period
    bool isMoney = false; // it changes or states the balance
    Cents change {}; // of the balance
    Cents balance {}; // behind the line
};

// The account of one user, as lines in their order: balances only where `hasBalance` is, or where a credit
// is of money. Each line is rounded; the balances are those of the exact sums, and what lies between is the
// line Rounding, so that opening balance and changes are the closing balance to the cent.
//
// The rest of a closed credit lapses on the day behind its last one, or, as no row tells when it was
// closed before that, on the day on which it was last used.
//
// Where what was used before the first recorded day lies in the period, it is stated as a total, and the
// account begins on that first day; it has no balances when the period is over by then.
[[nodiscard]] std::vector<StatementLine> AccountLines(const std::vector<StatementCredit> &credits,
                                                      const StatementPeriod &period,
                                                      double rate,
                                                      bool hasBalance);
