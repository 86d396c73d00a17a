#include "upkeep/backup_header.h"

#include "db/schema_version.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>

using namespace Qt::StringLiterals;

namespace {

QString KindName(ColumnKind kind)
{
    static const std::array kNames {u"integer"_s, u"amount"_s, u"text"_s, u"day"_s, u"moment"_s};
    return kNames.at(static_cast<size_t>(kind));
}

// The part that the version of the tables settles.
QJsonObject ObjectOf(const TableShape &shape)
{
    QJsonArray columns;
    for (const auto &[name, kind] : shape.columns) {
        columns << QJsonArray {name, KindName(kind)};
    }
    return {{u"name"_s, shape.name},
            {u"columns"_s, columns},
            {u"key"_s, QJsonArray::fromStringList(shape.key)}};
}

QJsonObject ObjectOf(const SiteTable &table)
{
    QJsonObject object = ObjectOf(table.shape);
    object.insert(u"rows"_s, table.rows);
    object.insert(u"next"_s, table.nextNumber);
    return object;
}

} // namespace

QByteArray HeaderOf(const Site &site)
{
    QJsonArray tables;
    for (const SiteTable &table : site.tables) {
        tables << ObjectOf(table);
    }
    const QJsonObject header {{u"engine"_s, site.engine},
                              {u"version"_s, site.version},
                              {u"made"_s, QDateTime::currentDateTimeUtc().toString(Qt::ISODate)},
                              {u"tables"_s, tables}};
    return QJsonDocument(header).toJson(QJsonDocument::Compact);
}

Told<Site> SiteFrom(const QByteArray &header)
{
    const QJsonObject object = QJsonDocument::fromJson(header).object();
    Site site {object.value(u"engine"_s).toString(), object.value(u"version"_s).toInt(-1), {}};
    if (site.version < 0) {
        return tl::unexpected(u"its beginning cannot be read"_s);
    }
    if (const auto refused = RefusedSchemaText(site.version)) {
        return tl::unexpected(*refused);
    }
    const QJsonArray tables = object.value(u"tables"_s).toArray();
    const std::vector<TableShape> shapes = TableShapes(site.version);
    if (static_cast<size_t>(tables.size()) != shapes.size()) {
        return tl::unexpected(u"it does not hold the tables of its version"_s);
    }
    for (const TableShape &shape : shapes) {
        const QJsonObject table = tables.at(qsizetype(site.tables.size())).toObject();
        SiteTable described {
            shape, table.value(u"rows"_s).toInteger(-1), table.value(u"next"_s).toInteger(-1)};
        if (ObjectOf(described) != table) {
            return tl::unexpected(u"it does not hold the tables of its version"_s);
        }
        site.tables.push_back(std::move(described));
    }
    return site;
}
