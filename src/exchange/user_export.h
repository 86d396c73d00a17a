// All monitored users as a table that an import reads.
#pragma once

#include "db/failure.h"
#include "reports/report_table.h"

// In the order of their names, on the session of the calling thread. `rate`: currency per base unit. Of a
// user's logins the last one is told, and no password; of credits the first that is open.
[[nodiscard]] Result<ReportTablePtr> ReadUsersToExport(double rate);

// Saves them as a CSV or XLSX file, as its ending says; how many there are.
[[nodiscard]] Result<qint64> ExportUsers(const QString &fileName, double rate);
