// Some of a report's rows, in an order of their own, with what they come to.
#pragma once

#include "reports/report_run.h"
#include "reports/report_table.h"

#include <optional>

struct RowWish
{
    static constexpr int kNone = -1;

    // That a row must hold, without regard to case, as it is shown; empty for all rows.
    QString text {};
    int column = kNone; // that must hold it; kNone for any that data files have
    int orderBy = kNone; // column; kNone for the order of the report
    bool descending = false;

    bool operator==(const RowWish &) const = default;
};

struct ChosenRows
{
    std::vector<quint32> rows; // their places in the table, in the order that was wished for
    CellRow totals; // of these rows; nothing in the columns without a total
};

// Reads each row once. Rows that are equal in the order stay as they stand in the report. Nothing when it was
// cancelled, or when rows cannot be read, of which the table's rows tell (RowStore::ReadProblem).
[[nodiscard]] std::optional<ChosenRows>
ChooseRows(const ReportTable &table, const RowWish &wish, RunControl &control);

// "Received: 12.50 Mb; Sent: 3.00 Mb": the columns that have a total, in the words of the report. Empty
// without any.
[[nodiscard]] QString TotalsInWords(const Layout &layout, const CellRow &totals);

// A column's heading with its unit: "Received (Mb)".
[[nodiscard]] QString HeadingOf(const LayoutColumn &column);
