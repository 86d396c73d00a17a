// A group as it stands when its sheet is stored.
#pragma once

#include "access/group_record.h"

// As LoadGroup, without the members and the times, of which nothing depends on what stands there.
[[nodiscard]] Result<std::optional<GroupRecord>> ReadGroupToStore(GroupId groupId);
