// Accounts as they stand in the database, read for many owners at once, with the records of the period
// that they count into.
#pragma once

#include "db/staged_rows.h"
#include "metering/account.h"
#include "metering/books.h"
#include "metering/count.h"

#include <map>

// A monitored user of a batch.
struct CountedUser
{
    GroupId group;
    Account account;
};

struct CountedGroup
{
    Account account;
};

using CountedUsers = std::map<UserId, CountedUser>;
using CountedGroups = std::map<GroupId, CountedGroup>;

// Those of `users` who are monitored, with limits and credits as of `day`. A limit without a record of
// its period gets one, and a month's record of an earlier month begins anew; the credits that extended
// that month are closed.
[[nodiscard]] CountedUsers
ReadCountedUsers(Books &books, const std::vector<UserId> &users, QDate day, const Prices &prices);

// The same of the groups with a traffic limit or credits; there are no others among them.
[[nodiscard]] CountedGroups
ReadCountedGroups(Books &books, const QSet<GroupId> &groups, QDate day, const Prices &prices);
