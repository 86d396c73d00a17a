// The schema's statements in the order in which a database is filled: tables, rows, then indexes.
//
// While it is being filled its version is kIncompleteSchema, which every program refuses.
#pragma once

#include "upkeep/site_rows.h"

#include <QStringList>

struct Dialect;

// Make the tables of a version, without rows, and the mark before all others: MariaDB keeps each
// statement that makes a table at once.
[[nodiscard]] QStringList MarkedTables(const Dialect &dialect, int version);

// Take the keys that number the rows away from tables that are to be filled, and make them again behind
// that: one of the engines sorts the numbers of a whole table in a fraction of the time that it takes to
// find the place of each. None for the others, whose rows lie in the order of the key.
[[nodiscard]] QStringList KeyRemovals(const Dialect &dialect, const Site &site);
[[nodiscard]] QStringList KeysOf(const Dialect &dialect, const Site &site);

[[nodiscard]] QStringList IndexesOf(const Dialect &dialect, int version);

// Replaces the mark by the version.
[[nodiscard]] QString MarkRemoval(int version);

// Remove all tables, and the mark last.
[[nodiscard]] QStringList TableRemovals(const Dialect &dialect);
