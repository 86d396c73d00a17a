// The section of odbc.ini that a data source has, and the one that it should have.
#pragma once

#include <QString>

#include <optional>

struct Dialect;

// The data source's section as it stands, with the options that its engine needs to be fast and to
// keep every text as it is. A password is shown as "***".
[[nodiscard]] QString RecommendedSection(const QString &dsn);

// What becomes of a data source whose database is a file that is not there.
enum class AbsentFile { IsRefused, IsMade };

// The text of a connection by an account, with the password that the data source may name itself.
[[nodiscard]] QByteArray OpeningText(const QString &dsn, const QString &account, AbsentFile absent);

// The file that the data source names as its database, after a connection of which the driver said this:
// nothing when it is there, or the database is not a file.
[[nodiscard]] std::optional<QString> AbsentFileOf(const QString &dsn, const QString &driverText);

// What a person is told of such a connection: of the absent file, else what the driver said.
[[nodiscard]] QString RefusedConnectionText(const QString &dsn, const QString &driverText);

// Why the connection is to nothing that stays, in a sentence for people: the data source names no file for the
// engine whose databases are files. Without one the driver makes a database that goes with the connection.
[[nodiscard]] std::optional<QString>
NoDatabaseText(const Dialect &dialect, void *connection, const QString &dsn);

// Whether it can be one: ODBC takes at most 32 bytes, and allows none of []{}(),;?*=!@\ in the name of a data source.
[[nodiscard]] bool IsDataSourceName(const QString &dsn);

// What to do when nothing describes the data source: a sentence for people. Empty when odbc.ini does.
[[nodiscard]] QString MissingSourceAdvice(const QString &dsn);
