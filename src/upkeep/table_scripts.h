// The schema's statements in the order in which a database is filled: tables, rows, then indexes.
//
// While it is being filled its version is kIncompleteSchema, which every program refuses.
#pragma once

#include <QStringList>

struct Dialect;

// Make the tables of a version, without rows, and the mark before all others: MariaDB keeps each
// statement that makes a table at once.
[[nodiscard]] QStringList MarkedTables(const Dialect &dialect, int version);

[[nodiscard]] QStringList IndexesOf(const Dialect &dialect, int version);

// Replaces the mark by the version.
[[nodiscard]] QString MarkRemoval(int version);

// Remove all tables, and the mark last.
[[nodiscard]] QStringList TableRemovals(const Dialect &dialect);
