// The part of a user's apply step that stores the accounting mode with its limits or price.
#pragma once

#include "access/user_plan.h"
#include "actions/action_run.h"

// Of a limit and the record of the accounting period that counts against it.
template <typename RecordId>
struct LimitUse
{
    bool raised = false; // above what is stored now
    RecordId record; // not set when there is none
    bool left = false; // something, or an open credit extends it
};

// What lifting a block depends on, besides the plan.
struct UserModeFacts
{
    BlockReason reason = BlockReason::None; // of the last block
    LimitUse<TrafficRecordId> traffic;
    LimitUse<TimeRecordId> time;
    bool creditLeft = false;
};

// Reads only what the plan's mode asks for.
[[nodiscard]] UserModeFacts ReadUserModeFacts(ActionRun &run, const UserPlan &plan);

// True when the service's block is lifted: it is not the administrator's own, the sheet changed mode,
// limits or credits, and that leaves something to use: no control at all, a raised limit that is above
// what was used or is extended by an open credit, or an open pre-paid credit that is not used up. Where
// traffic and time are limited, both must have something left.
[[nodiscard]] bool LiftsBlock(const UserPlan &plan, const UserModeFacts &facts);

void WriteUserMode(ActionRun &run, const UserPlan &plan, const UserModeFacts &facts);
