#include "support/core/test_data_source.h"

#include "db/direct_connection.h"
#include "db/failure_log.h"
#include "db/schema.h"
#include "db/session.h"
#include "db/translation.h"
#include "support/core/database_fixture.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using test_data_source::Define;
using test_data_source::SqliteFile;

namespace {

QString currentDsn;
DirectConnection reader;

DirectConnection &Reader()
{
    if (!reader.IsOpen()) {
        EXPECT_TRUE(reader.Open(currentDsn)) << qPrintable(reader.Error());
    }
    return reader;
}

// Quick rather than safe: the file goes with the program.
void DefineSqlite(const QString &dsn)
{
    Define(dsn,
           u"Driver=SQLite3\nDatabase=%1\nStepAPI=1\nJournalMode=WAL\nSyncPragma=OFF\n"
           "Timeout=5000"_s.arg(SqliteFile(dsn)));
}

const QString &Template()
{
    static const QString file = [] {
        const auto dsn = u"template"_s;
        DefineSqlite(dsn);
        const auto problem = CreateSchema(dsn);
        EXPECT_FALSE(problem) << qPrintable(problem.value_or(QString()));
        return SqliteFile(dsn);
    }();
    return file;
}

void RunOn(const QString &dsn, const QString &statement)
{
    DirectConnection database;
    EXPECT_TRUE(database.Open(dsn) && database.Run(statement)) << qPrintable(database.Error());
}

QStringList Joined(std::string_view sqlText)
{
    const auto rows = Reader().Rows(QString::fromUtf8(sqlText.data(), qsizetype(sqlText.size())));
    EXPECT_TRUE(rows) << sqlText << ": " << qPrintable(reader.Error());
    QStringList joined;
    for (const QStringList &row : rows.value_or(QList<QStringList>())) {
        joined << row.join(u'|');
    }
    return joined;
}

} // namespace

namespace test_data_source {

QString Folder()
{
    static const QTemporaryDir folder;
    return folder.path();
}

void Define(const QString &dsn, const QString &section)
{
    QFile file(Folder() + u"/odbc.ini"_s);
    ASSERT_TRUE(file.open(QIODevice::Append));
    file.write(u"[%1]\n%2\n"_s.arg(dsn, section).toUtf8());
    qputenv("ODBCINI", file.fileName().toUtf8());
}

void RenewSqlite(const QString &dsn)
{
    static QSet<QString> defined;
    if (!defined.contains(dsn)) {
        DefineSqlite(dsn);
        defined << dsn;
    }
    const QString file = SqliteFile(dsn);
    for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s}) {
        QFile::remove(file + ending);
    }
    ASSERT_TRUE(QFile::copy(Template(), file));
}

QString SqliteFile(const QString &dsn)
{
    return Folder() + u"/%1.db"_s.arg(dsn);
}

void ForgetSchemaVersion(const QString &dsn)
{
    RunOn(dsn, u"DROP TABLE schema_version"_s);
}

void RaiseSchemaVersion(const QString &dsn)
{
    RunOn(dsn, u"UPDATE schema_version SET version = version + 1"_s);
}

void OpenSession(const QString &dsn)
{
    currentDsn = dsn;
    FailureLog::Instance().Clear();
    ASSERT_EQ(ConnectDatabase(dsn.toUtf8().constData()), 1)
        << qPrintable(FailureLog::Instance().Recent().constLast().text);
}

void CloseSession()
{
    reader.Close();
    DisconnectDatabase();
}

} // namespace test_data_source

QStringList RowsOf(const char *sqlText)
{
    return Joined(Translate(Reader().Engine(), sqlText));
}

QStringList EveryRow()
{
    QStringList all;
    for (const QString &table : SchemaTables()) {
        const std::string query = "SELECT * FROM " + table.toStdString() + " ORDER BY 1";
        for (const QString &row : Joined(Translate(Reader().Engine(), query))) {
            all << table + u": "_s + row;
        }
    }
    return all;
}
