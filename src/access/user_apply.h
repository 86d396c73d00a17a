// Stores what a user's sheet staged, in its fixed order.
#pragma once

#include "access/user_record.h"
#include "base/prompt.h"
#include "service/service_link.h"

// Asks before the user that holds a newly entered IP address is removed; after a No the address
// stays as it was and the rest is stored. False when the user has been deleted meanwhile: nothing
// is written then, and the administrator is told. `link` is null while not connected.
[[nodiscard]] bool ApplyUser(const UserRecord &record, const ServiceLink *link, Prompt &prompt);
