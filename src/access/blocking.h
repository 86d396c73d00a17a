// Blocking and unblocking of users and groups, in the database and at the service.
#pragma once

#include "actions/action_run.h"
#include "db/ids.h"
#include "db/value_codes.h"

// The service is told before the row changes. True when it was told.
bool BlockUser(ActionRun &run, UserId userId, BlockReason reason);
bool UnblockUser(ActionRun &run, UserId userId); // the stored reason stays as it was

// The group's row, the rows of all its members, and word to the service of each member.
void BlockGroup(ActionRun &run, GroupId groupId, BlockReason reason);
void UnblockGroup(ActionRun &run, GroupId groupId);

// As a raised limit or a credit of the group unblocks it: members whom the administrator blocked stay
// blocked.
void LiftGroupBlock(ActionRun &run, GroupId groupId);
