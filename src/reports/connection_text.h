// The text that tells a report which data source to read: "DSN = bill;UID = System;PWD;DSQ=".
#pragma once

#include <QString>

class ConfigStore;

struct ConnectionText
{
    QString dsn;
    QString user;
    QString password; // empty: the data source's own
};

// The data source that reports read: the settings' "ReportsDsn", else "bill".
[[nodiscard]] QString ReportsDataSource(const ConfigStore &settings);

// The text of the product for a data source, "bill" unless another is named.
[[nodiscard]] QString ReportConnectionText(const QString &dsn = QStringLiteral("bill"));

// Reads parts between semicolons, "name = value" or a name alone, with blanks around both and names
// in any case; names it does not know are passed over. The account is written in lower case: the
// database knows it as "system". That stands for the one that the data source names, if it names one.
[[nodiscard]] ConnectionText ParseConnectionText(const QString &text);
