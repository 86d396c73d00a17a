// A little data for the reports, on whichever database the session is open, and reports made of it.
#pragma once

#include "reports/engine.h"
#include "reports/selection.h"

#include <QString>

// Users with odd names, groups, some days of traffic and time, credits of all modes and visited
// sites.
void FillReportData();

// The odd user names among them.
[[nodiscard]] QStringList OddNames();

// The request for a catalogue row, read from the layouts in the source tree.
[[nodiscard]] ReportRequest RequestFor(const QString &dsn,
                                       int row,
                                       const ReportPeriod &period = {},
                                       const QString &userClause = {},
                                       const QString &groupClause = {});

// The report, made at a fixed time; a failure fails the test.
[[nodiscard]] ReportTablePtr ReportOf(const ReportRequest &request);
