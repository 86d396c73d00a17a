// What access is decided by, of all monitored users at once, in few statements however many they are.
#pragma once

#include "access/access_facts.h"
#include "access/account_rules.h"
#include "base/function_ref.h"

#include <QSet>

#include <vector>

// Numbers of ports, sorted, each once.
using PortNumbers = std::vector<quint16>;

struct KnownUser
{
    UserId userId;
    GroupId groupId;
    QString ip; // as stored
    QString mac;
    UserRules rules; // without logins
    PortNumbers ports; // of rules.own.ports
    PortNumbers groupPorts; // of rules.group->ports
};

// What is known beside the database.
struct ReadAt
{
    Moment now;
    double price = 0; // of traffic for whoever has none of its own, base units for each megabyte
};

// Hands each of them to `take`, in no order, as they stand in the database. `restart` is called before
// the first, and once more when they come from the beginning again. Neither runs a statement.
[[nodiscard]] Result<bool> ReadEverybody(const ReadAt &at,
                                         const QSet<UserId> &loggedIn,
                                         FunctionRef<void()> restart,
                                         FunctionRef<void(const KnownUser &)> take);

// The same of one user; nothing when the user is gone or not monitored.
[[nodiscard]] Result<std::optional<KnownUser>>
ReadKnownUser(UserId userId, const ReadAt &at, bool loggedIn);
