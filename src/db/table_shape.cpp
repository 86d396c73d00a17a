#include "db/table_shape.h"

#include "db/dialect.h"
#include "db/schema.h"
#include "db/schema_version.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

ColumnKind KindOf(const QString &type)
{
    if (type == u"DOUBLE"_s) {
        return ColumnKind::Amount;
    }
    if (type == u"DATE"_s) {
        return ColumnKind::Day;
    }
    if (type == u"DATETIME"_s) {
        return ColumnKind::Moment;
    }
    return type == u"VARCHAR"_s ? ColumnKind::Text : ColumnKind::Integer;
}

// One line of a CREATE TABLE: a column, or the key of several.
void AddLine(const QString &line, TableShape &shape)
{
    static const QRegularExpression kKey(u"^PRIMARY KEY \\(([^)]*)\\)"_s);
    static const QRegularExpression kColumn(
        u"^\"?(\\w+)\"? (INTEGER|SMALLINT|DOUBLE|VARCHAR|DATETIME|DATE)\\b(.*)$"_s);
    if (const auto key = kKey.match(line); key.hasMatch()) {
        shape.key = key.captured(1).split(u", "_s);
        return;
    }
    const auto column = kColumn.match(line);
    if (!column.hasMatch()) {
        return;
    }
    shape.columns.push_back({column.captured(1), KindOf(column.captured(2))});
    if (column.captured(3).contains(u"PRIMARY KEY"_s)) {
        shape.key = QStringList(column.captured(1));
        shape.givesNumbers = column.captured(3).contains(u"AUTOINCREMENT"_s);
    }
}

} // namespace

std::vector<TableShape> TableShapes(int version)
{
    static const QRegularExpression kTable(u"^CREATE TABLE (\\w+) \\((.*)\\)$"_s,
                                           QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression kAddition(u"^ALTER TABLE (\\w+) ADD COLUMN (.*)$"_s);
    std::vector<TableShape> shapes;
    for (const QString &statement : SchemaStatements(kSqlite, version)) {
        if (const auto addition = kAddition.match(statement); addition.hasMatch()) {
            const auto changed = std::ranges::find(shapes, addition.captured(1), &TableShape::name);
            Q_ASSERT(changed != shapes.end());
            AddLine(addition.captured(2), *changed);
        }
        const auto table = kTable.match(statement);
        if (!table.hasMatch() || table.captured(1) == kVersionTable) {
            continue;
        }
        TableShape &shape = shapes.emplace_back();
        shape.name = table.captured(1);
        for (const QString &line : table.captured(2).split(u'\n')) {
            AddLine(line.trimmed(), shape);
        }
    }
    return shapes;
}
