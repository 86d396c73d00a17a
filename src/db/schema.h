// The tables of the shared database and their first rows, as each engine spells them.
#pragma once

#include <QString>
#include <QStringList>

#include <optional>

class DirectConnection;
struct Dialect;

// Makes every table, its indexes and its first rows (the group "Everybody" and the protocols that
// every network knows) in the data source's database, in the newest version. A database that already
// holds one of the tables is refused and left as it is. Nothing when it is done, else what went wrong.
[[nodiscard]] std::optional<QString> CreateSchema(const QString &dsn);

// Why the connection's database cannot keep every text, in a sentence for people: its characters are other
// ones than those of UTF-8. Only a PostgreSQL database is asked: its encoding is the one of every table.
[[nodiscard]] std::optional<QString> WrongEncodingText(DirectConnection &database,
                                                       const QString &dsn);

// The first of the schema's tables that the connection's database already holds.
[[nodiscard]] std::optional<QString> ExistingTable(DirectConnection &database);

// The tables' names in the order in which they are made.
[[nodiscard]] QStringList SchemaTables();

// The statements that make the newest schema, one after the other: the first one, all steps, and the
// version that it has by then.
[[nodiscard]] QStringList SchemaStatements(const Dialect &dialect);

// The same for an older version, without the number of the version itself.
[[nodiscard]] QStringList SchemaStatements(const Dialect &dialect, int version);
