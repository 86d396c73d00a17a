#include "db/maintenance.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

bool RunAll(DirectConnection &database, const QStringList &statements)
{
    return std::all_of(statements.cbegin(), statements.cend(), [&](const QString &statement) {
        return database.Run(statement);
    });
}

std::optional<qint64> NumberFrom(DirectConnection &database, const QString &query)
{
    const auto rows = database.Rows(query);
    return rows ? std::optional(rows->value(0).value(0).toLongLong()) : std::nullopt;
}

// Whether one of the process's files is this one.
bool HasOpen(const QString &process, const QString &file)
{
    const QDir files(process + u"/fd"_s);
    const QStringList names = files.entryList(QDir::Files | QDir::System);
    return std::any_of(names.cbegin(), names.cend(), [&](const QString &name) {
        return QFile::symLinkTarget(files.filePath(name)) == file;
    });
}

QStringList ProcessesWith(const QString &file)
{
    QStringList found;
    const QDir processes(u"/proc"_s);
    for (const QString &id : processes.entryList(QDir::Dirs | QDir::NoDotAndDotDot)) {
        const QString process = processes.filePath(id);
        if (id.toLongLong() == 0 || id.toLongLong() == getpid() || !HasOpen(process, file)) {
            continue;
        }
        QFile name(process + u"/comm"_s);
        const bool open = name.open(QIODevice::ReadOnly);
        const QString program = open ? QString::fromUtf8(name.readAll()).trimmed() : QString();
        found << u"process %1 (%2)"_s.arg(id, program);
    }
    return found;
}

const char *OthersQuery(const Dialect &dialect)
{
    return &dialect == &kPostgresql
        ? "SELECT usename || ' from ' || COALESCE(host(client_addr), 'this machine') || "
          "', connection ' || pid FROM pg_stat_activity WHERE datname = current_database() "
          "AND pid <> pg_backend_pid() "
          // Of other accounts' connections the server tells no more than that they are there.
          "AND COALESCE(backend_type, 'client backend') = 'client backend' "
          "AND usename IS NOT NULL ORDER BY pid"
        : "SELECT CONCAT(user, ' from ', host, ', connection ', id) "
          "FROM information_schema.processlist WHERE db = DATABASE() AND id <> CONNECTION_ID() "
          "AND command <> 'Killed' ORDER BY id";
}

// Nothing for one of the servers, whose number is read by two queries.
QString NextNumberQuery(const Dialect &dialect, const TableShape &table)
{
    return &dialect == &kSqlite
        ? u"SELECT COALESCE((SELECT seq FROM sqlite_sequence WHERE name = '%1'), 0) + 1"_s.arg(
            table.name)
        : u"SELECT auto_increment FROM information_schema.tables "
          "WHERE table_schema = DATABASE() AND table_name = '%1'"_s.arg(table.name);
}

std::optional<qint64> NextOfSequence(DirectConnection &database, const TableShape &table)
{
    const QString quoted = Quoted(database.Engine(), table.name);
    const auto sequence = database.Rows(
        u"SELECT pg_get_serial_sequence('%1', '%2')"_s.arg(quoted, table.key.first()));
    return sequence ? NumberFrom(database,
                                 u"SELECT CASE WHEN is_called THEN last_value + 1 "
                                 "ELSE last_value END FROM "_s
                                     + sequence->value(0).value(0))
                    : std::nullopt;
}

} // namespace

bool BeginSnapshot(DirectConnection &database)
{
    const bool isMariadb = &database.Engine() == &kMariadb;
    // A server may have been set up to let each query see what others have committed by then.
    return (!isMariadb
            || database.Run(u"SET SESSION TRANSACTION ISOLATION LEVEL REPEATABLE READ"_s))
        && database.Run(QString::fromLatin1(database.Engine().beginSnapshot));
}

std::optional<QStringList> OthersConnected(DirectConnection &database)
{
    if (&database.Engine() == &kSqlite) {
        const auto list = database.Rows(u"PRAGMA database_list"_s);
        return list
            ? std::optional(ProcessesWith(QFileInfo(list->value(0).value(2)).canonicalFilePath()))
            : std::nullopt;
    }
    const auto rows = database.Rows(QString::fromLatin1(OthersQuery(database.Engine())));
    if (!rows) {
        return std::nullopt;
    }
    QStringList others;
    for (const QStringList &row : *rows) {
        others << row.first();
    }
    return others;
}

bool KeepOthersOut(DirectConnection &database)
{
    return &database.Engine() != &kSqlite
        || RunAll(database,
                  {u"PRAGMA locking_mode = EXCLUSIVE"_s, u"BEGIN EXCLUSIVE"_s, u"COMMIT"_s});
}

bool PrepareForLoading(DirectConnection &database)
{
    // A cut text is a failure, and the number 0 is one as any other.
    return &database.Engine() != &kMariadb
        || database.Run(u"SET SESSION sql_mode = 'STRICT_ALL_TABLES,NO_AUTO_VALUE_ON_ZERO'"_s);
}

std::optional<qint64> NextNumber(DirectConnection &database, const TableShape &table)
{
    const Dialect &dialect = database.Engine();
    return &dialect == &kPostgresql ? NextOfSequence(database, table)
                                    : NumberFrom(database, NextNumberQuery(dialect, table));
}

bool SetNextNumber(DirectConnection &database, const TableShape &table, qint64 number)
{
    const Dialect &dialect = database.Engine();
    if (&dialect == &kSqlite) {
        return RunAll(database,
                      {u"DELETE FROM sqlite_sequence WHERE name = '%1'"_s.arg(table.name),
                       u"INSERT INTO sqlite_sequence (name, seq) VALUES ('%1', %2)"_s.arg(
                           table.name, QString::number(number - 1))});
    }
    const QString quoted = Quoted(dialect, table.name);
    return database.Run(
        (&dialect == &kPostgresql
             ? u"ALTER TABLE %1 ALTER COLUMN %2 RESTART WITH %3"_s.arg(quoted, table.key.first())
             : u"ALTER TABLE %1 AUTO_INCREMENT = %2"_s.arg(quoted))
            .arg(number));
}
