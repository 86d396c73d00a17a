// The users list as a table of values, with every user that a filter finds: for a file.
#pragma once

#include "access/account_use.h"
#include "access/user_search.h"
#include "reports/report_table.h"

#include <functional>

struct UserTableColumn
{
    QString heading;
    std::function<QString(const UserRow &)> text;
};

// Reads on the session of the calling thread, with `accounts` what the users have used and have left, too. A full temporary folder is a failure too, with its words.
[[nodiscard]] Result<ReportTablePtr> ReadUserTable(const UserFilter &filter,
                                                   ListOrder order,
                                                   const std::optional<AccountMoment> &accounts,
                                                   const QList<UserTableColumn> &columns);
