// The OK of the two property sheets: what the pages staged and, with it, the account's credits.
#pragma once

#include "access/group_record.h"
#include "access/user_record.h"
#include "actions/action.h"

// Each is all of it or nothing. `rate` is the currency rate in force, which a pre-paid credit keeps.
[[nodiscard]] Action ApplyUserAction(const UserRecord &record, double rate);
[[nodiscard]] Action ApplyGroupAction(const GroupRecord &record, double rate);
