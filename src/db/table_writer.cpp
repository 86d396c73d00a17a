#include "db/table_writer.h"

#include "db/odbc.h"

#include <algorithm>
#include <charconv>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kRowsOfAStatement = 100;
constexpr size_t kRowsOfAnArray = 1000;

size_t RowsAtOnce(const Dialect &dialect)
{
    return dialect.bulkInsert == BulkInsert::ParameterArrays ? kRowsOfAnArray : kRowsOfAStatement;
}

size_t WidthOf(ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::Integer:
    case ColumnKind::Amount:
        return sizeof(qint64);
    case ColumnKind::Text:
        return size_t(255) * 4 + 2;
    case ColumnKind::Day:
    case ColumnKind::Moment:
        return 64;
    }
    Q_UNREACHABLE();
}

const char *ArrayType(ColumnKind kind)
{
    switch (kind) {
    case ColumnKind::Integer:
        return "bigint[]";
    case ColumnKind::Amount:
        return "double precision[]";
    case ColumnKind::Text:
        return "text[]";
    case ColumnKind::Day:
        return "date[]";
    case ColumnKind::Moment:
        return "timestamp[]";
    }
    Q_UNREACHABLE();
}

template <typename Number>
void AppendNumber(Number number, std::string &literal)
{
    char digits[32];
    literal.append(digits, std::to_chars(std::begin(digits), std::end(digits), number).ptr);
}

void AppendQuoted(std::string_view text, std::string &literal)
{
    literal += '"';
    for (const char c : text) {
        if (c == '"' || c == '\\') {
            literal += '\\';
        }
        literal += c;
    }
    literal += '"';
}

// All values of a column as the engine's literal of an array.
std::string ArrayOf(const ColumnValues &values, size_t rows)
{
    std::string literal = "{";
    for (size_t row = 0; row < rows; ++row) {
        literal += row == 0 ? "" : ",";
        if (values.IsNull(row)) {
            literal += "NULL";
        } else if (values.Kind() == ColumnKind::Integer) {
            AppendNumber(values.Integer(row), literal);
        } else if (values.Kind() == ColumnKind::Amount) {
            AppendNumber(values.Amount(row), literal);
        } else {
            AppendQuoted(values.Text(row), literal);
        }
    }
    return literal + '}';
}

QStringList ColumnNames(const TableShape &shape, const Dialect &dialect)
{
    QStringList names;
    for (const ColumnShape &column : shape.columns) {
        names << Quoted(dialect, column.name);
    }
    return names;
}

} // namespace

void TableWriter::Cells::Fill(const ColumnValues &values, size_t first, size_t count)
{
    for (size_t index = 0; index < count; ++index) {
        const size_t row = first + index;
        char *const cell = bytes.data() + index * width;
        if (values.IsNull(row)) {
            indicators[index] = SQL_NULL_DATA;
        } else if (kind == ColumnKind::Integer) {
            const qint64 integer = values.Integer(row);
            std::memcpy(cell, &integer, sizeof integer);
            indicators[index] = 0;
        } else if (kind == ColumnKind::Amount) {
            const double amount = values.Amount(row);
            std::memcpy(cell, &amount, sizeof amount);
            indicators[index] = 0;
        } else {
            const std::string_view text = values.Text(row).substr(0, width - 1);
            std::memcpy(cell, text.data(), text.size());
            cell[text.size()] = '\0';
            indicators[index] = static_cast<long>(text.size());
        }
    }
}

TableWriter::TableWriter(DirectConnection &connection, const TableShape &tableShape)
    : database(connection)
    , shape(tableShape)
    , insert(u"INSERT INTO %1 (%2) "_s.arg(Quoted(connection.Engine(), shape.name),
                                           ColumnNames(shape, connection.Engine()).join(u',')))
{
    const size_t rows = RowsAtOnce(database.Engine());
    for (const auto &[name, kind] : shape.columns) {
        const size_t width = WidthOf(kind);
        cells.push_back({kind, width, std::vector<char>(rows * width), std::vector<long>(rows)});
    }
}

TableWriter::~TableWriter()
{
    database.End();
}

bool TableWriter::Write(const RowBlock &block)
{
    return database.Engine().bulkInsert == BulkInsert::ValueArrays ? WriteArrays(block)
                                                                   : WriteParts(block);
}

bool TableWriter::WriteParts(const RowBlock &block)
{
    const size_t most = RowsAtOnce(database.Engine());
    for (size_t first = 0; first < block.rows; first += most) {
        const size_t count = std::min(most, block.rows - first);
        for (size_t column = 0; column < cells.size(); ++column) {
            cells[column].Fill(block.columns[column], first, count);
        }
        if (!Prepare(count) || !database.Note(SQLExecute(database.Handle()))) {
            return false;
        }
    }
    return true;
}

// One statement with all rows, or one with a row whose parameters are arrays.
bool TableWriter::Prepare(size_t rows)
{
    if (prepared == rows) {
        return true;
    }
    const bool hasArrays = database.Engine().bulkInsert == BulkInsert::ParameterArrays;
    const size_t rowsInText = hasArrays ? 1 : rows;
    const QString markers = u'(' + QStringList(qsizetype(cells.size()), u"?"_s).join(u',') + u')';
    const QStringList lines(qsizetype(rowsInText), markers);
    if (!database.Prepare(insert + u"VALUES "_s + lines.join(u','))) {
        return false;
    }
    SQLSetStmtAttr(database.Handle(),
                   SQL_ATTR_PARAMSET_SIZE,
                   odbc::Value(hasArrays ? rows : size_t(1)),
                   SQL_IS_UINTEGER);
    size_t parameter = 0;
    for (size_t row = 0; row < rowsInText; ++row) {
        for (Cells &column : cells) {
            BindCell(++parameter, column, row);
        }
    }
    prepared = rows;
    return true;
}

void TableWriter::BindCell(size_t parameter, Cells &column, size_t row)
{
    const bool isInteger = column.kind == ColumnKind::Integer;
    const bool isAmount = column.kind == ColumnKind::Amount;
    SQLBindParameter(database.Handle(),
                     static_cast<SQLUSMALLINT>(parameter),
                     SQL_PARAM_INPUT,
                     static_cast<SQLSMALLINT>(isInteger      ? SQL_C_SBIGINT
                                                  : isAmount ? SQL_C_DOUBLE
                                                             : SQL_C_CHAR),
                     static_cast<SQLSMALLINT>(isInteger      ? SQL_BIGINT
                                                  : isAmount ? SQL_DOUBLE
                                                             : SQL_VARCHAR),
                     isInteger || isAmount ? 0 : 255,
                     0,
                     column.bytes.data() + row * column.width,
                     static_cast<SQLLEN>(column.width),
                     &column.indicators[row]);
}

bool TableWriter::WriteArrays(const RowBlock &block)
{
    if (block.rows == 0) {
        return true;
    }
    if (prepared == 0) {
        QStringList arrays;
        for (const auto &[name, kind] : shape.columns) {
            arrays << u"unnest(CAST(? AS %1))"_s.arg(QLatin1StringView(ArrayType(kind)));
        }
        // In a FROM clause the engine would first write the rows of each array aside.
        if (!database.Prepare(insert + u"SELECT "_s + arrays.join(u','))) {
            return false;
        }
        prepared = 1;
    }
    std::vector<std::string> literals;
    std::vector<SQLLEN> lengths;
    for (const ColumnValues &values : block.columns) {
        literals.push_back(ArrayOf(values, block.rows));
        lengths.push_back(static_cast<SQLLEN>(literals.back().size()));
    }
    for (size_t column = 0; column < literals.size(); ++column) {
        SQLBindParameter(database.Handle(),
                         static_cast<SQLUSMALLINT>(column + 1),
                         SQL_PARAM_INPUT,
                         SQL_C_CHAR,
                         SQL_LONGVARCHAR,
                         literals[column].size(),
                         0,
                         literals[column].data(),
                         lengths[column],
                         &lengths[column]);
    }
    return database.Note(SQLExecute(database.Handle()));
}
