#include "db/schema_version.h"

#include "db/direct_connection.h"
#include "db/schema_scripts.h"
#include "db/translation.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SchemaVersion)
};

std::optional<int> NumberFrom(DirectConnection &database, const std::string &query)
{
    const auto rows = database.Rows(QString::fromStdString(query));
    return rows ? std::optional(rows->value(0).value(0).toInt()) : std::nullopt;
}

} // namespace

SchemaAge AgeOf(int version)
{
    if (version == NewestSchema()) {
        return SchemaAge::Current;
    }
    if (version == kNoSchema) {
        return SchemaAge::None;
    }
    if (version >= kIncompleteSchema) {
        return SchemaAge::Incomplete;
    }
    return version < NewestSchema() ? SchemaAge::Older : SchemaAge::Newer;
}

QString OlderSchemaText(int version, const QString &dsn)
{
    return Words::tr("The database has version %1 of the tables, and this program is made for "
                     "version %2. Bring it up to date with: %3")
        .arg(QString::number(version),
             QString::number(NewestSchema()),
             u"tollbrook-db upgrade --dsn %1"_s.arg(dsn));
}

std::optional<QString> RefusedSchemaText(int version)
{
    const SchemaAge age = AgeOf(version);
    if (age == SchemaAge::None) {
        return Words::tr("The database has no tables yet, or none that the account may see. "
                         "\"tollbrook-db create\" makes them.");
    }
    if (age == SchemaAge::Incomplete) {
        return Words::tr(
            "The database is not whole: a restore or a copy into it was broken off, or is "
            "still at work. Run it again, to its end.");
    }
    return age == SchemaAge::Newer ? std::optional(NewerSchemaText(version)) : std::nullopt;
}

QString NewerSchemaText(int version)
{
    return Words::tr("The database has version %1 of the tables, and this program knows them up to "
                     "version %2 only. Install the version of the program that belongs to it.")
        .arg(QString::number(version), QString::number(NewestSchema()));
}

std::optional<QString> OtherSchemaText(int version, const QString &dsn)
{
    return AgeOf(version) == SchemaAge::Older ? std::optional(OlderSchemaText(version, dsn))
                                              : RefusedSchemaText(version);
}

std::optional<int> ReadSchemaVersion(const Dialect &dialect, AskNumber ask)
{
    const auto count = [&](const char *query) { return ask(Translate(dialect, query)); };
    const auto versions =
        count("SELECT COUNT(*) FROM PRESENT_TABLES WHERE table_name = 'schema_version'");
    if (versions == 1) {
        return count("SELECT COALESCE(MAX(version), 0) FROM schema_version");
    }
    const auto users = versions
        ? count("SELECT COUNT(*) FROM PRESENT_TABLES WHERE table_name = 'users'")
        : versions;
    return users == 0 ? std::optional(kNoSchema) : users ? std::optional(0) : std::nullopt;
}

std::optional<int> SchemaVersionOf(DirectConnection &database)
{
    return ReadSchemaVersion(database.Engine(),
                             [&](const std::string &query) { return NumberFrom(database, query); });
}

QStringList VersionStatements(int version)
{
    return {u"INSERT INTO schema_version (version) VALUES (%1)"_s.arg(version),
            u"DELETE FROM schema_version WHERE version < %1"_s.arg(version)};
}
