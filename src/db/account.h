// The account under which a program is known to a database server.
#pragma once

#include <QString>

struct Dialect;

namespace odbc {
struct Diagnostic;
}

// The account of a data source that names none.
inline const auto kUsualAccount = QStringLiteral("system");

// The account that the data source's section of odbc.ini names ("UserName", "User" or "UID"), else the
// usual one. The driver takes the password of the same section, whoever is named.
[[nodiscard]] QString AccountOf(const QString &dsn);

// The driver's words, behind a sentence that names the account and the data source where the failure is
// that the account may not do it; in one on what a reader of a file needs where that is it.
[[nodiscard]] QString WithLackedRight(const Dialect &dialect,
                                      const odbc::Diagnostic &failed,
                                      const QString &account,
                                      const QString &dsn);
