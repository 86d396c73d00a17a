#include "upkeep/database_rows.h"

#include "db/maintenance.h"
#include "db/schema.h"
#include "db/schema_version.h"

#include <algorithm>

using namespace Qt::StringLiterals;

Told<std::unique_ptr<DatabaseRows>> DatabaseRows::Open(const QString &dsn)
{
    auto rows = std::make_unique<DatabaseRows>();
    return rows->Begin(dsn).map([&] { return std::move(rows); });
}

Told<void> DatabaseRows::Begin(const QString &dsn)
{
    const auto fail = [](const QString &text) { return tl::unexpected(text); };
    if (!database.Open(dsn)) {
        return fail(u"The data source \"%1\" cannot be opened: %2"_s.arg(dsn, database.Error()));
    }
    if (!BeginSnapshot(database)) {
        return fail(database.Error());
    }
    const auto version = SchemaVersionOf(database);
    if (!version) {
        return fail(
            u"The version of the tables of \"%1\" cannot be read: %2"_s.arg(dsn, database.Error()));
    }
    if (const auto refused = RefusedSchemaText(*version)) {
        return fail(*refused);
    }
    site.engine = QString::fromLatin1(database.Engine().engine);
    site.version = *version;
    for (const TableShape &shape : TableShapes(*version)) {
        auto table = Look(shape);
        if (!table) {
            return fail(table.error());
        }
        site.tables.push_back(*std::move(table));
    }
    return {};
}

Told<SiteTable> DatabaseRows::Look(const TableShape &shape)
{
    const Dialect &dialect = database.Engine();
    const QString numbered = shape.givesNumbers
        ? u"COALESCE(MAX(%1), 0) + 1"_s.arg(Quoted(dialect, shape.key.first()))
        : u"0"_s;
    const auto counted =
        database.Rows(u"SELECT COUNT(*), %1 FROM %2"_s.arg(numbered, Quoted(dialect, shape.name)));
    if (!counted || counted->isEmpty()) {
        return tl::unexpected(
            u"The table \"%1\" cannot be read: %2"_s.arg(shape.name, database.Error()));
    }
    SiteTable table {
        shape, counted->first().at(0).toLongLong(), counted->first().at(1).toLongLong()};
    if (shape.givesNumbers) {
        const auto next = NextNumber(database, shape);
        if (!next) {
            return tl::unexpected(database.Error());
        }
        // Rows may have been brought with numbers beyond those that the engine gave.
        table.nextNumber = std::max(table.nextNumber, *next);
    }
    return table;
}

Told<RowBlock> DatabaseRows::Next(size_t table)
{
    if (!reader || readerTable != table) {
        reader = std::make_unique<TableReader>(database, site.tables[table].shape);
        readerTable = table;
    }
    auto block = reader->Next();
    return block ? Told<RowBlock>(*std::move(block)) : tl::unexpected(reader->Problem());
}

Told<void> DatabaseRows::Rewind()
{
    reader.reset();
    return {};
}
