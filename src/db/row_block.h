// Some rows of one table, column by column, as they travel between databases and files: in no engine's
// own form.
#pragma once

#include "db/table_shape.h"

#include <QByteArray>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What one column holds. A NULL has an empty value besides.
class ColumnValues
{
public:
    explicit ColumnValues(ColumnKind columnKind) : kind(columnKind) { }

    [[nodiscard]] ColumnKind Kind() const { return kind; }
    [[nodiscard]] bool IsNull(size_t row) const { return nulls[row] != 0; }
    [[nodiscard]] qint64 Integer(size_t row) const { return integers[row]; }
    [[nodiscard]] double Amount(size_t row) const { return amounts[row]; }
    [[nodiscard]] std::string_view Text(size_t row) const; // also of days and moments, in UTF-8

    // The value in words; "NULL" where there is none.
    [[nodiscard]] QString InWords(size_t row) const;

    void AddNull();
    void AddText(std::string_view text);

    // Adds the number that the text spells the C way; false when it is none.
    [[nodiscard]] bool AddNumber(std::string_view text);

    void AppendTo(QByteArray &bytes) const;

    // Reads `rows` values and moves `bytes` behind them; false when they are not there.
    [[nodiscard]] bool TakeFrom(QByteArrayView &bytes, size_t rows);

    bool operator==(const ColumnValues &) const = default;

private:
    [[nodiscard]] bool TakeTexts(QByteArrayView &bytes, size_t rows);

    ColumnKind kind;
    std::vector<char> nulls;
    std::vector<qint64> integers;
    std::vector<double> amounts; // never -0, which not every engine keeps
    std::string texts; // one behind the other
    std::vector<quint32> ends; // of each in `texts`
};

struct RowBlock
{
    explicit RowBlock(const TableShape &shape);

    size_t rows = 0;
    std::vector<ColumnValues> columns; // as many as the shape has

    bool operator==(const RowBlock &) const = default;
};

// The rows as bytes: their number, then column after column.
[[nodiscard]] QByteArray BytesOf(const RowBlock &block);

// Nothing when the bytes are not what BytesOf() gives for a table of this shape.
[[nodiscard]] std::optional<RowBlock> BlockFrom(QByteArrayView bytes, const TableShape &shape);

// How many rows of the table one block has at most; the same for every reader.
[[nodiscard]] size_t RowsInBlock(const TableShape &shape);
