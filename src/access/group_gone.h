// Groups that may have been deleted since they were chosen: nobody is moved into one that is gone.
#pragma once

#include "actions/action_run.h"
#include "db/ids.h"

#include <vector>

// In the order of their ids, so that two actions wait for each other and not in a circle.
void LockGroups(ActionRun &run, std::vector<GroupId> groupIds);

// Refuses the run when users are to be moved into a group that is gone.
void RefuseIfGone(ActionRun &run, GroupId groupId);

// Refuses the run whose own group is gone.
void RefuseGoneGroup(ActionRun &run);
