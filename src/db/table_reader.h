// Reads whole tables in the order of their keys, a block of rows at a time, whatever their size.
#pragma once

#include "db/direct_connection.h"
#include "db/row_block.h"

class TableReader
{
public:
    // The shape must live as long as the reader.
    TableReader(DirectConnection &connection, const TableShape &tableShape);

    // The next rows, RowsInBlock() of them unless the table ends; none behind the last. Nothing when they
    // could not be read, or one holds what its column's kind does not have: Problem() tells.
    [[nodiscard]] std::optional<RowBlock> Next();

    [[nodiscard]] const QString &Problem() const { return problem; }

private:
    struct Column
    {
        ColumnKind kind;
        long width; // bytes of a value, its NUL included
        std::vector<char> bytes;
        std::vector<long> indicators;
    };

    [[nodiscard]] QString Query() const;
    [[nodiscard]] SqlValues Behind() const;
    void Attach();
    [[nodiscard]] bool Fetch(RowBlock &block);
    [[nodiscard]] bool AddFetched(RowBlock &block);
    [[nodiscard]] bool Add(const Column &source, size_t row, ColumnValues &values) const;
    [[nodiscard]] bool Fail(size_t column, size_t row);

    DirectConnection &database;
    const TableShape &shape;
    std::vector<Column> columns;
    unsigned long fetched = 0;
    std::optional<RowBlock> last; // whose last row the next ones follow
    QString problem;
};
