#include "db/row_writer.h"

#include "db/translation.h"

#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr size_t kRowsAtOnce = 100;

} // namespace

RowWriter::RowWriter(DirectConnection &connection, const char *tableName, const char *columnNames)
    : database(connection)
{
    const auto names = QString::fromLatin1(columnNames);
    columns = static_cast<size_t>(names.count(u',')) + 1;
    const auto statement =
        u"INSERT INTO %1 (%2) VALUES "_s.arg(QLatin1StringView(tableName), names);
    insert = QString::fromStdString(Translate(database.Engine(), statement.toStdString()));
    markers = u"("_s + QStringList(static_cast<qsizetype>(columns), u"?"_s).join(u',') + u")"_s;
    pending.reserve(columns * kRowsAtOnce);
}

bool RowWriter::Add(SqlValues row)
{
    Q_ASSERT(row.size() == columns);
    std::move(row.begin(), row.end(), std::back_inserter(pending));
    if (pending.size() == columns * kRowsAtOnce) {
        good = good && Write(kRowsAtOnce);
    }
    return good;
}

bool RowWriter::Finish()
{
    prepared = false;
    return good && (pending.empty() || Write(pending.size() / columns));
}

bool RowWriter::Write(size_t rows)
{
    if (!prepared) {
        const QStringList rowMarkers(static_cast<qsizetype>(rows), markers);
        prepared = database.Prepare(insert + rowMarkers.join(u','));
    }
    const bool written = prepared && database.RunPrepared(pending);
    pending.clear();
    return written;
}
