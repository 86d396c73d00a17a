// Stores what a user's sheet staged, in its fixed order.
#pragma once

#include "access/user_record.h"
#include "actions/action_run.h"

// The user's part of the action ApplyUser; the staged credits are written behind it. Everything is
// read again first: what was not touched in the sheet stays as it is in the database, and what somebody
// else has changed too is asked. Asked is also before the user that holds a newly entered IP address is
// removed; after a No the address stays as it was and the rest is stored. Refused for a user that has
// been deleted meanwhile, and where the chosen group has been. Gives the mode that the user then has.
AccountingMode ApplyUser(ActionRun &run, const UserRecord &record);
