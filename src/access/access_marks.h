// What a user's row says of access by its marks alone, without limits and times: the picture of the
// users list comes from these.
#pragma once

#include "access/block_state.h"

// What the "Access" column says by a picture.
enum class AccessState { Allowed, Blocked, OutsideAllowedTime };

struct AccessMarks
{
    StoredBlock block;
    bool timeAccess = false; // ranges of the week grant access
    bool timeBlocked = false; // set by the service: the moment lies in such a range
};

// The time comes first; the user's group is not looked at.
[[nodiscard]] AccessState PictureOf(const AccessMarks &marks);
