// What users have used of their own limits and credits, and what they have left, for many users at once.
#pragma once

#include "access/access_facts.h"
#include "access/account_rules.h"
#include "access/user_list.h"

#include <QByteArray>
#include <QHash>

using AccountUses = QHash<UserId, AccountUse>;

// By the user's accounting mode: traffic, else time, of the present accounting period, or the pre-paid
// credit. Users without control, or who are gone, are not among them.
[[nodiscard]] Result<AccountUses> ReadAccountUses(const QList<UserId> &users, AccountMoment moment);

// The same of everybody.
[[nodiscard]] Result<AccountUses> ReadAllAccountUses(AccountMoment moment);

// The list with the uses of its rows. Given as a step behind the reading of a list.
[[nodiscard]] Result<UserList> WithAccountUses(UserList list, AccountMoment moment);

// Of rows of `users`, by user_order::kUsed or kLeft: users of traffic by megabytes, then those of
// credits, then those of time, at last those who have neither. Begins with a blank; `values` gets the
// values of its markers.
[[nodiscard]] QByteArray
AccountOrderClause(int order, bool ascending, QDate today, ValueList &values);
