// Where a report's columns stand on a page, how large their type is and in which units their numbers
// are, so that no number and no day is ever cut. Lengths are those of paper.h.
#pragma once

#include "reports/report_table.h"
#include "reports/unit_scale.h"

struct PlannedColumn
{
    int place = 0; // in the layout
    double left = 0; // from the table's own left edge
    double width = 0;
    UnitScale scale {};
};

struct ColumnPlan
{
    std::vector<PlannedColumn> columns;
    int pixels = 0; // of the type in rows and sums; 0 for the usual one
    double width = 0; // of the whole table, at most the room that there is

    // A cell as it is printed: on one line, in the column's unit.
    [[nodiscard]] static QString
    TextOf(const PlannedColumn &column, const LayoutColumn &told, const Cell &cell);

    // The unit under a column's heading; empty for none.
    [[nodiscard]] static QString UnitOf(const PlannedColumn &column, const LayoutColumn &told);
};

// `leads` are the texts that stand before the first sum of a line of sums.
[[nodiscard]] ColumnPlan
PlanColumns(const ReportTable &table, double room, const QStringList &leads);
