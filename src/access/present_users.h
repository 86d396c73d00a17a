// Users that a command is given, of whom some may be gone by now.
#pragma once

#include "actions/action_run.h"
#include "db/ids.h"

#include <vector>

// In the order of their ids, so that two commands wait for each other and not in a circle.
void LockUsers(ActionRun &run, std::vector<UserId> userIds);

// Those that are there, in the order given; the run is refused when there are none.
[[nodiscard]] std::vector<UserId> PresentUsers(ActionRun &run, const std::vector<UserId> &userIds);

// `count` users were given, and none is there.
void RefuseGoneUsers(ActionRun &run, size_t count);
