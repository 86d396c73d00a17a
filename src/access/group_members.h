// The users that belong to a group.
#pragma once

#include "db/failure.h"
#include "db/ids.h"

#include <vector>

[[nodiscard]] Result<std::vector<UserId>> MembersOf(GroupId groupId);

// Those whom a raised limit or a credit of the group may unblock.
[[nodiscard]] Result<std::vector<UserId>> MembersNotBlockedByAdministrator(GroupId groupId);
