// Whole rows as they stand, whatever their columns: to tell what a transaction changed, and whether
// one whose end was not heard of was kept.
#pragma once

#include "db/failure.h"

#include <QByteArray>
#include <QHashFunctions>
#include <QStringList>

#include <vector>

// The rows of a table that belong to an owner.
struct RowSet
{
    const char *table;
    const char *ownerColumn; // the column that names the owner
    quint32 owner;
    const char *keyColumn; // the column that tells the rows apart

    bool operator==(const RowSet &) const = default;
};

// Of equal row sets it is equal.
[[nodiscard]] inline size_t qHash(const RowSet &set, size_t seed = 0) // NOLINT: QHash's name
{
    return qHashMulti(seed,
                      static_cast<const void *>(set.table),
                      static_cast<const void *>(set.ownerColumn),
                      set.owner,
                      static_cast<const void *>(set.keyColumn));
}

// A command may hold those of a million users: the values stand in one piece.
struct RowImage
{
    QString key; // value of the key column
    QStringList columns;
    QByteArray packed; // the values; see ValuesOf

    bool operator==(const RowImage &) const = default;
};

// Parallel to the columns; at most 254 bytes of each.
[[nodiscard]] QStringList ValuesOf(const RowImage &image);

// In the order of the keys. With `lock` nobody else changes the rows before the transaction ends.
[[nodiscard]] Result<std::vector<RowImage>> ReadImages(const RowSet &rows, bool lock);
