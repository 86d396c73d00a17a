#include "db/schema.h"

#include "db/direct_connection.h"
#include "db/schema_scripts.h"
#include "db/schema_version.h"

#include <QCoreApplication>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Schema)
};

std::optional<QString> RunScript(DirectConnection &database)
{
    if (!database.Begin()) {
        return database.Error();
    }
    for (const QString &statement : SchemaStatements(database.Engine())) {
        if (!database.Run(statement)) {
            const QString firstLine = statement.section(u'\n', 0, 0);
            return Words::tr("The statement \"%1\" failed: %2").arg(firstLine, database.Error());
        }
    }
    return database.Commit() ? std::nullopt : std::optional(database.Error());
}

} // namespace

std::optional<QString> WrongEncodingText(DirectConnection &database, const QString &dsn)
{
    if (&database.Engine() != &kPostgresql) {
        return std::nullopt;
    }
    const auto rows = database.Rows(u"SELECT pg_encoding_to_char(encoding) FROM pg_database "
                                    "WHERE datname = current_database()"_s);
    if (!rows || rows->isEmpty()) {
        return Words::tr("The encoding of the database of \"%1\" cannot be read: %2")
            .arg(dsn, database.Error());
    }
    const QString encoding = rows->first().first();
    return encoding == u"UTF8"_s
        ? std::nullopt
        : std::optional(Words::tr("The database of \"%1\" is in %2. Only one in UTF8 keeps every "
                                  "text; make another one.")
                            .arg(dsn, encoding));
}

std::optional<QString> ExistingTable(DirectConnection &database)
{
    for (const QString &table : SchemaTables()) {
        const QString probe =
            u"SELECT 1 FROM %1 WHERE 1 = 0"_s.arg(Quoted(database.Engine(), table));
        if (database.Run(probe)) {
            return table;
        }
    }
    return std::nullopt;
}

std::optional<QString> CreateSchema(const QString &dsn)
{
    DirectConnection database;
    if (!database.Open(dsn, AbsentFile::IsMade)) {
        return Words::tr("The data source \"%1\" cannot be opened: %2").arg(dsn, database.Error());
    }
    if (const auto table = ExistingTable(database)) {
        return Words::tr("The database of \"%1\" already has a table \"%2\". Nothing was changed.")
            .arg(dsn, *table);
    }
    if (auto wrong = WrongEncodingText(database, dsn)) {
        return wrong;
    }
    return RunScript(database);
}

QStringList SchemaTables()
{
    static const QRegularExpression pattern(u"CREATE TABLE (\\w+)"_s);
    QStringList tables;
    for (const QString &statement : SchemaStatements(kSqlite)) {
        if (const auto match = pattern.match(statement); match.hasMatch()) {
            tables << match.captured(1);
        }
    }
    return tables;
}

QStringList SchemaStatements(const Dialect &dialect)
{
    return SchemaStatements(dialect, NewestSchema()) << VersionStatements(NewestSchema()).first();
}

QStringList SchemaStatements(const Dialect &dialect, int version)
{
    QStringList statements = FirstSchema(dialect);
    for (const SchemaStep &step : SchemaSteps(dialect)) {
        if (step.number <= version) {
            statements << step.statements;
        }
    }
    return statements;
}
