// Stores what a group's sheet staged, in its fixed order.
#pragma once

#include "access/group_record.h"
#include "actions/action_run.h"

// The group's part of the action ApplyGroup; the staged credits are written behind it. Everything is
// read again first: what was not touched in the sheet stays as it is in the database, and what somebody
// else has changed too is asked. Kept: the state of the protocol page, which the sheet does not show,
// is stored; times of the week are not. Refused for a group that has been deleted meanwhile. Gives the
// mode that the group then has.
AccountingMode ApplyGroup(ActionRun &run, const GroupRecord &record);
