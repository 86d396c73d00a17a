// Credits as they are written: given to a user or a group, and closed.
#pragma once

#include "access/owner.h"
#include "access/staged_account.h"
#include "service/service_link.h"

// Writes the credit for an owner in the mode given: one that extends the limit of the current
// accounting period in the limit modes, a pre-paid one otherwise. `rate` is the currency rate in
// force, which a pre-paid credit of traffic or money keeps. The owner is then unblocked, with word
// to the service, unless the administrator blocked it or the credit is unlimited.
void WriteCredit(const Owner &owner,
                 AccountingMode ownerMode,
                 const StagedCredit &credit,
                 double rate,
                 const ServiceLink *link);

void CloseCredit(BillId billId);

// Writes what is staged: first the credits, then the close marks. False, and nothing written, when
// the owner's row is gone. Runs no statement when nothing is staged.
[[nodiscard]] bool ApplyStagedAccount(const Owner &owner,
                                      AccountingMode ownerMode,
                                      const StagedAccount &staged,
                                      double rate,
                                      const ServiceLink *link);
