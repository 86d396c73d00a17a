// Fills a report's table from its query.
#pragma once

#include "reports/report_query.h"
#include "reports/row_collector.h"

#include <map>

class TableBuilder
{
public:
    TableBuilder(ReportTable &toFill, ReportQuery &fromQuery);

    // False, with Problem() filled, when the database or the temporary folder fails.
    [[nodiscard]] bool Build();
    [[nodiscard]] const ReportProblem &Problem() const { return problem; }

private:
    [[nodiscard]] bool BuildSummed();
    [[nodiscard]] bool BuildEach();
    void Convert(CellRow &row) const;
    void Rate(CellRow &row, qint64 rank) const;
    [[nodiscard]] bool Store(const CellRow &row);
    [[nodiscard]] bool TakeInOrder(const CellRow &row);
    void FinishGroup();
    void NoteSums(const CellRow &sums);
    [[nodiscard]] bool Collect(const CellRow &row);
    [[nodiscard]] bool FailedToCollect();
    [[nodiscard]] bool Regroup();
    [[nodiscard]] bool Failed(bool inStore);

    ReportTable &table;
    ReportQuery &query;
    RowCollector collector;
    RowTotals totals;
    RowTotals groupTotals; // of the last group
    RowStore collected; // rows as they came, where the database did not sort them
    std::vector<quint32> groupOfRow; // of those
    std::map<QString, quint32> collectedGroups;
    ReportProblem problem;
};
