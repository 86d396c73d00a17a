// All monitored users as a table that an import reads.
#pragma once

#include "db/failure.h"

#include <QByteArray>

// Saves them as a CSV or XLSX file, as its ending says; how many there are. On the session of the calling
// thread, in the order of their names. `rate`: currency per base unit. Of a user's logins the last one is
// told, and no password; of credits the first that is open. As a trial all is done but that the file gets its
// name.
[[nodiscard]] Result<qint64>
ExportUsers(const QString &fileName, double rate, bool isTrial = false);

// The same as the text of a CSV file, without the mark by which spreadsheets know UTF-8.
[[nodiscard]] Result<QByteArray> ExportedUsers(double rate);
