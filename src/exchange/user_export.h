// All monitored users as a table that an import reads.
#pragma once

#include "db/failure.h"

#include <QByteArray>

// Saves them as a CSV or XLSX file, as its ending says; how many there are. On the session of the calling
// thread, in the order of their names. `rate`: currency per base unit. Of a user's logins the last one is
// told, and no password; of credits the first that is open.
[[nodiscard]] Result<qint64> ExportUsers(const QString &fileName, double rate);

// How many would be saved: all is read for it, and nothing written.
[[nodiscard]] Result<qint64> TryExportUsers(double rate);

// The same as the text of a CSV file, without the mark by which spreadsheets know UTF-8.
[[nodiscard]] Result<QByteArray> ExportedUsers(double rate);
