// Credits as they are written: given to a user or a group, and closed.
#pragma once

#include "access/owner.h"
#include "access/staged_account.h"
#include "actions/action.h"

#include <QString>

#include <utility>
#include <vector>

class ActionRun;

// What is told when the owner's row is gone.
[[nodiscard]] QString OwnerIsGoneText(const Owner &owner);

// Writes what is staged of an account whose window opened while the owner's mode was `openedWith`. It
// is refused when the owner is gone, or has another mode by now. `rate` is the currency rate in force,
// which a pre-paid credit of traffic or money keeps.
[[nodiscard]] Action WriteAccountAction(const Owner &owner,
                                        AccountingMode openedWith,
                                        const StagedAccount &staged,
                                        double rate);

struct OwnerModes
{
    AccountingMode chosenFor; // the one that the owner had when its credits were chosen
    AccountingMode now;
};

// The same as a step of an action that has locked the owner's rows. First the credits: one that
// extends the limit of the current accounting period in the limit modes, a pre-paid one otherwise.
// Each unblocks the owner, with word to the service, unless the administrator blocked it or the credit
// is unlimited; a group's members whom the administrator blocked stay so. Then the close marks: a
// credit that is closed already, or gone, is none to close. Runs no statement when nothing is staged.
void WriteStagedAccount(ActionRun &run,
                        const Owner &owner,
                        const OwnerModes &modes,
                        const StagedAccount &staged,
                        double rate);

// Gives pre-paid credits to many users at once, as a step of an action: none of them is blocked, and each
// has one credit among them.
void WriteFirstCredits(ActionRun &run,
                       const std::vector<std::pair<UserId, StagedCredit>> &credits,
                       double rate);
