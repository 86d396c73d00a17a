// The users that hold an address which a sheet gives to another one.
#pragma once

#include "access/user_plan.h"
#include "actions/action_run.h"

// To be removed, each for its address.
struct AddressHolders
{
    std::optional<UserId> ofIpAddress;
    std::optional<UserId> ofMacAddress;
};

// Asks before a holder is removed; after a No the plan leaves the address as it is. Kept: the MAC text
// is looked for among the IP addresses, so that a conflict is never found.
[[nodiscard]] AddressHolders FindHolders(ActionRun &run, UserPlan &plan);
