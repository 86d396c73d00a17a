// The text that tells a report which data source to read: "DSN = bill;UID = System;PWD;DSQ=".
#pragma once

#include <QString>

struct ConnectionText
{
    QString dsn;
    QString user;
    QString password; // empty: the data source's own
};

// The text of the product for a data source, "bill" unless another is named.
[[nodiscard]] QString ReportConnectionText(const QString &dsn = QStringLiteral("bill"));

// Reads parts between semicolons, "name = value" or a name alone, with blanks around both and names
// in any case; names it does not know are passed over. The account is written in lower case: the
// database knows it as "system".
[[nodiscard]] ConnectionText ParseConnectionText(const QString &text);
