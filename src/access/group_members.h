// The users that belong to a group.
#pragma once

#include "db/ids.h"

#include <vector>

// Their ids, read before anything is done with them: a statement run for each row would end the
// open cursor.
[[nodiscard]] std::vector<UserId> MembersOf(GroupId groupId);
