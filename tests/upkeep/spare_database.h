// Databases beside the one of the engine's fixture, empty and with nobody connected.
#pragma once

#include <QString>

inline constexpr const char *kEngines[] = {"sqlite", "postgresql", "mariadb"};

// The data source of an empty database on the engine. There is one for each engine and purpose; what it
// held is gone. It goes with the program. A server makes it with these options, as in " ENCODING 'UTF8'".
[[nodiscard]] QString
SpareDatabase(const QString &engine, const QString &purpose, const QString &options = {});

// Runs statements in the engine's own spelling; a failure fails the test.
void RunOn(const QString &dsn, const QStringList &statements);

// Every row of the data source's database, as EveryRow() gives those of the session's. The session is
// closed.
[[nodiscard]] QStringList EveryRowOf(const QString &dsn);
