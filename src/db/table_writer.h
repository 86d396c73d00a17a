// Writes many rows with their keys into one table, the way that each engine's driver is quick with.
#pragma once

#include "db/direct_connection.h"
#include "db/row_block.h"

class TableWriter
{
public:
    // The shape must live as long as the writer.
    TableWriter(DirectConnection &connection, const TableShape &tableShape);
    ~TableWriter();
    TableWriter(const TableWriter &) = delete;
    TableWriter &operator=(const TableWriter &) = delete;

    // Adds the rows; false when a statement failed: the connection's Error() tells.
    [[nodiscard]] bool Write(const RowBlock &block);

private:
    // What the driver takes values from: room for some rows of one column.
    struct Cells
    {
        ColumnKind kind;
        size_t width; // bytes of a value
        std::vector<char> bytes;
        std::vector<long> indicators;

        void Fill(const ColumnValues &values, size_t first, size_t count);
    };

    [[nodiscard]] bool WriteParts(const RowBlock &block);
    [[nodiscard]] bool Prepare(size_t rows);
    void BindCell(size_t parameter, Cells &cells, size_t row);
    [[nodiscard]] bool WriteArrays(const RowBlock &block);

    DirectConnection &database;
    const TableShape &shape;
    QString insert; // up to the values
    std::vector<Cells> cells;
    size_t prepared = 0; // for how many rows a statement is
};
