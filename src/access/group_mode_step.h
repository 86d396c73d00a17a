// The part of a group's apply step that stores the accounting mode with its limit or price.
#pragma once

#include "access/group_record.h"
#include "service/service_link.h"

// Lifts a block of the group, and so of all its members, by the same rules as a user's.
void ApplyGroupMode(const GroupRecord &record, const ServiceLink *link);
