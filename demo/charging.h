// Credits that pay for what no limit covers any more.
#pragma once

#include <QtGlobal>

#include <vector>

// An open credit of `billing`.
struct Credit
{
    quint32 billId;
    double left; // megabytes or hours; infinity for a credit without a bound
    double price; // money for each megabyte; 0 when the credit is not one of money
};

// The open credits of a limit's usage record, oldest first. The statement takes the record's id.
[[nodiscard]] std::vector<Credit> CreditsOfRecord(const char *sqlText, quint32 recordId);

// The open pre-paid credits of a user, oldest first; those whose last day has passed are closed on
// the way. A credit of money lasts for its amount at `price` for each megabyte.
[[nodiscard]] std::vector<Credit> PrePaidCredits(quint32 userId, double price);

struct Charged
{
    double unpaid; // what was left when the credits were used up
    bool creditLeft; // something could still be paid for
};

// Takes `amount` from the credits in their order. One that is used up is closed.
[[nodiscard]] Charged Charge(const std::vector<Credit> &credits, double amount);
