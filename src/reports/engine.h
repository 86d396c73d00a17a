// Makes a report's table: reads the layout, asks the database, sums, groups, takes the first ten.
#pragma once

#include "reports/connection_text.h"
#include "reports/report_run.h"
#include "reports/report_table.h"

struct ReportRequest
{
    QString layoutPath;
    QString query; // empty: the layout's stored one
    QString connectionText;
    QString period; // in words, for the heading
    QDate firstDay; // of the period, which a chart then shows whole; invalid for all that there is
    QDate lastDay;
    QString filter;
    QDateTime made = QDateTime::currentDateTime();
    PageSetup setup;
    QString currency; // what money is in; empty: as the layout has it
};

// Null, and `problem` filled, when it cannot be made or was cancelled. May run on a thread of its
// own, which then owns all it works with.
[[nodiscard]] ReportTablePtr
MakeReport(const ReportRequest &request, RunControl &control, ReportProblem &problem);
