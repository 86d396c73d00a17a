// Makes a report's table: reads the layout, asks the database, sums, groups, takes the first ten.
#pragma once

#include "reports/connection_text.h"
#include "reports/report_run.h"
#include "reports/report_table.h"
#include "reports/statement_builder.h"

struct ReportRequest : ReportSubject
{
    QString layoutPath;
    QString query; // empty: the layout's stored one
    std::optional<StatementFilter> statement; // statements of these users, without layout and query
    QString connectionText;
    QDateTime made = QDateTime::currentDateTime();
};

// Null, and `problem` filled, when it cannot be made or was cancelled. May run on a thread of its
// own, which then owns all it works with.
[[nodiscard]] ReportTablePtr
MakeReport(const ReportRequest &request, RunControl &control, ReportProblem &problem);
