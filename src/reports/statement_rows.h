// What stands in the rows of a statement: its columns, and an account's lines in words.
#pragma once

#include "reports/report_table.h"
#include "reports/statement.h"

namespace statement {

enum Column : size_t {
    UserName,
    FullName,
    Address,
    DayOfRow,
    What,
    Received,
    Sent,
    Time,
    UsedTraffic,
    UsedTime,
    Money,
    Balance,
    UserNumber, // in the database; not printed
};

constexpr size_t kColumns = UserNumber + 1;

} // namespace statement

// The columns; money has no unit yet.
[[nodiscard]] Layout StatementLayout();

// A line of the account as a row of the table, whose layout and currency it goes by. `named` is a row with
// the columns that say whose it is.
[[nodiscard]] CellRow
AccountRow(const ReportTable &table, const CellRow &named, const StatementLine &line);
