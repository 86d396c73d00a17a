#include "support/core/engine_fixture.h"

#include "db/schema.h"
#include "db/translation.h"
#include "support/core/program_accounts.h"
#include "support/core/test_data_source.h"
#include "support/servers/server_section.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
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
            DropAccounts(engine);
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
        const auto section = ServerSection(engine);
        if (!section) {
            return ServersHint();
        }
        // The later of two values of a key does not count, so that the database comes first.
        Define(ServerDsn(), *section);
        Define(engine, u"Database=%1\n"_s.arg(Name()) + *section);
        DirectConnection server;
        const QString create = u"CREATE DATABASE "_s + Name();
        if (!server.Open(ServerDsn()) || !server.Run(create)) {
            return server.Error();
        }
        made = true;
        return CreateSchema(engine);
    }

    // Emptying tables and turning back the counters that moved is far quicker than TRUNCATE.
    std::optional<QString> Empty()
    {
        DirectConnection database;
        if (!database.Open(engine)) {
            return database.Error();
        }
        const QString quote(QLatin1Char(database.Engine().identifierQuote));
        QStringList statements;
        for (const QString &table : SchemaTables()) {
            statements << u"DELETE FROM "_s + quote + table + quote;
        }
        statements << CounterResets(database);
        statements << SchemaStatements(database.Engine())
                          .filter(QRegularExpression(u"^(INSERT|UPDATE)"_s));
        for (const QString &statement : statements) {
            if (!database.Run(statement)) {
                return database.Error();
            }
        }
        return std::nullopt;
    }

    // The first rows name their ids, so that a fresh database has counters that never moved.
    QStringList CounterResets(DirectConnection &database) const
    {
        const auto moved = database.Rows(
            engine == u"postgresql"_s
                ? u"SELECT sequencename FROM pg_sequences WHERE last_value IS NOT NULL"_s
                : u"SELECT table_name FROM information_schema.tables "
                  "WHERE table_schema = DATABASE() AND auto_increment > CASE table_name "
                  "WHEN 'groups' THEN 81 WHEN 'protocols' THEN 16 WHEN 'ports' THEN 19 ELSE 1 END"_s);
        QStringList statements;
        for (const QStringList &row : moved.value_or(QList<QStringList>())) {
            statements << (engine == u"postgresql"_s ? u"ALTER SEQUENCE \"%1\" RESTART"_s
                                                     : u"ALTER TABLE `%1` AUTO_INCREMENT = 1"_s)
                              .arg(row.first());
        }
        return statements;
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

QString EngineFixture::DsnOf(const char *role)
{
    return AccountSource(Engine(), QString::fromLatin1(role));
}

void EngineFixture::RunBeside(const char *sqlText, const SqlValues &values)
{
    DirectConnection database;
    ASSERT_TRUE(database.Open(Dsn())) << qPrintable(database.Error());
    const auto text = QString::fromStdString(Translate(database.Engine(), sqlText));
    ASSERT_TRUE(database.Run(text, values)) << qPrintable(database.Error());
}

void EngineFixture::AwaitLockWait(int connections)
{
    // innodb_trx would show it too, but as it was, for as long as one goes on asking.
    const QString waits = Engine() == u"postgresql"_s
        ? u"SELECT COUNT(*) FROM pg_stat_activity WHERE datname = current_database() "
          "AND wait_event_type = 'Lock' HAVING COUNT(*) >= %1"_s
        : u"SELECT id FROM information_schema.processlist WHERE db = DATABASE() AND "
          "command IN ('Query', 'Execute') AND id <> connection_id() AND EXISTS (SELECT 1 FROM "
          "information_schema.global_status WHERE variable_name = 'INNODB_ROW_LOCK_CURRENT_WAITS' "
          "AND variable_value >= %1)"_s;
    const QByteArray query = waits.arg(connections).toUtf8();
    const QDeadlineTimer patience(10000);
    while (RowsOf(query.constData()).isEmpty()) {
        ASSERT_FALSE(patience.hasExpired()) << "nobody waits";
    }
}

bool EngineFixture::IsTrueInTime(const std::function<bool()> &holds)
{
    const QDeadlineTimer patience(10000);
    while (!holds()) {
        if (patience.hasExpired()) {
            return false;
        }
    }
    return true;
}

QList<quint32> EngineFixture::OtherConnections(const QString &words)
{
    const bool onPostgresql = Engine() == u"postgresql"_s;
    const QString others = onPostgresql
        ? u"SELECT pid FROM pg_stat_activity WHERE pid <> pg_backend_pid() "
          "AND datname = current_database() AND query LIKE '%%1%'"_s
        : u"SELECT id FROM information_schema.processlist WHERE id <> connection_id() "
          "AND db = DATABASE() AND COALESCE(info, '') LIKE '%%1%'"_s;
    QList<quint32> found;
    RowCursor cursor(others.arg(words).toUtf8().constData());
    while (cursor.Next()) {
        found += queryResult.Integer(1);
    }
    return found;
}

int EngineFixture::EndOtherConnections(const QString &words)
{
    const bool onPostgresql = Engine() == u"postgresql"_s;
    const QList<quint32> found = OtherConnections(words);
    for (const quint32 id : found) {
        const QString end = onPostgresql ? u"SELECT pg_terminate_backend(%1)"_s : u"KILL %1"_s;
        RunQuery(end.arg(id).toUtf8().constData(), FetchMode::One);
    }
    return static_cast<int>(found.size());
}
