// What access is decided by, read from the database for one user.
#pragma once

#include "access/access_facts.h"
#include "db/failure.h"
#include "db/ids.h"

struct StoredUser
{
    QString name;
    GroupId groupId;
    UserRules rules;
};

// As it stands in the database at `now`; nothing when the user is gone. `price` is that of traffic for
// whoever has none of its own, base units for each megabyte. Whether the user is logged in, and since
// when it is blocked, is not kept there. Of an unmonitored user only that is read.
[[nodiscard]] Result<std::optional<StoredUser>>
ReadUserRules(UserId userId, const Moment &now, double price);
