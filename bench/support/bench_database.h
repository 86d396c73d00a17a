// Databases with demonstration data of any size, on every engine.
#pragma once

#include <QString>

inline const char *const kBenchEngines[] = {"sqlite", "postgresql", "mariadb"};

// The data source of a database on the engine ("sqlite", "postgresql" or "mariadb") with so many users
// and 50 groups, with the options that tollbrook-db recommends. It is made on its first use, which
// takes a minute or so for a million users. Ends the program when that fails: the servers must run.
[[nodiscard]] QString BenchDatabase(const QString &engine, int users);
