// Whether an owner's credits have anything left to use.
#pragma once

#include "access/owner.h"
#include "access/pre_paid_credit.h"

#include <vector>

// True when one of the owner's open pre-paid credits has not expired and is not used up, or has no
// bound.
[[nodiscard]] Result<bool> HasCreditLeft(const Owner &owner);

// The owner's open pre-paid credits, expired or not.
[[nodiscard]] Result<std::vector<PrePaidCredit>> ReadOpenCredits(const Owner &owner);

// Whether an open credit that has not expired extends the limits of this kind; of a group only traffic
// can be extended.
[[nodiscard]] Result<bool> HasOpenTrafficCredit(const Owner &owner);
[[nodiscard]] Result<bool> HasOpenTimeCredit(UserId userId);

// True when a credit has an expiry day and that is over. Its text is "%Y.%m.%d"; another never passes.
[[nodiscard]] bool HasExpired(bool unlimited, const QString &expiryDay);
