// Users that are known but not monitored, and how they come back.
#pragma once

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
[[nodiscard]] std::vector<UnmonitoredUser> LoadUnmonitored();

// The user is counted and shown again, with all its old records.
void MonitorUser(UserId userId);
