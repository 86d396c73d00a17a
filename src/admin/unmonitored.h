// Users that are known but not monitored, and how they come back.
#pragma once

#include "actions/action.h"
#include "db/ids.h"

#include <QString>

#include <vector>

struct UnmonitoredUser
{
    UserId userId;
    QString text; // user name, then the IP address in parentheses
};

// The most users that the list shows and that one command brings back.
constexpr size_t kMaxUnmonitored = 1000;

// In the database's order.
[[nodiscard]] Result<std::vector<UnmonitoredUser>> LoadUnmonitored();

// The users are counted and shown again, with all their old records: all of them or none. Those that are
// gone are left out; refused when none is left.
[[nodiscard]] Action MonitorUsersAction(const std::vector<UserId> &users);
