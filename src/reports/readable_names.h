// What of the database a report may read.
#pragma once

#include <QSet>
#include <QString>

// The columns of a table that a report may read, in lower case; null for a table that it may not.
// The logins are none of them: they hold the passwords' hashes.
[[nodiscard]] const QSet<QString> *ReadableColumns(const QString &tableInLowerCase);

// The functions that a report's query may call, in lower case: common to all engines, and with no
// effect but their result.
[[nodiscard]] bool IsReadingFunction(const QString &nameInLowerCase);
