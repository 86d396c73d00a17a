// The section of odbc.ini that a data source should have.
#pragma once

#include <QString>

// The data source's section as it stands, with the options that its engine needs to be fast and to
// keep every text as it is. A password is shown as "***".
[[nodiscard]] QString RecommendedSection(const QString &dsn);
