#include "db/row_image.h"

#include "base/text.h"
#include "db/dialect.h"
#include "db/session_state.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace {

constexpr char kEnd = '\0'; // of each value; the driver hands over none that holds it

std::string TextFor(const RowSet &rows, bool lock)
{
    std::string text = "SELECT * FROM ";
    text.append(rows.table).append(" WHERE ").append(rows.ownerColumn).append(" = (?) ORDER BY ");
    text.append(rows.keyColumn);
    return lock ? text + SessionDialect().lockRows : text;
}

// Thousands of images of one table share the names.
QStringList Shared(QStringList names)
{
    static thread_local QStringList last;
    if (names != last) {
        last = std::move(names);
    }
    return last;
}

QStringList ColumnNames()
{
    SQLSMALLINT count = 0;
    SQLNumResultCols(dbSession.statement, &count);
    QStringList names;
    for (SQLSMALLINT column = 1; column <= count; ++column) {
        std::array<SQLCHAR, 128> name {};
        SQLDescribeCol(dbSession.statement,
                       static_cast<SQLUSMALLINT>(column),
                       name.data(),
                       name.size(),
                       nullptr,
                       nullptr,
                       nullptr,
                       nullptr,
                       nullptr);
        names << TextFromUtf8(reinterpret_cast<const char *>(name.data())).toLower();
    }
    return Shared(std::move(names));
}

// The buffer of the session holds the first columns; those behind it are asked for one by one.
QString ValueOf(int column)
{
    if (column <= QueryResult::kColumns) {
        return queryResult.Text(column);
    }
    std::array<char, QueryResult::kColumnBytes + 1> text {};
    SQLLEN indicator = 0;
    const SQLRETURN code = SQLGetData(dbSession.statement,
                                      static_cast<SQLUSMALLINT>(column),
                                      SQL_C_CHAR,
                                      text.data(),
                                      QueryResult::kColumnBytes,
                                      &indicator);
    if (!odbc::Succeeded(code)) {
        session::Fail(session::Diagnosed(SQL_HANDLE_STMT, dbSession.statement, {}));
    }
    return indicator == SQL_NULL_DATA ? QString() : TextFromUtf8(text.data());
}

// Of the row at hand.
RowImage ImageOf(const QStringList &columns, qsizetype keyPlace)
{
    RowImage image {{}, columns, {}};
    for (int column = 0; column < columns.size(); ++column) {
        const QString value = ValueOf(column + 1);
        if (column == keyPlace) {
            image.key = value;
        }
        image.packed += value.toUtf8() + kEnd;
    }
    image.packed.squeeze();
    return image;
}

} // namespace

QStringList ValuesOf(const RowImage &image)
{
    QStringList values;
    for (const QByteArray &value : image.packed.split(kEnd)) {
        values << QString::fromUtf8(value);
    }
    values.removeLast(); // behind the last end
    return values;
}

Result<std::vector<RowImage>> ReadImages(const RowSet &rows, bool lock)
{
    std::vector<RowImage> images;
    {
        RowCursor cursor(TextFor(rows, lock).c_str(), rows.owner);
        const QStringList columns = LastFailure() ? QStringList() : ColumnNames();
        const QString key = QString::fromLatin1(rows.keyColumn).toLower();
        while (!LastFailure() && cursor.Next()) {
            images.push_back(ImageOf(columns, columns.indexOf(key)));
        }
    }
    if (const auto &failure = LastFailure()) {
        return tl::unexpected(*failure);
    }
    return images;
}
