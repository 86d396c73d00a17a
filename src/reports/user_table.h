// The users list as a table of values, with every user that a filter finds: for a file or a printer.
#pragma once

#include "access/account_use.h"
#include "access/user_search.h"
#include "reports/report_table.h"

#include <functional>

struct UserTableColumn
{
    QString heading;
    std::function<QString(const UserRow &)> text;
    double width = 1; // share of a page's width
};

// What stands above the rows and behind them on paper, and what is read beside the rows.
struct UserTableHead
{
    QString title {};
    QString filter {}; // in words
    QString noun {}; // what the rows are, such as "users"
    std::optional<AccountMoment> accounts {}; // what the users have used and have left is read too
};

// Without rows.
[[nodiscard]] std::shared_ptr<ReportTable> EmptyUserTable(const QList<UserTableColumn> &columns,
                                                          const UserTableHead &head);

// Reads on the session of the calling thread. A full temporary folder is a failure too, with its words.
[[nodiscard]] Result<ReportTablePtr> ReadUserTable(const UserFilter &filter,
                                                   ListOrder order,
                                                   const QList<UserTableColumn> &columns,
                                                   const UserTableHead &head = {});
