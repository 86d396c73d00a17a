#include "db/table_reader.h"

#include "db/odbc.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

// Every value is fetched as text, which loses nothing: 255 characters of 4 bytes, the digits of any
// number, and of what should have been a day whatever it is.
long WidthOf(ColumnKind kind)
{
    constexpr long kTextBytes = 255 * 4 + 2;
    constexpr long kOtherBytes = 64;
    return kind == ColumnKind::Text ? kTextBytes : kOtherBytes;
}

// How a column is asked for, whose name is quoted. The embedded engine's driver cuts amounts at 15 digits.
// That engine keeps any value in any column, and its driver cuts a text at a NUL and gives binary data as
// a text of its own: more than a column is wide comes in the place of these.
QString Expression(const Dialect &dialect, ColumnKind kind, const QString &quoted)
{
    if (&dialect == &kSqlite && kind == ColumnKind::Amount) {
        return u"quote(%1)"_s.arg(quoted);
    }
    if (&dialect == &kSqlite && kind == ColumnKind::Text) {
        return u"CASE WHEN typeof(%1) = 'blob' OR instr(%1, char(0)) > 0 "
               "THEN hex(zeroblob(1000)) ELSE %1 END"_s.arg(quoted);
    }
    return quoted;
}

bool IsNumber(ColumnKind kind)
{
    return kind == ColumnKind::Integer || kind == ColumnKind::Amount;
}

// "the rows behind that whose key is (?, ?, ...)", written so that an index finds their beginning.
QString Following(const QStringList &key)
{
    QString condition = key.last() + u" > ?"_s;
    for (auto column = key.rbegin() + 1; column != key.rend(); ++column) {
        condition = u"(%1 > ? OR (%1 = ? AND %2))"_s.arg(*column, condition);
    }
    return key.size() == 1 ? condition : key.first() + u" >= ? AND "_s + condition;
}

} // namespace

TableReader::TableReader(DirectConnection &connection, const TableShape &tableShape)
    : database(connection)
    , shape(tableShape)
{
    const size_t rows = RowsInBlock(shape);
    for (const auto &[name, kind] : shape.columns) {
        const long width = WidthOf(kind);
        columns.push_back(
            {kind, width, std::vector<char>(rows * size_t(width)), std::vector<long>(rows)});
    }
}

QString TableReader::Query() const
{
    const Dialect &dialect = database.Engine();
    QStringList names;
    for (const auto &[name, kind] : shape.columns) {
        names << Expression(dialect, kind, Quoted(dialect, name));
    }
    QStringList key;
    for (const QString &column : shape.key) {
        key << Quoted(dialect, column);
    }
    QString query = u"SELECT %1 FROM %2"_s.arg(names.join(u','), Quoted(dialect, shape.name));
    if (last) {
        query += u" WHERE "_s + Following(key);
    }
    return query + u" ORDER BY %1 LIMIT %2"_s.arg(key.join(u',')).arg(RowsInBlock(shape));
}

// The values of the markers in Following().
SqlValues TableReader::Behind() const
{
    SqlValues values;
    if (!last) {
        return values;
    }
    const size_t row = last->rows - 1;
    SqlValues key;
    for (const QString &name : shape.key) {
        const auto column =
            std::find_if(shape.columns.begin(),
                         shape.columns.end(),
                         [&](const ColumnShape &candidate) { return candidate.name == name; });
        const ColumnValues &source = last->columns[size_t(column - shape.columns.begin())];
        key.push_back(source.Kind() == ColumnKind::Integer
                          ? SqlValue(static_cast<qint32>(source.Integer(row)))
                          : SqlValue(QByteArray(source.Text(row).data(),
                                                qsizetype(source.Text(row).size()))));
    }
    if (key.size() > 1) {
        values.push_back(key.front());
    }
    for (size_t part = 0; part + 1 < key.size(); ++part) {
        values.insert(values.end(), {key[part], key[part]});
    }
    values.push_back(key.back());
    return values;
}

void TableReader::Attach()
{
    void *const handle = database.Handle();
    SQLSetStmtAttr(
        handle, SQL_ATTR_ROW_ARRAY_SIZE, odbc::Value(RowsInBlock(shape)), SQL_IS_UINTEGER);
    SQLSetStmtAttr(handle, SQL_ATTR_ROWS_FETCHED_PTR, &fetched, SQL_IS_POINTER);
    SQLUSMALLINT number = 0;
    for (Column &column : columns) {
        SQLBindCol(handle,
                   ++number,
                   SQL_C_CHAR,
                   column.bytes.data(),
                   column.width,
                   column.indicators.data());
    }
}

std::optional<RowBlock> TableReader::Next()
{
    RowBlock block(shape);
    const bool isOpen = database.Start(Query(), Behind());
    Attach(); // one of the drivers knows of no more columns before than the query before it had
    const bool read = isOpen && Fetch(block);
    database.End();
    if (!read) {
        problem = problem.isEmpty() ? database.Error() : problem;
        return std::nullopt;
    }
    if (block.rows != 0) {
        last = block;
    }
    return block;
}

bool TableReader::Fetch(RowBlock &block)
{
    for (;;) {
        fetched = 0;
        const SQLRETURN code = SQLFetch(database.Handle());
        if (code == SQL_NO_DATA) {
            return true;
        }
        if (!database.Note(code)) {
            return false;
        }
        if (!AddFetched(block)) {
            return false;
        }
        block.rows += fetched;
    }
}

bool TableReader::AddFetched(RowBlock &block)
{
    for (size_t column = 0; column < columns.size(); ++column) {
        for (size_t row = 0; row < fetched; ++row) {
            if (!Add(columns[column], row, block.columns[column])) {
                return Fail(column, row);
            }
        }
    }
    return true;
}

bool TableReader::Add(const Column &source, size_t row, ColumnValues &values) const
{
    const long length = source.indicators[row];
    if (length == SQL_NULL_DATA) {
        values.AddNull();
        return true;
    }
    if (length < 0 || length >= source.width) {
        return false;
    }
    const std::string_view text(source.bytes.data() + row * size_t(source.width), size_t(length));
    if (IsNumber(source.kind)) {
        // The word that the embedded engine spells it with.
        if (text == "NULL") {
            values.AddNull();
            return true;
        }
        return values.AddNumber(text);
    }
    constexpr size_t kDayLength = 10;
    const bool lacksTime = source.kind == ColumnKind::Moment && length == kDayLength;
    values.AddText(lacksTime ? std::string(text) + " 00:00:00" : std::string(text));
    return true;
}

bool TableReader::Fail(size_t column, size_t row)
{
    QStringList place;
    for (size_t part = 0; part < columns.size(); ++part) {
        const Column &source = columns[part];
        const QString &name = shape.columns[part].name;
        if (part != column && shape.key.contains(name)) {
            const char *bytes = source.bytes.data() + row * size_t(source.width);
            place << name + u" " + QString::fromUtf8(bytes);
        }
    }
    problem = u"The table \"%1\" has a value in \"%2\" that such a column does not hold"_s.arg(
        shape.name, shape.columns[column].name);
    if (!place.isEmpty()) {
        problem += u", in the row of %1"_s.arg(place.join(u", "_s));
    }
    problem += u'.';
    return false;
}
