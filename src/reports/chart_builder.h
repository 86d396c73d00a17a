// Fills a report's chart from its query, or from rows that are already summed by the chart's label.
#pragma once

#include "reports/report_query.h"
#include "reports/report_table.h"

// False when the database fails; the query then holds the problem.
[[nodiscard]] bool BuildChart(ReportTable &table, ReportQuery &query);
