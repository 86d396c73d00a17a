#include "support/core/engine_fixture.h"

#include "db/direct_connection.h"
#include "db/schema.h"
#include "support/core/test_data_source.h"

#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;
using namespace test_data_source;

namespace {

// A program's own database on a server: made by its first case, dropped when the program ends.
class ServerDatabase : public testing::Environment
{
public:
    explicit ServerDatabase(const QString &engineName) : engine(engineName) { }

    void TearDown() override
    {
        DirectConnection server;
        if (made) {
            EXPECT_TRUE(server.Open(ServerDsn()) && server.Run(u"DROP DATABASE "_s + Name()))
                << qPrintable(server.Error());
        }
    }

    // Nothing when the database stands there with its first rows only, else what is wrong.
    std::optional<QString> Renew() { return made ? Empty() : Make(); }

private:
    QString ServerDsn() const { return engine + u"_server"_s; }

    static QString Name() { return u"test_%1"_s.arg(QCoreApplication::applicationPid()); }

    std::optional<QString> Make()
    {
        QFile file(QStringLiteral(TB_SERVERS_DIR "/odbc.ini"));
        if (!file.open(QIODevice::ReadOnly)) {
            return u"The database servers do not run. Start them with: %1/tests/support/servers/"
                   "servers start %2"_s.arg(QStringLiteral(TB_SOURCE_DIR),
                                            QStringLiteral(TB_SERVERS_DIR));
        }
        const QString section = QString::fromUtf8(file.readAll())
                                    .section(u"[%1]\n"_s.arg(engine), 1)
                                    .section(u"\n["_s, 0, 0);
        // The later of two values of a key does not count, so that the database comes first.
        Define(ServerDsn(), section);
        Define(engine, u"Database=%1\n"_s.arg(Name()) + section);
        DirectConnection server;
        const QString create = u"CREATE DATABASE "_s + Name();
        if (!server.Open(ServerDsn()) || !server.Run(create)) {
            return server.Error();
        }
        made = true;
        return CreateSchema(engine);
    }

    std::optional<QString> Empty()
    {
        DirectConnection database;
        if (!database.Open(engine)) {
            return database.Error();
        }
        QStringList statements;
        if (engine == u"postgresql"_s) {
            statements << u"TRUNCATE \"%1\" RESTART IDENTITY"_s.arg(
                SchemaTables().join(u"\", \""_s));
        } else {
            for (const QString &table : SchemaTables()) {
                statements << u"TRUNCATE `%1`"_s.arg(table);
            }
        }
        statements << SchemaStatements(database.Engine()).filter(QRegularExpression(u"^INSERT"_s));
        for (const QString &statement : statements) {
            if (!database.Run(statement)) {
                return database.Error();
            }
        }
        return std::nullopt;
    }

    QString engine;
    bool made = false;
};

ServerDatabase *AddServer(const QString &engine)
{
    auto *const database = new ServerDatabase(engine); // the framework's from now on
    testing::AddGlobalTestEnvironment(database);
    return database;
}

ServerDatabase *const postgresql = AddServer(u"postgresql"_s);
ServerDatabase *const mariadb = AddServer(u"mariadb"_s);

} // namespace

void EngineFixture::SetUp()
{
    if (Engine() == u"sqlite"_s) {
        RenewSqlite(Dsn());
    } else {
        const auto problem = (Engine() == u"mariadb"_s ? mariadb : postgresql)->Renew();
        ASSERT_FALSE(problem) << qPrintable(*problem);
    }
    OpenSession(Dsn());
}

void EngineFixture::TearDown()
{
    CloseSession();
}

QString EngineFixture::Engine()
{
    return QString::fromLatin1(GetParam());
}

QString EngineFixture::Dsn()
{
    return Engine();
}
