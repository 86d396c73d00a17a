// Accounts with no more rights than a program needs: what each may do at a server, and what is refused to
// it by name.
#include "db/roles.h"

#include "db/account.h"
#include "db/check.h"
#include "db/demo_data.h"
#include "db/report_connection.h"
#include "db/schema.h"
#include "db/schema_scripts.h"
#include "db/schema_upgrade.h"
#include "db/schema_version.h"
#include "db/translation.h"
#include "support/core/engine_fixture.h"
#include "support/core/program_accounts.h"
#include "support/core/test_data_source.h"
#include "support/servers/server_section.h"
#include "upkeep/backup.h"
#include "upkeep/nobody_else.h"
#include "upkeep/repair.h"
#include "upkeep/restore.h"
#include "upkeep/spare_database.h"

#include <QDirIterator>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::HasSubstr;

namespace {

const auto kQuiet = [](const QString &) {};

struct Ended
{
    int status;
    QString output;
    QString error;
};

Ended RunTool(const QStringList &arguments)
{
    QProcess tool;
    tool.start(QStringLiteral(TB_DATABASE_TOOL), arguments);
    EXPECT_TRUE(tool.waitForFinished(60000)) << qPrintable(tool.errorString());
    return {tool.exitCode(),
            QString::fromUtf8(tool.readAllStandardOutput()),
            QString::fromUtf8(tool.readAllStandardError())};
}

TEST(Account, IsTheDataSourcesOwnElseSystem)
{
    const std::tuple<QString, QString, QString> cases[] = {
        {u"plain"_s, u"Driver=SQLite3"_s, u"system"_s},
        {u"by_user_name"_s, u"UserName=anna"_s, u"anna"_s},
        {u"in_other_case"_s, u"Username = anna "_s, u"anna"_s},
        {u"by_user"_s, u"User=anna"_s, u"anna"_s},
        {u"by_uid"_s, u"uid=anna"_s, u"anna"_s},
        {u"empty"_s, u"UID="_s, u"system"_s},
    };
    for (const auto &[dsn, line, account] : cases) {
        test_data_source::Define(dsn, line);
        EXPECT_EQ(AccountOf(dsn), account) << qPrintable(line);
    }
    EXPECT_EQ(AccountOf(u"there is none"_s), u"system"_s);
}

// A table that a step brings is to be given to somebody, or to be kept from everybody but for backups.
TEST(Roles, NameEveryTable)
{
    for (const Dialect *const engine : {&kPostgresql, &kMariadb}) {
        const QString script = RolesScript({.dialect = *engine});
        const QChar quote = QLatin1Char(engine->identifierQuote);
        QSet<QString> named;
        static const QRegularExpression kTable(
            u"ON .bill.\\..(\\w+). TO|ON .public.\\..(\\w+). TO"_s);
        for (const auto &match : kTable.globalMatch(script)) {
            named << match.captured(1) + match.captured(2);
        }
        const QStringList tables = SchemaTables();
        EXPECT_EQ(named, QSet<QString>(tables.begin(), tables.end())) << engine->engine;
        EXPECT_FALSE(script.contains(u"ALL TABLES"_s));
        for (const QString &line : script.split(u'\n')) {
            EXPECT_FALSE(line.contains(u"pwd"_s)) << qPrintable(line);
            EXPECT_TRUE(!line.contains(u"GRANT ALL"_s) || line.startsWith(u"--"_s))
                << qPrintable(line);
        }
        EXPECT_TRUE(script.contains(quote + u"virtual"_s + quote)) << "a reserved name, quoted";
    }
}

// "DELETE users" for each kind of change of a table that a literal of these folders' sources begins with.
QSet<QString> ChangesIn(const QStringList &folders)
{
    static const QRegularExpression kSeam(u"\"\\s*\""_s);
    static const QRegularExpression kChange(
        u"\"(INSERT|UPDATE|DELETE) +(?:(?i:INTO|FROM) +)?(\\w+)"_s);
    QSet<QString> changes;
    for (const QString &folder : folders) {
        QDirIterator files(QStringLiteral(TB_SOURCE_DIR "/src/") + folder, {u"*.cpp"_s});
        while (files.hasNext()) {
            QFile file(files.next());
            EXPECT_TRUE(file.open(QIODevice::ReadOnly));
            const QString text = QString::fromUtf8(file.readAll()).remove(kSeam);
            for (const auto &match : kChange.globalMatch(text)) {
                changes << match.captured(1) + u' ' + match.captured(2).toLower();
            }
        }
    }
    return changes;
}

// The same as the script grants them to the role.
QSet<QString> ChangesGranted(const QString &role)
{
    static const QRegularExpression kGrant(
        u"^GRANT (.*) ON \"public\"\\.\"(\\w+)\" TO \"tollbrook_(\\w+)\""_s,
        QRegularExpression::MultilineOption);
    static const QRegularExpression kRight(u"INSERT|UPDATE|DELETE"_s);
    QSet<QString> changes;
    for (const auto &grant : kGrant.globalMatch(RolesScript({.dialect = kPostgresql}))) {
        if (grant.captured(3) == role) {
            for (const auto &right : kRight.globalMatch(grant.captured(1))) {
                changes << right.captured() + u' ' + grant.captured(2);
            }
        }
    }
    return changes;
}

TEST(Roles, MayChangeWhatTheirProgramsChangeAndNothingElse)
{
    QSet<QString> console = ChangesIn({u"access"_s, u"accounts"_s, u"admin"_s, u"exchange"_s});
    console << u"UPDATE ports"_s; // their rows are locked
    EXPECT_EQ(ChangesGranted(u"console"_s), console);
    EXPECT_EQ(ChangesGranted(u"service"_s), ChangesIn({u"metering"_s, u"daemon"_s}));
    for (const auto &role : {u"reports"_s, u"viewer"_s, u"backup"_s}) {
        EXPECT_EQ(ChangesGranted(role), QSet<QString>()) << qPrintable(role);
    }
}

TEST(Roles, QuoteWhatADatabaseIsCalled)
{
    const QString postgresql = RolesScript({.dialect = kPostgresql, .database = u"a\"b"_s});
    EXPECT_TRUE(postgresql.contains(u"ON DATABASE \"a\"\"b\" TO"_s));
    const QString mariadb = RolesScript({.dialect = kMariadb, .database = u"a`_b%"_s});
    EXPECT_TRUE(mariadb.contains(u"CREATE TEMPORARY TABLES ON `a``\\_b\\%`.* TO"_s));
    EXPECT_TRUE(mariadb.contains(u"SELECT ON `a``_b%`.`schema_version` TO"_s));
}

TEST(Roles, ArePrintedByTheTool)
{
    const std::tuple<QStringList, int, QString> cases[] = {
        {{u"--engine"_s, u"postgresql"_s},
         0,
         u"CONNECT ON DATABASE \"bill\" TO \"tollbrook_viewer\""_s},
        {{u"--engine"_s, u"MariaDB"_s, u"--database"_s, u"b2"_s, u"--accounts"_s, u"x"_s},
         0,
         u"ON `b2`.`users` TO 'x_reports'@'%'"_s},
        {{u"--engine"_s, u"sqlite"_s}, 2, u"--engine is postgresql or mariadb."_s},
        {{u"--engine"_s, u"mariadb"_s, u"--accounts"_s, u"x'y"_s}, 2, u"--accounts is"_s},
        {{u"--engine"_s, u"postgresql"_s, u"--database"_s, u"a\nDROP TABLE users"_s},
         2,
         u"no line breaks"_s},
        {{u"--engine"_s, u"mariadb"_s, u"--dsn"_s, u"x"_s},
         2,
         u"Name the data source or the engine"_s},
        {{u"--dsn"_s, u"x"_s, u"--database"_s, u"y"_s}, 2, u"Name the data source or the engine"_s},
        {{}, 2, u"Name the data source or the engine"_s},
        {{u"--dsn"_s, u"no such source"_s}, 3, u"\"no such source\" cannot be read"_s},
    };
    for (const auto &[options, status, text] : cases) {
        const Ended ended = RunTool(QStringList {u"roles"_s} + options);
        EXPECT_EQ(ended.status, status) << qPrintable(options.join(u' '));
        EXPECT_TRUE((status == 0 ? ended.output : ended.error).contains(text))
            << qPrintable(ended.output + ended.error);
        EXPECT_TRUE((status == 0 ? ended.error : ended.output).isEmpty());
    }
}

TEST(Roles, AreNoneWhereTheDatabaseIsAFile)
{
    test_data_source::RenewSqlite(u"file"_s);
    const Ended ended = RunTool({u"roles"_s, u"--dsn"_s, u"file"_s});
    EXPECT_EQ(ended.status, 2);
    EXPECT_THAT(ended.error.toStdString(), HasSubstr("there are no accounts"));
}

class RolesOfServer : public EngineFixture
{
protected:
    // What the account of the role is told of a statement; empty when it is done, which is undone.
    static QString RefusalOf(const char *role, const QString &sqlText)
    {
        DirectConnection database;
        EXPECT_TRUE(database.Open(DsnOf(role))) << qPrintable(database.Error());
        const auto text =
            QString::fromStdString(Translate(database.Engine(), sqlText.toStdString()));
        return database.Begin() && database.Run(text) ? QString() : database.Error();
    }
};
TB_ON_EVERY_SERVER(RolesOfServer);

TEST_P(RolesOfServer, AreRefusedWhatIsNotTheirs)
{
    const std::pair<const char *, const char *> cases[] = {
        {"console", "DROP TABLE users"},
        {"console", "ALTER TABLE users ADD more INTEGER"},
        {"console", "CREATE TABLE more (id INTEGER)"},
        {"console", "UPDATE schema_version SET version = 9"},
        {"console", "UPDATE time_blocked SET dayofweek = 1"},
        {"console", "INSERT INTO traffic_use (user_id) VALUES (1)"},
        {"console", "INSERT INTO sites (sitename) VALUES ('a')"},
        {"console", "SELECT * FROM service_counters"},
        {"service", "SELECT Pwd FROM logins"},
        {"service", "UPDATE logins SET Pwd = ''"},
        {"service", "SELECT login FROM logins"},
        {"service", "DELETE FROM users"},
        {"service", "UPDATE users SET traflim = 0"},
        {"service", "UPDATE users SET mode = 0"},
        {"service", "UPDATE groups SET name = ''"},
        {"service", "UPDATE billing SET data = 0"},
        {"service", "INSERT INTO billing (mode) VALUES (2)"},
        {"service", "DELETE FROM traffic_use"},
        {"service", "DROP TABLE service_counters"},
        {"reports", "SELECT Pwd FROM logins"},
        {"reports", "SELECT login FROM logins"},
        {"reports", "INSERT INTO users (username) VALUES ('a')"},
        {"reports", "UPDATE users SET username = ''"},
        {"reports", "DELETE FROM siteaccess"},
        {"reports", "SELECT * FROM service_counters"},
        {"reports", "CREATE TABLE more (id INTEGER)"},
        {"viewer", "SELECT Pwd FROM logins"},
        {"viewer", "SELECT * FROM logins"},
        {"viewer", "UPDATE users SET blocked = true"},
        {"viewer", "DELETE FROM time_blocked"},
        {"backup", "UPDATE users SET blocked = true"},
        {"backup", "DELETE FROM logins"},
        {"backup", "DROP TABLE users"},
    };
    for (const auto &[role, statement] : cases) {
        const QString refusal = RefusalOf(role, QString::fromLatin1(statement));
        EXPECT_FALSE(refusal.isEmpty()) << role << ": " << statement;
        if (QString::fromLatin1(statement).contains(u"TABLE"_s)) {
            continue; // a server speaks of the table's owner there, or does not know of the right
        }
        EXPECT_THAT(
            refusal.toStdString(),
            HasSubstr(u"The account \"%1\" of the data source \"%2\" lacks the right to this: "_s
                          .arg(AccountName(QString::fromLatin1(role)), DsnOf(role))
                          .toStdString()))
            << role << ": " << statement;
    }
}

TEST_P(RolesOfServer, MayReadTheirOwn)
{
    const std::pair<const char *, const char *> cases[] = {
        {"service", "SELECT COUNT(*) FROM logins WHERE userid = 1"},
        {"viewer", "SELECT login, userid, LimitIP FROM logins"},
        {"viewer", "SELECT version FROM schema_version"},
        {"backup", "SELECT Pwd FROM logins"},
        {"service", "UPDATE users SET blocked = true"},
        {"console", "UPDATE logins SET Pwd = ''"},
    };
    for (const auto &[role, statement] : cases) {
        EXPECT_EQ(RefusalOf(role, QString::fromLatin1(statement)), QString())
            << role << ": " << statement;
    }
}

// The session and a report name account and data source as well.
TEST_P(RolesOfServer, AreToldOfALackedRight)
{
    const QString account = AccountName(u"reports"_s);
    DisconnectDatabase();
    ASSERT_EQ(ConnectDatabase(DsnOf("reports").toUtf8().constData()), 1);
    Execute("UPDATE users SET blocked = true");
    ASSERT_TRUE(LastFailure());
    EXPECT_EQ(LastFailure()->kind, Failure::Kind::Refused);
    EXPECT_THAT(LastFailure()->InWords().toStdString(),
                HasSubstr(u"The account \"%1\" of the data source \"%2\" lacks"_s
                              .arg(account, DsnOf("reports"))
                              .toStdString()));
    QString problem;
    const auto report = ReportConnection::Open(DsnOf("reports"), account, {}, problem);
    ASSERT_TRUE(report) << qPrintable(problem);
    EXPECT_FALSE(report->Run(u"SELECT Pwd FROM logins"_s));
    EXPECT_THAT(report->Problem().toStdString(),
                HasSubstr(u"The account \"%1\" of the"_s.arg(account).toStdString()));
}

TEST_P(RolesOfServer, ArePrintedForTheDatabaseOfADataSource)
{
    const Ended ended = RunTool({u"roles"_s, u"--dsn"_s, Dsn()});
    EXPECT_EQ(ended.status, 0) << qPrintable(ended.error);
    EXPECT_EQ(ended.output.count(u"'CHANGE-ME'"_s), 6);
    const QString name = u"test_%1"_s.arg(QCoreApplication::applicationPid());
    EXPECT_THAT(ended.output.toStdString(), HasSubstr(name.toStdString()));
    RunBeside("UPDATE schema_version SET version = 0");
    const Ended older = RunTool({u"roles"_s, u"--dsn"_s, Dsn()});
    EXPECT_EQ(older.status, 3);
    EXPECT_THAT(older.error.toStdString(), HasSubstr("tollbrook-db upgrade"));
}

TEST_P(RolesOfServer, BackUpAndCheckByAnAccountThatOnlyReads)
{
    ASSERT_EQ(FillWithDemoData(Dsn(), {20, 4, 5}, kQuiet), std::nullopt);
    const QTemporaryDir files;
    const QString file = files.filePath(u"site.backup"_s);
    const Ended backup =
        RunTool({u"backup"_s, file, u"--dsn"_s, DsnOf("backup"), u"--no-settings"_s});
    EXPECT_EQ(backup.status, 0) << qPrintable(backup.error);
    const Ended check = RunTool({u"check"_s, u"--dsn"_s, DsnOf("backup")});
    EXPECT_EQ(check.status, 0) << qPrintable(check.output + check.error);
    const QStringList rows = EveryRow();
    test_data_source::CloseSession();
    const QString spare = SpareDatabase(Engine(), u"restored"_s);
    const auto restored = Restore({file, spare}, kQuiet);
    ASSERT_TRUE(restored) << qPrintable(restored.error());
    EXPECT_EQ(EveryRowOf(spare), rows);
    const auto refused = Restore({file, DsnOf("backup")}, kQuiet);
    EXPECT_FALSE(refused);
}

// The owner of a database of its own, made by the lines that the script suggests, does everything to the
// tables with no more rights than these, and sees the others who are connected.
class Owner : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        const auto pid = QCoreApplication::applicationPid();
        server = SpareDatabase(Engine(), u"owned"_s);
        name = u"owned_%1"_s.arg(pid);
        prefix = u"o%1"_s.arg(pid);
        account = prefix + u"_owner"_s;
        const QString admin = Engine() + u"_spare_server"_s;
        const QString section = RolesScript(Place())
                                    .replace(u"CHANGE-ME"_s, u"secret"_s)
                                    .replace(u"ROLE system"_s, u"ROLE "_s + account)
                                    .replace(u"OWNER system"_s, u"OWNER "_s + account)
                                    .replace(u"'system'"_s, u'\'' + account + u'\'');
        QString suggested;
        for (const QString &line : section.split(u'\n')) {
            suggested += line.startsWith(u"--   "_s) ? line.sliced(5) + u'\n' : QString();
        }
        ASSERT_EQ(RunByClient(admin, u"DROP DATABASE %1;\n"_s.arg(name) + suggested), QString());
        owned = u"owner_of_"_s + Engine();
        DefineBeside(owned, account);
    }

    void TearDown() override
    {
        const bool onPostgresql = Engine() == u"postgresql"_s;
        QString script = onPostgresql ? u"SET client_min_messages = warning;\n"_s : QString();
        script += u"DROP DATABASE %1;\nCREATE DATABASE %1;\n"_s.arg(name);
        for (const QString &role :
             {u"owner"_s, u"console"_s, u"service"_s, u"reports"_s, u"viewer"_s, u"backup"_s}) {
            script += u"DROP %1 IF EXISTS %2_%3;\n"_s.arg(
                onPostgresql ? u"ROLE"_s : u"USER"_s, prefix, role);
        }
        EXPECT_EQ(RunByClient(Engine() + u"_spare_server"_s, script), QString());
        EngineFixture::TearDown();
    }

    [[nodiscard]] RolesPlace Place() const
    {
        return {.dialect = Engine() == u"mariadb"_s ? kMariadb : kPostgresql,
                .database = name,
                .prefix = prefix};
    }

    // The later of two values of a key does not count.
    void DefineBeside(const QString &dsn, const QString &user) const
    {
        test_data_source::Define(dsn,
                                 u"Database=%1\nUserName=%2\nUser=%2\n"_s.arg(name, user)
                                     + ServerSection(Engine()).value_or(QString()));
    }

    QString server;
    QString name;
    QString prefix;
    QString account;
    QString owned; // the owner's data source
};
TB_ON_EVERY_SERVER(Owner);

TEST_P(Owner, MakesUpgradesRepairsAndRestores)
{
    const QTemporaryDir files;
    DirectConnection database;
    ASSERT_TRUE(database.Open(owned)) << qPrintable(database.Error());
    for (const QString &statement : SchemaStatements(database.Engine(), 0)) {
        ASSERT_TRUE(database.Run(statement)) << qPrintable(database.Error());
    }
    database.Close();
    const auto upgraded = UpgradeSchema(owned, UpgradeMode::Run, kQuiet);
    EXPECT_EQ(upgraded.problem, QString());
    EXPECT_EQ(FillWithDemoData(owned, {10, 2, 3}, kQuiet), std::nullopt);
    RunOn(owned, {u"UPDATE users SET group_id = 0 WHERE user_id = 1"_s});
    const QString file = files.filePath(u"site.backup"_s);
    const auto repaired = Repair({owned, file}, RepairMode::Run, kQuiet);
    ASSERT_TRUE(repaired) << qPrintable(repaired.error());
    EXPECT_EQ(*repaired, 1);
    QStringList drops;
    for (const QString &table : SchemaTables()) {
        drops << u"DROP TABLE "_s + Quoted(Place().dialect, table);
    }
    RunOn(owned, drops);
    if (Engine() == u"postgresql"_s) {
        RunOn(owned, {u"DROP COLLATION nocase"_s});
    }
    const auto restored = Restore({file, owned}, kQuiet);
    EXPECT_TRUE(restored) << qPrintable(restored.error());
}

TEST_P(Owner, SeesThatOtherAccountsAreConnected)
{
    const Ended made = RunTool({u"create"_s, u"--dsn"_s, owned});
    ASSERT_EQ(made.status, 0) << qPrintable(made.error);
    EXPECT_TRUE(made.output.contains(u"tollbrook-db roles --dsn "_s + owned))
        << qPrintable(made.output);
    ASSERT_EQ(RunByClient(server, RolesScript(Place()).replace(u"CHANGE-ME"_s, u"secret"_s)),
              QString());
    DefineBeside(u"reader_of_"_s + Engine(), prefix + u"_reports"_s);
    DirectConnection database;
    ASSERT_TRUE(database.Open(owned));
    const auto alone = NobodyElse(database, owned);
    EXPECT_TRUE(alone) << qPrintable(alone.error());
    DirectConnection other;
    ASSERT_TRUE(other.Open(u"reader_of_"_s + Engine())) << qPrintable(other.Error());
    const auto crowded = NobodyElse(database, owned);
    ASSERT_FALSE(crowded);
    EXPECT_THAT(crowded.error().toStdString(), HasSubstr(prefix.toStdString() + "_reports from"));
}

} // namespace
