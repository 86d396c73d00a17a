// What an amount takes of an account: first of its limit, then of the credits that extend it, or of
// pre-paid credits. Pure arithmetic: the account is changed as its rows are to be.
#pragma once

#include "metering/account.h"

#include <vector>

// What a credit pays, in the unit of the credit.
struct Payment
{
    BillId credit;
    double amount = 0; // megabytes, of whole bytes, or hours
    BaseUnits money;
    double price = 0; // base units for each megabyte; 0 unless it is a credit of money
};

struct Charge
{
    double counted = 0; // into the record: what the limit covers and what nothing pays for
    std::vector<Payment> payments;
    std::vector<BillId> closed; // used up, or their last day is over
};

// Of the limit's record and credits, oldest first. What is beyond all of them is counted too.
[[nodiscard]] Charge ChargeTraffic(Account &account, Megabytes amount, QDate day);
[[nodiscard]] Charge ChargeTime(Account &account, Hours amount, QDate day);

// Of the pre-paid credits, oldest first; money at the account's price. What is beyond them nobody pays.
[[nodiscard]] Charge ChargePrePaid(Account &account, Megabytes amount, QDate day);

// Ends what is left of traffic when that is no more than a packet, since the next one was refused:
// gives the credits to be closed, and notes a limit as reached. False when more is left.
[[nodiscard]] bool EndTraffic(Account &account, QDate day, std::vector<BillId> &closed);
