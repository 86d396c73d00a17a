// The part of a group's apply step that stores the accounting mode with its limit, or credit and price.
#pragma once

#include "access/group_plan.h"
#include "actions/action_run.h"

// What lifting a block depends on, besides the plan.
struct GroupModeFacts
{
    StoredBlock block; // as the step of the block leaves it
    bool raised = false; // the limit is above what is stored now
    TrafficRecordId record; // that counts against the limit; not set when there is none
    bool left = false; // of a raised limit, or an open credit extends it
    bool creditLeft = false;
};

// Reads only what the plan's mode asks for.
[[nodiscard]] GroupModeFacts ReadGroupModeFacts(ActionRun &run, const GroupPlan &plan);

// True when the service's block is lifted: it is not the administrator's own, the sheet changed mode,
// limit or credits, and that leaves something to use.
[[nodiscard]] bool LiftsBlock(const GroupPlan &plan, const GroupModeFacts &facts);

void WriteGroupMode(ActionRun &run, const GroupPlan &plan, const GroupModeFacts &facts);
