#include "upkeep/table_scripts.h"

#include "db/dialect.h"
#include "db/schema.h"
#include "db/schema_scripts.h"
#include "db/schema_version.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

const QRegularExpression &IndexStart()
{
    static const QRegularExpression kStart(u"^CREATE (UNIQUE )?INDEX "_s);
    return kStart;
}

// Rows come from the source, and the table of the version has been made with the mark.
bool BelongsToTables(const QString &statement)
{
    return !IndexStart().match(statement).hasMatch() && !statement.startsWith(u"INSERT "_s)
        && !statement.startsWith(u"UPDATE "_s) && !statement.contains(kVersionTable);
}

QStringList Mark(const Dialect &dialect)
{
    const QString table =
        SchemaStatements(dialect, NewestSchema())
            .filter(QRegularExpression(u"^CREATE TABLE [A-Z ]*%1 "_s.arg(kVersionTable)))
            .first();
    if (&dialect == &kMariadb) {
        // Not even a kill between two statements leaves the table without its row.
        return {table + u" SELECT %1 AS version"_s.arg(kIncompleteSchema)};
    }
    return {table, u"INSERT INTO schema_version (version) VALUES (%1)"_s.arg(kIncompleteSchema)};
}

// What `statementOf` gives for each table whose rows the engine numbers.
template <typename StatementOf>
QStringList
ForNumberedTables(const Dialect &dialect, const Site &site, const StatementOf &statementOf)
{
    QStringList statements;
    for (const SiteTable &table : site.tables) {
        if (&dialect == &kPostgresql && table.shape.givesNumbers) {
            statements << statementOf(table.shape);
        }
    }
    return statements;
}

} // namespace

QStringList MarkedTables(const Dialect &dialect, int version)
{
    QStringList statements = Mark(dialect);
    for (const QString &statement : SchemaStatements(dialect, version)) {
        if (BelongsToTables(statement)) {
            statements << statement;
        }
    }
    return statements;
}

QStringList KeyRemovals(const Dialect &dialect, const Site &site)
{
    return ForNumberedTables(dialect, site, [&dialect](const TableShape &shape) {
        return u"ALTER TABLE %1 DROP CONSTRAINT %2_pkey"_s.arg(Quoted(dialect, shape.name),
                                                               shape.name);
    });
}

QStringList KeysOf(const Dialect &dialect, const Site &site)
{
    return ForNumberedTables(dialect, site, [&dialect](const TableShape &shape) {
        return u"ALTER TABLE %1 ADD CONSTRAINT %2_pkey PRIMARY KEY (%3)"_s.arg(
            Quoted(dialect, shape.name), shape.name, Quoted(dialect, shape.key.first()));
    });
}

QStringList IndexesOf(const Dialect &dialect, int version)
{
    return SchemaStatements(dialect, version).filter(IndexStart());
}

QString MarkRemoval(int version)
{
    // The first version has no such table.
    return version == 0 ? u"DROP TABLE schema_version"_s
                        : u"UPDATE schema_version SET version = %1"_s.arg(version);
}

QStringList TableRemovals(const Dialect &dialect)
{
    QStringList tables = SchemaTables();
    tables.removeOne(kVersionTable);
    QStringList statements;
    for (const QString &table : std::as_const(tables)) {
        statements << u"DROP TABLE IF EXISTS "_s + Quoted(dialect, table);
    }
    if (&dialect == &kPostgresql) {
        statements << u"DROP COLLATION IF EXISTS nocase"_s;
    }
    return statements << u"DROP TABLE IF EXISTS "_s + kVersionTable;
}
