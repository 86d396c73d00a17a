#include "support/engine_client.h"

#include "support/must.h"
#include "support/servers/server_section.h"

using namespace Qt::StringLiterals;

namespace {

QString Setting(const QString &section, const QString &name)
{
    return section.section(name + u'=', 1).section(u'\n', 0, 0).trimmed();
}

} // namespace

QString SqliteFile(const QString &dsn)
{
    DirectConnection connection;
    Must(connection.Open(dsn), connection);
    return connection.Rows(u"PRAGMA database_list"_s)->constFirst().at(2);
}

QStringList ClientCommand(const QString &engine, const QString &dsn)
{
    if (engine == u"sqlite"_s) {
        return {u"sqlite3"_s, u"-cmd"_s, u"PRAGMA synchronous=NORMAL"_s, SqliteFile(dsn)};
    }
    const QString section = ServerSection(engine).value_or(QString());
    if (engine == u"postgresql"_s) {
        return {
            u"psql"_s,
            u"--no-psqlrc"_s,
            u"--quiet"_s,
            u"postgresql://system:%1@/%2?host=%3&port=%4"_s.arg(Setting(section, u"Password"_s),
                                                                dsn,
                                                                Setting(section, u"Servername"_s),
                                                                Setting(section, u"Port"_s))};
    }
    return {u"mariadb"_s,
            u"--no-defaults"_s,
            u"--user=system"_s,
            u"--password="_s + Setting(section, u"Password"_s),
            u"--socket="_s + Setting(section, u"Socket"_s),
            dsn};
}

QStringList ClientCommand(const QString &engine, const QString &dsn, const QString &statement)
{
    QStringList command = ClientCommand(engine, dsn);
    if (engine == u"postgresql"_s) {
        command += {u"--tuples-only"_s, u"--no-align"_s, u"--command"_s};
    } else if (engine == u"mariadb"_s) {
        command += {u"--batch"_s, u"--execute"_s};
    }
    return command + QStringList(statement);
}

const Dialect &DialectOf(const QString &dsn)
{
    DirectConnection connection;
    Must(connection.Open(dsn), connection);
    return connection.Engine();
}
