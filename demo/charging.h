// Credits that pay for what no limit covers any more.
#pragma once

#include "db/ids.h"
#include "db/quantities.h"
#include "demo/books.h"

#include <vector>

// An open credit of `billing`. Unit is Megabytes or Hours.
template <typename Unit>
struct Credit
{
    BillId billId;
    Unit left; // infinity for a credit without a bound; one of money in what it can pay for
    double price = 0; // money for each megabyte; 0 when the credit is not one of money
};

// The open credits of a limit's usage record, oldest first. The statement takes the record's id.
[[nodiscard]] std::vector<Credit<Megabytes>>
CreditsOfRecord(Books &books, const char *sqlText, TrafficRecordId record);
[[nodiscard]] std::vector<Credit<Hours>>
CreditsOfRecord(Books &books, const char *sqlText, TimeRecordId record);

// The open pre-paid credits of a user, oldest first; those whose last day has passed are closed on
// the way. A credit of money lasts for its amount at `price` for each megabyte.
[[nodiscard]] std::vector<Credit<Megabytes>>
PrePaidCredits(Books &books, UserId userId, double price);

template <typename Unit>
struct Charged
{
    Unit unpaid; // what was left when the credits were used up
    bool creditLeft; // something could still be paid for
};

// Takes `amount` from the credits in their order. One that is used up is closed.
[[nodiscard]] Charged<Megabytes>
Charge(Books &books, const std::vector<Credit<Megabytes>> &credits, Megabytes amount);
[[nodiscard]] Charged<Hours>
Charge(Books &books, const std::vector<Credit<Hours>> &credits, Hours amount);
