// Writes many rows into one table, a hundred of them with each statement.
#pragma once

#include "db/direct_connection.h"

class RowWriter
{
public:
    // `columns` are parted by commas; names are in lower case and quoted where an engine reserves them.
    RowWriter(DirectConnection &connection, const char *tableName, const char *columnNames);

    // Adds one row: a value for each column, of the same kinds for all rows. False when a statement
    // failed, now or before; the reason is the connection's.
    bool Add(SqlValues row);

    // Writes what is left. Call it once, at the end.
    [[nodiscard]] bool Finish();

private:
    bool Write(size_t rows);

    DirectConnection &database;
    QString insert;
    QString markers;
    size_t columns;
    SqlValues pending;
    bool prepared = false;
    bool good = true;
};
