// What the tables of a version of the schema look like, the same on every engine.
#pragma once

#include <QString>
#include <QStringList>

#include <vector>

enum class ColumnKind {
    Integer,
    Amount, // a real number
    Text,
    Day, // "2026-11-21"
    Moment, // "2026-11-21 08:30:00"
};

struct ColumnShape
{
    QString name; // in lower case, not quoted
    ColumnKind kind;

    bool operator==(const ColumnShape &) const = default;
};

struct TableShape
{
    QString name;
    std::vector<ColumnShape> columns;
    QStringList key; // the columns that tell one row from all others
    bool givesNumbers = false; // the engine numbers new rows in the one column of the key

    bool operator==(const TableShape &) const = default;
};

// The tables with what a site stores, in the order in which they are made: all of the schema's but that
// of its version. They are read from the scripts of the embedded engine (schema_scripts.h).
[[nodiscard]] std::vector<TableShape> TableShapes(int version);
