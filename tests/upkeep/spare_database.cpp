#include "upkeep/spare_database.h"

#include "db/direct_connection.h"
#include "support/core/database_fixture.h"
#include "support/core/test_data_source.h"
#include "support/servers/server_section.h"

#include <QCoreApplication>
#include <QFile>
#include <QSet>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using test_data_source::Define;

namespace {

QString ServerDsn(const QString &engine)
{
    return engine + u"_spare_server"_s;
}

class SpareDatabases : public testing::Environment
{
public:
    void TearDown() override
    {
        for (const auto &[engine, name] : std::as_const(made)) {
            RunOn(ServerDsn(engine), {u"DROP DATABASE "_s + name});
        }
    }

    QString Renew(const QString &engine, const QString &purpose, const QString &options)
    {
        const QString dsn = engine + u'_' + purpose;
        if (engine == u"sqlite"_s) {
            const QString file = test_data_source::SqliteFile(dsn);
            for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s, u"-journal"_s}) {
                QFile::remove(file + ending);
            }
            DefineOnce(dsn,
                       u"Driver=SQLite3\nDatabase=%1\nStepAPI=1\nJournalMode=WAL\n"
                       "SyncPragma=OFF\nTimeout=200"_s.arg(file));
            return dsn;
        }
        const QString section = ServerSection(engine).value_or(QString());
        EXPECT_FALSE(section.isEmpty()) << qPrintable(ServersHint());
        const QString name = u"%1_%2"_s.arg(purpose).arg(QCoreApplication::applicationPid());
        DefineOnce(ServerDsn(engine), section);
        DefineOnce(dsn, u"Database=%1\n"_s.arg(name) + section);
        RunOn(ServerDsn(engine),
              {u"DROP DATABASE IF EXISTS "_s + name, u"CREATE DATABASE "_s + name + options});
        made.insert({engine, name});
        return dsn;
    }

private:
    void DefineOnce(const QString &dsn, const QString &section)
    {
        if (!defined.contains(dsn)) {
            Define(dsn, section);
            defined << dsn;
        }
    }

    QSet<QString> defined;
    QSet<std::pair<QString, QString>> made; // engine and name
};

SpareDatabases *const databases = [] {
    auto *const environment = new SpareDatabases; // the framework's from now on
    testing::AddGlobalTestEnvironment(environment);
    return environment;
}();

} // namespace

QString SpareDatabase(const QString &engine, const QString &purpose, const QString &options)
{
    return databases->Renew(engine, purpose, options);
}

void RunOn(const QString &dsn, const QStringList &statements)
{
    DirectConnection database;
    ASSERT_TRUE(database.Open(dsn, AbsentFile::IsMade)) << qPrintable(database.Error());
    for (const QString &statement : statements) {
        ASSERT_TRUE(database.Run(statement))
            << qPrintable(statement) << ": " << qPrintable(database.Error());
    }
}

QStringList EveryRowOf(const QString &dsn)
{
    test_data_source::CloseSession();
    test_data_source::OpenSession(dsn);
    QStringList rows = EveryRow();
    test_data_source::CloseSession();
    return rows;
}
