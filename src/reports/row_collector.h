// Puts rows into a report's table, and notes how much room the columns need on paper.
#pragma once

#include "reports/report_table.h"

#include <optional>

class RowCollector
{
public:
    // The table has its layout already, and no rows.
    explicit RowCollector(ReportTable &toFill);

    // False when the table's store takes no more.
    [[nodiscard]] bool Store(const CellRow &row);

private:
    void NoteLargest(const CellRow &row);

    ReportTable &table;
    std::vector<std::pair<size_t, double>> texts; // columns that wrap, with the ems that always fit
    std::vector<std::pair<size_t, qsizetype>> days; // and times, with the longest so far
    std::vector<size_t> numbers;
    std::optional<size_t> measure; // the column by which a row is large
    std::vector<double> largest; // of the table's largest rows
};
