#include "upkeep/filled_database.h"

#include "db/maintenance.h"
#include "db/schema.h"
#include "db/schema_version.h"
#include "db/table_reader.h"
#include "db/table_writer.h"
#include "upkeep/nobody_else.h"
#include "upkeep/table_scripts.h"
#include "upkeep/table_sum.h"

#include <future>

using namespace Qt::StringLiterals;

namespace {

// Rows that one transaction writes, so that none of them grows without bound.
constexpr size_t kRowsOfATransaction = 200'000;

// Reads the next block of a table on a thread of its own, while the one before it is worked on.
class ReadAhead
{
public:
    ReadAhead(SiteRows &rows, size_t tableIndex) : source(rows), table(tableIndex) { Begin(); }

    [[nodiscard]] Told<RowBlock> Next()
    {
        Told<RowBlock> block = coming.get();
        if (block && block->rows > 0) {
            Begin();
        }
        return block;
    }

private:
    void Begin()
    {
        coming = std::async(std::launch::async, [this] { return source.Next(table); });
    }

    SiteRows &source;
    size_t table;
    std::future<Told<RowBlock>> coming; // waits for the thread when it goes
};

// The key and the values of the first row that is not the same. The blocks differ.
QString Difference(const TableShape &shape, const RowBlock &source, const RowBlock &copy)
{
    if (source.rows != copy.rows) {
        return u"The table \"%1\" has not as many rows as its source."_s.arg(shape.name);
    }
    const auto isSame = [&](size_t row, size_t column) {
        return source.columns[column].InWords(row) == copy.columns[column].InWords(row);
    };
    for (size_t row = 0; row < source.rows; ++row) {
        for (size_t column = 0; column < source.columns.size(); ++column) {
            if (!isSame(row, column)) {
                return u"The table \"%1\" has %2 in \"%3\" of the row of %4, and its source has %5."_s
                    .arg(shape.name,
                         copy.columns[column].InWords(row),
                         shape.columns[column].name,
                         source.columns.front().InWords(row),
                         source.columns[column].InWords(row));
            }
        }
    }
    return u"The table \"%1\" is not the same as its source."_s.arg(shape.name);
}

} // namespace

Told<std::unique_ptr<FilledDatabase>> FilledDatabase::Open(const QString &dsn)
{
    auto filled = std::make_unique<FilledDatabase>();
    return filled->Begin(dsn).map([&] { return std::move(filled); });
}

Told<void> FilledDatabase::Check(bool done) const
{
    return done ? Told<void>() : tl::unexpected(database.Error());
}

Told<void> FilledDatabase::Begin(const QString &dsn)
{
    if (!database.Open(dsn, AbsentFile::IsMade)) {
        return tl::unexpected(
            u"The data source \"%1\" cannot be opened: %2"_s.arg(dsn, database.Error()));
    }
    if (const auto wrong = WrongEncodingText(database, dsn)) {
        return tl::unexpected(*wrong);
    }
    const auto version = SchemaVersionOf(database);
    if (!version) {
        return tl::unexpected(
            u"The version of the tables of \"%1\" cannot be read: %2"_s.arg(dsn, database.Error()));
    }
    isBrokenOff = AgeOf(*version) == SchemaAge::Incomplete;
    if (const auto table = isBrokenOff ? std::nullopt : ExistingTable(database)) {
        return tl::unexpected(
            u"The database of \"%1\" already has a table \"%2\". Nothing was changed."_s.arg(
                dsn, *table));
    }
    return NobodyElse(database, dsn);
}

Told<void> FilledDatabase::Fill(SiteRows &source, const Tell &tell)
{
    if (!KeepOthersOut(database) || !PrepareForLoading(database)) {
        return tl::unexpected<QString>(u"Nobody else may be connected: "_s + database.Error());
    }
    const Site &site = source.About();
    return MakeTables(site, tell)
        .and_then([&] { return LoadAll(source, tell); })
        .and_then([&] { return Complete(site, tell); })
        .and_then([&] { return source.Rewind(); })
        .and_then([&] { return CompareAll(source, tell); })
        .and_then([&] { return Transact({MarkRemoval(site.version)}); })
        .map_error([](const QString &problem) -> QString {
            return problem + (problem.endsWith(u'.') ? u""_s : u"."_s)
                + u" The database is not whole, and no program works with it."_s;
        });
}

Told<void> FilledDatabase::RunAll(const QStringList &statements)
{
    for (const QString &statement : statements) {
        if (!database.Run(statement)) {
            return tl::unexpected(u"The statement \"%1\" failed: %2"_s.arg(
                statement.section(u'\n', 0, 0), database.Error()));
        }
    }
    return {};
}

// As a whole, where the engine can.
Told<void> FilledDatabase::Transact(const QStringList &statements)
{
    return Check(database.Begin()).and_then([&] { return RunAll(statements); }).and_then([&] {
        return Check(database.Commit());
    });
}

Told<void> FilledDatabase::MakeTables(const Site &site, const Tell &tell)
{
    if (isBrokenOff) {
        tell(u"What a broken-off restore or copy has left is removed."_s);
        if (auto removed = Transact(TableRemovals(database.Engine())); !removed) {
            return removed;
        }
    }
    return Transact(MarkedTables(database.Engine(), site.version)
                    + KeyRemovals(database.Engine(), site));
}

Told<void> FilledDatabase::LoadAll(SiteRows &source, const Tell &tell)
{
    const Site &site = source.About();
    for (size_t table = 0; table < site.tables.size(); ++table) {
        const SiteTable &about = site.tables[table];
        if (about.rows > 0) {
            tell(u"Writing %1 rows of \"%2\"..."_s.arg(QString::number(about.rows),
                                                       about.shape.name));
        }
        if (auto loaded = Load(source, table); !loaded) {
            return loaded;
        }
    }
    return {};
}

Told<void> FilledDatabase::Load(SiteRows &source, size_t index)
{
    const TableShape &shape = source.About().tables[index].shape;
    TableWriter writer(database, shape);
    ReadAhead ahead(source, index);
    size_t pending = 0;
    if (!database.Begin()) {
        return tl::unexpected(database.Error());
    }
    for (;;) {
        const auto block = ahead.Next();
        if (!block) {
            return tl::unexpected(block.error());
        }
        if (block->rows == 0) {
            return Check(database.Commit());
        }
        if (!writer.Write(*block)) {
            return tl::unexpected(u"The table \"%1\" does not take the rows from %2 on: %3"_s.arg(
                shape.name, block->columns.front().InWords(0), database.Error()));
        }
        pending += block->rows;
        if (pending >= kRowsOfATransaction) {
            pending = 0;
            if (!database.Commit() || !database.Begin()) {
                return tl::unexpected(database.Error());
            }
        }
    }
}

Told<void> FilledDatabase::Complete(const Site &site, const Tell &tell)
{
    tell(u"Making the indexes..."_s);
    if (auto made =
            Transact(KeysOf(database.Engine(), site) + IndexesOf(database.Engine(), site.version));
        !made) {
        return made;
    }
    for (const SiteTable &table : site.tables) {
        if (table.shape.givesNumbers && !SetNextNumber(database, table.shape, table.nextNumber)) {
            return tl::unexpected(database.Error());
        }
    }
    // One of the engines plans badly until it has looked at what came in so quickly.
    return Check(&database.Engine() != &kPostgresql || database.Run(u"ANALYZE"_s));
}

Told<void> FilledDatabase::CompareAll(SiteRows &source, const Tell &tell)
{
    tell(u"Comparing every row with its source..."_s);
    for (size_t table = 0; table < source.About().tables.size(); ++table) {
        if (auto compared = Compare(source, table, tell); !compared) {
            return compared;
        }
    }
    return {};
}

Told<void> FilledDatabase::Compare(SiteRows &source, size_t index, const Tell &tell)
{
    const TableShape &shape = source.About().tables[index].shape;
    TableReader reader(database, shape);
    ReadAhead ahead(source, index);
    TableSum sum;
    for (;;) {
        const auto wanted = ahead.Next();
        if (!wanted) {
            return tl::unexpected(wanted.error());
        }
        const auto found = reader.Next();
        if (!found) {
            return tl::unexpected(reader.Problem());
        }
        if (*wanted != *found) {
            return tl::unexpected(Difference(shape, *wanted, *found));
        }
        if (wanted->rows == 0) {
            break;
        }
        sum.Add(*wanted, BytesOf(*wanted));
    }
    if (const qint64 rows = source.About().tables[index].rows; sum.Rows() != rows) {
        return tl::unexpected(
            u"Of the %1 rows of \"%2\" there are %3."_s.arg(rows).arg(shape.name).arg(sum.Rows()));
    }
    tell(sum.InWords(shape.name));
    return {};
}
