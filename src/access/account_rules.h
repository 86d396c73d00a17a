// Limits and credits of many users or groups at once.
#pragma once

#include "access/access_facts.h"
#include "db/failure.h"
#include "db/ids.h"

#include <QHash>
#include <QList>

class Row;

// What the figures of an account rest on beside the database.
struct AccountMoment
{
    QDate today;
    double price = 0; // of traffic for whoever has none of its own, base units for each megabyte

    bool operator==(const AccountMoment &) const = default;
};

// Of those who have limits or credits: mode, price, limits and credits, and nothing else.
using AccountRules = QHash<UserId, OwnerRules>;

enum class LimitsRead {
    Shown, // of traffic and time the one that stands for the account: traffic
    Both,
};

[[nodiscard]] Result<AccountRules> ReadAccountRules(const QList<UserId> &users,
                                                    AccountMoment moment);
[[nodiscard]] Result<AccountRules> ReadAllAccountRules(AccountMoment moment, LimitsRead limits);

// Every group: as above, with its block and what its ports and times mean, without them.
using GroupRules = QHash<GroupId, OwnerRules>;
[[nodiscard]] Result<GroupRules> ReadAllGroupRules(AccountMoment moment);

// A group of a row of mode, traflim, trafperiod, own_price, trafprice, blocked, blockreason, portaccess
// and timeaccess. `price`: of a group without its own.
[[nodiscard]] OwnerRules GroupRulesIn(const Row &row, double price);
