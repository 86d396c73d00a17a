// Stores what a group's sheet staged, in its fixed order.
#pragma once

#include "access/group_record.h"
#include "base/prompt.h"
#include "service/service_link.h"

// Kept: the state of the protocol page, which the sheet does not show, is stored; times of the week
// are not. False when the group has been deleted meanwhile: nothing is written then, and the
// administrator is told. `link` is null while not connected.
[[nodiscard]] bool ApplyGroup(const GroupRecord &record, const ServiceLink *link, Prompt &prompt);
