// Which version the tables of a database have, and what that means for a program.
//
// The table `schema_version` holds the number of the last step (schema_scripts.h) that the database has
// behind it. A database with users but without that table, or with a step broken off before its first
// number was written, has version 0.
#pragma once

#include "base/function_ref.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <string>

class DirectConnection;
struct Dialect;

enum class SchemaAge {
    Older, // "tollbrook-db upgrade" brings it up to date
    Current,
    Newer, // of a newer program: what its rows mean is not known here
    None, // nobody has made tables in it
    Incomplete, // a restore or a copy into it has not come to its end
};

inline const auto kVersionTable = QStringLiteral("schema_version");

// The version of a database while it is being filled from another one or from a backup. It is larger
// than any, so that programs that do not know of it refuse the database, too.
constexpr int kIncompleteSchema = 1'000'000;

// The version of a database without tables.
constexpr int kNoSchema = -1;

[[nodiscard]] SchemaAge AgeOf(int version);

// What a person is told of a database whose schema is older or newer, with the command that helps.
[[nodiscard]] QString OlderSchemaText(int version, const QString &dsn);
[[nodiscard]] QString NewerSchemaText(int version);

// What a person is told of a database that no program works with: its schema is newer, it is not whole, or
// it has no tables. Nothing for any other.
[[nodiscard]] std::optional<QString> RefusedSchemaText(int version);

// That of the two that fits; nothing for the current version.
[[nodiscard]] std::optional<QString> OtherSchemaText(int version, const QString &dsn);

// Runs a query in the engine's spelling and gives its one value; nothing when it fails.
using AskNumber = FunctionRef<std::optional<int>(const std::string &query)>;

// The version of a database that `ask` reads; nothing when any of it fails.
[[nodiscard]] std::optional<int> ReadSchemaVersion(const Dialect &dialect, AskNumber ask);

// The version of the connection's database; nothing when it cannot be read: Error() tells.
[[nodiscard]] std::optional<int> SchemaVersionOf(DirectConnection &database);

// Statements behind those of a step that note its number. The first is all that matters: the largest
// number counts.
[[nodiscard]] QStringList VersionStatements(int version);
