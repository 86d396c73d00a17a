// The engines' own command-line clients, which the product is held against.
#pragma once

#include "db/dialect.h"

#include <QStringList>

// Runs what it reads from its standard input on the data source.
[[nodiscard]] QStringList ClientCommand(const QString &engine, const QString &dsn);

// Runs one statement and prints its rows.
[[nodiscard]] QStringList
ClientCommand(const QString &engine, const QString &dsn, const QString &statement);

// The file that a data source of the embedded engine names.
[[nodiscard]] QString SqliteFile(const QString &dsn);

// How the data source's engine spells statements.
[[nodiscard]] const Dialect &DialectOf(const QString &dsn);
