// The section of odbc.ini that a data source has, and the one that it should have.
#pragma once

#include <QString>

// The data source's section as it stands, with the options that its engine needs to be fast and to
// keep every text as it is. A password is shown as "***".
[[nodiscard]] QString RecommendedSection(const QString &dsn);

// What to do when nothing describes the data source: a sentence for people. Empty when odbc.ini does.
[[nodiscard]] QString MissingSourceAdvice(const QString &dsn);
