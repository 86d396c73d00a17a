// The database tool: what it makes, fills and finds, and how it ends.
#include "base/day.h"
#include "db/check.h"
#include "db/demo_data.h"
#include "db/report_connection.h"
#include "db/schema_scripts.h"
#include "db/schema_version.h"
#include "db/session.h"
#include "support/core/engine_fixture.h"
#include "support/core/test_data_source.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

const auto kQuiet = [](const QString &) {};

class DemoData : public EngineFixture
{ };
TB_ON_EVERY_ENGINE(DemoData);

TEST_P(DemoData, IsConsistentAndTheSameOnEveryEngine)
{
    static QStringList users;
    const TodayOverride today(QDate(2026, 3, 2)); // a month that has just begun
    ASSERT_EQ(FillWithDemoData(Dsn(), {300, 30, 20}, kQuiet), std::nullopt);
    const CheckResult result = CheckDatabase(Dsn());
    EXPECT_EQ(result.failure, std::nullopt);
    EXPECT_EQ(result.findings, QStringList());
    EXPECT_EQ(result.notes, QStringList());

    const QStringList made =
        RowsOf("SELECT username, fullname, ip_addr, mac_addr, group_id, mode, traflim, "
               "timelim, trafperiod, blocked, blockreason, monitored FROM users ORDER BY user_id");
    EXPECT_EQ(made.size(), 300);
    users = users.isEmpty() ? made : users;
    EXPECT_EQ(made, users);
    for (const char *all : {"SELECT COUNT(*) FROM users WHERE blocked = true AND blockreason = 1",
                            "SELECT COUNT(*) FROM users WHERE monitored = false",
                            "SELECT COUNT(*) FROM users WHERE TimeAccess = true",
                            "SELECT COUNT(*) FROM traffic_use WHERE period = 1",
                            "SELECT COUNT(*) FROM traffic_use WHERE period = 2",
                            "SELECT COUNT(*) FROM time_use WHERE period = 1",
                            "SELECT COUNT(*) FROM billing WHERE mode = 1",
                            "SELECT COUNT(*) FROM billing WHERE mode = 2 AND closed = 1",
                            "SELECT COUNT(*) FROM billing WHERE mode = 4",
                            "SELECT COUNT(*) FROM SiteAccess",
                            "SELECT COUNT(*) FROM Port_blocked"}) {
        EXPECT_NE(RowsOf(all), QStringList {u"0"_s}) << all;
    }
}

TEST_P(DemoData, StaysOutOfADatabaseWithUsers)
{
    Execute("INSERT INTO users (username) VALUES (?)", u"anna"_s);
    const QStringList before = EveryRow();
    const auto problem = FillWithDemoData(Dsn(), {}, kQuiet);
    ASSERT_TRUE(problem);
    EXPECT_TRUE(problem->contains(u"already has 1 users"_s)) << qPrintable(*problem);
    EXPECT_EQ(EveryRow(), before);
}

struct Fault
{
    const char *statement;
    const char *finding;
};

constexpr Fault kFaults[] = {
    {"DELETE FROM groups WHERE group_id = 80", "1 groups \"Everybody\" (80) are missing"},
    {"INSERT INTO groups (name) VALUES ('EVERYBODY')", "1 names are held by more than one group"},
    {"INSERT INTO groups (name) VALUES ('\u00c4rzte'), (' \u00e4rzte')",
     "1 names are held by more than one group"},
    {"UPDATE groups SET name = 'All' WHERE group_id = 80",
     "1 groups are kept apart from others by a name that they have no more"},
    {"INSERT INTO users (username, group_id) VALUES ('a', 0)", "1 users belong to no group (0)"},
    {"INSERT INTO users (username, group_id) VALUES ('a', 999)",
     "1 users belong to a group that does not exist"},
    {"UPDATE groups SET blocked = true, blockreason = 3 WHERE group_id = 80",
     "users are open although their group is blocked"},
    {"INSERT INTO users (username, mode) VALUES ('a', 3)", "1 users have a mode other than"},
    {"INSERT INTO users (username, own_price, trafprice) VALUES ('a', 1, -1)",
     "1 users have a price of their own"},
    {"INSERT INTO users (username, authreq) VALUES ('a', 1)",
     "1 users must authenticate but have no login"},
    {"INSERT INTO users (username, ip_addr) VALUES ('a', '10.0.0.1')",
     "1 IP addresses are held by more than one user"},
    {"INSERT INTO billing (mode, data) VALUES (2, 5)", "1 billing records have no owner"},
    {"INSERT INTO billing (mode, object_id) VALUES (1, 1)",
     "1 traffic credits name no traffic record"},
    {"INSERT INTO billing (mode, object_id) VALUES (4, 1)", "1 time credits name no time record"},
    {"INSERT INTO billing (mode, object_id, unlimited, expiredday) VALUES (2, 1, 0, '1.2.2026')",
     "1 credits have an expiry day that is no date"},
    {"INSERT INTO traffic_use (period) VALUES (0)", "1 traffic records belong to neither"},
    {"INSERT INTO traffic_use (user_id, period, current_time) "
     "SELECT user_id, period, current_time FROM traffic_use WHERE period = 0 AND user_id = 1",
     "5 days of a user have more than one traffic record"},
    {"INSERT INTO time_use (user_id, period, current_time) "
     "SELECT user_id, period, current_time FROM time_use WHERE period = 0 AND user_id = 1",
     "5 days of a user have more than one time record"},
    {"INSERT INTO time_use (period) VALUES (0)", "1 time records belong to no user"},
    {"INSERT INTO Time_blocked (user_id, group_id, dayofweek, timestart, timestop) "
     "VALUES (NULL, 0, 1, '08:00:00', '09:00:00')",
     "1 denied times belong to neither"},
    {"INSERT INTO Time_blocked (user_id, dayofweek, timestart, timestop) "
     "VALUES (1, 8, '08:00:00', '09:00:00')",
     "1 denied times have no day of the week"},
    {"INSERT INTO Port_blocked (user_id, port_id) VALUES (0, 1)",
     "1 denied ports belong to neither"},
    {"INSERT INTO Port_blocked (user_id, port_id) VALUES (1, 999)",
     "1 denied ports name a port that does not exist"},
    {"INSERT INTO Ports (proto_id, port_number) VALUES (99, 1)",
     "1 ports belong to a protocol that does not exist"},
    {"INSERT INTO SiteAccess (site_id) VALUES (1)", "1 site visits belong to no user"},
    {"INSERT INTO service_counters (gateway, address, unknown) VALUES ('a', '10.0.0.1', 2)",
     "1 counters are neither of a known nor of an unknown address"},
    {"INSERT INTO service_counters (gateway, address, unknown, sent) VALUES ('a', 'b', 0, -1)",
     "1 counters are negative"},
    {"INSERT INTO credit_use (bill_id, day, money) SELECT MIN(bill_id), #2026/11/20#, -1 FROM billing",
     "1 days took less than nothing of a credit"},
    {"INSERT INTO schema_version (version) VALUES (0)",
     "1 databases hold more than one version of the schema"},
    {"DELETE FROM sites", "site visits name a site that does not exist"},
};

class Check : public DatabaseFixture
{ };

TEST_F(Check, FindsEachFault)
{
    const TodayOverride today(QDate(2026, 11, 20));
    ASSERT_EQ(FillWithDemoData(Dsn(), {10, 3, 6}, kQuiet), std::nullopt);
    const QString sound = folder.filePath(u"sound.db"_s);
    DisconnectDatabase();
    ASSERT_TRUE(QFile::copy(DatabaseFile(), sound));
    for (const Fault &fault : kFaults) {
        QFile::remove(DatabaseFile());
        ASSERT_TRUE(QFile::copy(sound, DatabaseFile()));
        test_data_source::OpenSession(Dsn());
        Execute(fault.statement);
        const CheckResult result = CheckDatabase(Dsn());
        const QString findings = result.findings.join(u'\n');
        EXPECT_TRUE(findings.contains(QString::fromUtf8(fault.finding))) << fault.statement << "\n"
                                                                         << qPrintable(findings);
        EXPECT_EQ(result.notes, QStringList()) << fault.statement;
        DisconnectDatabase();
    }
}

// What the console runs, and all that is left of it.
struct Deletion
{
    const char *what;
    QList<const char *> statements;
    QStringList notes;
};

const Deletion kDeletions[] = {
    {"a user",
     {"DELETE FROM users WHERE user_id = 1",
      "DELETE FROM traffic_use WHERE user_id = 1",
      "DELETE FROM time_use WHERE user_id = 1",
      "DELETE FROM siteaccess WHERE user_id = 1",
      "DELETE FROM billing WHERE object_id = 1",
      "UPDATE logins SET userid=0 WHERE userid = 1"},
     {u"1 denied times belong to a user or a group that no longer exists."_s,
      u"1 denied ports belong to a user or a group that no longer exists."_s,
      u"1 counters are of addresses that belonged to a user who no longer exists."_s,
      u"1 days that took of a credit name one that no longer exists."_s}},
    {"a user whose address goes to another user, or is excluded",
     {"DELETE from users WHERE user_id=1"},
     {u"1 traffic records belong to a user who no longer exists."_s,
      u"1 time records belong to a user who no longer exists."_s,
      u"2 billing records belong to a user who no longer exists."_s,
      u"1 denied times belong to a user or a group that no longer exists."_s,
      u"1 denied ports belong to a user or a group that no longer exists."_s,
      u"1 logins are bound to a user who no longer exists."_s,
      u"1 site visits belong to a user who no longer exists."_s,
      u"1 counters are of addresses that belonged to a user who no longer exists."_s}},
    {"a group",
     {"DELETE FROM groups WHERE group_id = 90",
      "UPDATE users SET group_id = 80 WHERE group_id = 90"},
     {u"1 traffic records belong to a group that no longer exists."_s,
      u"1 billing records belong to a group that no longer exists."_s,
      u"1 denied times belong to a user or a group that no longer exists."_s,
      u"1 denied ports belong to a user or a group that no longer exists."_s}},
    {"everything and all users",
     {"DELETE FROM users",
      "DELETE FROM traffic_use",
      "DELETE FROM time_use",
      "DELETE FROM billing",
      "DELETE FROM sites",
      "DELETE FROM siteaccess"},
     {u"1 denied times belong to a user or a group that no longer exists."_s,
      u"1 denied ports belong to a user or a group that no longer exists."_s,
      u"1 logins are bound to a user who no longer exists."_s,
      u"1 counters are of addresses that belonged to a user who no longer exists."_s,
      u"1 days that took of a credit name one that no longer exists."_s}},
    {"records of another period",
     {"DELETE FROM traffic_use WHERE current_time < #2026/11/21#",
      "DELETE FROM time_use WHERE current_time < #2026/11/21#"},
     {u"2 traffic credits name a traffic record that no longer exists."_s,
      u"1 time credits name a time record that no longer exists."_s}},
    {"nothing, but the service has not begun the period's records yet",
     {"INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, 0, 1, 5)",
      "INSERT INTO billing (mode, time_id, object_id, data) VALUES (4, 0, 1, 5)"},
     {u"1 traffic credits were given before there was a traffic record for them (0)."_s,
      u"1 time credits were given before there was a time record for them (0)."_s}},
};

class Leftovers : public EngineFixture
{
protected:
    // One user and one group with a row in every table that can hold one of theirs.
    void MakeOwners()
    {
        for (const char *statement :
             {"DELETE FROM users",
              "DELETE FROM traffic_use",
              "DELETE FROM time_use",
              "DELETE FROM billing",
              "DELETE FROM sites",
              "DELETE FROM siteaccess",
              "DELETE FROM logins",
              "DELETE FROM service_counters",
              "DELETE FROM credit_use",
              "DELETE FROM Time_blocked",
              "DELETE FROM Port_blocked",
              "DELETE FROM groups WHERE group_id <> 80",
              "INSERT INTO groups (group_id, name, mode) VALUES (90, 'Office', 1)",
              "INSERT INTO users (user_id, username, group_id, mode) VALUES (1, 'anna', 90, 5)",
              "INSERT INTO traffic_use (traf_id, user_id, period, current_time) "
              "VALUES (11, 1, 2, #2026/11/20#)",
              "INSERT INTO traffic_use (traf_id, group_id, period, current_time) "
              "VALUES (12, 90, 2, #2026/11/20#)",
              "INSERT INTO time_use (time_id, user_id, period, current_time) "
              "VALUES (21, 1, 2, #2026/11/20#)",
              "INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, 11, 1, 5)",
              "INSERT INTO billing (mode, time_id, object_id, data) VALUES (4, 21, 1, 5)",
              "INSERT INTO billing (mode, trafid, group_id, data) VALUES (1, 12, 90, 5)",
              "INSERT INTO service_counters (gateway, address, unknown, user_id) "
              "VALUES ('a', '10.0.0.1', 0, 1)",
              "INSERT INTO credit_use (bill_id, day) "
              "SELECT MAX(bill_id), #2026/11/20# FROM billing WHERE object_id = 1",
              "INSERT INTO sites (site_id, sitename) VALUES (1, 'example.org')",
              "INSERT INTO siteaccess (user_id, site_id) VALUES (1, 1)",
              "INSERT INTO logins (login, userid) VALUES ('anna', 1)",
              "INSERT INTO Time_blocked (user_id, dayofweek, timestart, timestop) "
              "VALUES (1, 1, '08:00:00', '09:00:00')",
              "INSERT INTO Time_blocked (group_id, dayofweek, timestart, timestop) "
              "VALUES (90, 1, '08:00:00', '09:00:00')",
              "INSERT INTO Port_blocked (user_id, port_id) SELECT 1, MIN(port_id) FROM Ports",
              "INSERT INTO Port_blocked (Group_id, port_id) SELECT 90, MIN(port_id) FROM Ports"}) {
            Execute(statement);
        }
    }
};
TB_ON_EVERY_ENGINE(Leftovers);

TEST_P(Leftovers, OfTheConsoleAreNotes)
{
    for (const Deletion &deletion : kDeletions) {
        MakeOwners();
        ASSERT_EQ(CheckDatabase(Dsn()).notes, QStringList()) << deletion.what;
        for (const char *statement : deletion.statements) {
            Execute(statement);
        }
        const CheckResult result = CheckDatabase(Dsn());
        EXPECT_EQ(result.failure, std::nullopt) << deletion.what;
        EXPECT_EQ(result.findings, QStringList()) << deletion.what << "\n"
                                                  << qPrintable(result.findings.join(u'\n'));
        EXPECT_EQ(result.notes, deletion.notes) << deletion.what << "\n"
                                                << qPrintable(result.notes.join(u'\n'));
    }
}

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
    EXPECT_TRUE(tool.waitForFinished());
    return {tool.exitCode(),
            QString::fromUtf8(tool.readAllStandardOutput()),
            QString::fromUtf8(tool.readAllStandardError())};
}

TEST(Tool, MakesFillsAndChecksADatabase)
{
    const auto dsn = u"tool"_s;
    const QString file = test_data_source::SqliteFile(dsn);
    test_data_source::Define(dsn, u"Driver=SQLite3\nDatabase=%1\nPassword=hush"_s.arg(file));
    const Ended made = RunTool({u"create"_s, u"--dsn"_s, dsn});
    EXPECT_EQ(made.status, 0) << qPrintable(made.error);
    for (const QString &line : QStringList {
             u"[tool]"_s, u"Database = "_s + file, u"Password = ***"_s, u"StepAPI = 1"_s}) {
        EXPECT_TRUE(made.output.contains(line)) << qPrintable(made.output);
    }
    EXPECT_FALSE(made.output.contains(u"hush"_s));
    EXPECT_EQ(RunTool({u"create"_s, u"--dsn"_s, dsn}).status, 3);
    EXPECT_EQ(RunTool({u"check"_s, u"--dsn"_s, dsn}).status, 0);
    EXPECT_EQ(RunTool({u"demo"_s, u"--dsn"_s, dsn, u"--users"_s, u"5"_s, u"--days=3"_s}).status, 0);
    EXPECT_EQ(RunTool({u"demo"_s, u"--dsn"_s, dsn}).status, 3);
    test_data_source::OpenSession(dsn);
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM users"), QStringList {u"5"_s});
    Execute("INSERT INTO Logins (login, userid) VALUES ('gone', 999)");
    const QString note = u"note: 1 logins are bound to a user who no longer exists.\n"_s;
    const Ended noted = RunTool({u"check"_s, u"--dsn"_s, dsn});
    EXPECT_EQ(noted.status, 0);
    EXPECT_EQ(noted.output, note + u"Everything in the database of \"tool\" is consistent.\n"_s);
    Execute("UPDATE users SET group_id = 0 WHERE user_id = 1");
    test_data_source::CloseSession();
    const Ended checked = RunTool({u"check"_s, u"--dsn"_s, dsn});
    EXPECT_EQ(checked.status, 1);
    EXPECT_EQ(checked.output,
              u"1 users belong to no group (0), so that the users list leaves them out.\n"_s
                  + note);
}

TEST(Tool, UpgradesAnOlderDatabaseAndStaysAwayFromANewerOne)
{
    const auto dsn = u"aged"_s;
    test_data_source::RenewSqlite(dsn);
    const auto run = [&](const QStringList &command) {
        return RunTool(command + QStringList {u"--dsn"_s, dsn});
    };
    const QString versions =
        u"The tables of \"aged\" have version %1; this program is made for version "
        "%2.\n"_s.arg(QString::number(0), QString::number(NewestSchema()));
    const QString older = OlderSchemaText(0, dsn);
    DirectConnection database;
    ASSERT_TRUE(database.Open(dsn));
    for (const char *table :
         {"service_counters", "service_gateways", "credit_use", "schema_version"}) {
        ASSERT_TRUE(database.Run(u"DROP TABLE "_s + QLatin1StringView(table)));
    }
    ASSERT_TRUE(database.Run(u"DROP INDEX groups_name_key"_s));
    ASSERT_TRUE(database.Run(u"ALTER TABLE groups DROP COLUMN name_key"_s));
    const Ended noted = run({u"check"_s});
    EXPECT_EQ(noted.status, 0);
    EXPECT_TRUE(noted.output.startsWith(u"note: "_s + older)) << qPrintable(noted.output);
    EXPECT_EQ(run({u"demo"_s}).status, 3);
    EXPECT_TRUE(run({u"demo"_s}).error.contains(older));

    const Ended dry = run({u"upgrade"_s, u"--dry-run"_s});
    EXPECT_EQ(dry.status, 0);
    EXPECT_EQ(dry.output, versions + u"step 1: service-tables\nstep 2: group-names\n"_s);
    EXPECT_EQ(SchemaVersionOf(database), 0);
    const Ended waiting = run({u"upgrade"_s}); // this program has the database open
    EXPECT_EQ(waiting.status, 3);
    EXPECT_TRUE(waiting.error.contains(u"process %1 "_s.arg(QCoreApplication::applicationPid())))
        << qPrintable(waiting.error);
    EXPECT_EQ(SchemaVersionOf(database), 0);
    const Ended upgraded = run({u"upgrade"_s, u"--while-connected"_s});
    EXPECT_EQ(upgraded.status, 0) << qPrintable(upgraded.error);
    EXPECT_EQ(upgraded.output, dry.output + u"The tables of \"aged\" are up to date.\n"_s);
    EXPECT_EQ(run({u"check"_s}).output,
              u"Everything in the database of \"aged\" is consistent.\n"_s);

    test_data_source::RaiseSchemaVersion(dsn);
    for (const QString &command : {u"upgrade"_s, u"check"_s, u"demo"_s}) {
        const Ended refused = run({command});
        EXPECT_EQ(refused.status, command == u"demo"_s ? 3 : 4) << qPrintable(command);
        EXPECT_TRUE(refused.error.contains(NewerSchemaText(NewestSchema() + 1)))
            << qPrintable(refused.error);
    }
}

TEST(Tool, OnlyMakesADatabaseWhereOneIsAskedFor)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"bill.db"_s);
    const QString backup = folder.filePath(u"backup"_s);
    test_data_source::Define(u"absent"_s, u"Driver=SQLite3\nDatabase="_s + file);
    const QString absent =
        u"The section [absent] of odbc.ini names \"%1\" as its Database, and there is no such file."_s
            .arg(file);
    EXPECT_EQ(ConnectDatabase("absent"), 0);
    EXPECT_EQ(LastFailure().value_or(Failure()).text, absent);
    QString problem;
    EXPECT_EQ(ReportConnection::Open(u"absent"_s, u"system"_s, {}, problem), nullptr);
    EXPECT_EQ(problem, absent);
    for (const char *command : {"check", "demo", "upgrade", "backup"}) {
        QStringList arguments {QString::fromLatin1(command), u"--dsn"_s, u"absent"_s};
        if (arguments.first() == u"backup"_s) {
            arguments << backup << u"--no-settings"_s;
        }
        const Ended ended = RunTool(arguments);
        EXPECT_EQ(ended.status, 3) << command;
        EXPECT_TRUE(ended.error.contains(absent)) << qPrintable(ended.error);
        EXPECT_FALSE(QFile::exists(file)) << command;
    }
    test_data_source::RenewSqlite(u"full"_s);
    ASSERT_EQ(RunTool({u"backup"_s, backup, u"--no-settings"_s, u"--dsn"_s, u"full"_s}).status, 0);
    const QStringList restore {u"restore"_s, backup, u"--dsn"_s, u"absent"_s};
    EXPECT_EQ(RunTool(restore + QStringList {u"--dry-run"_s}).status, 0);
    EXPECT_FALSE(QFile::exists(file));
    EXPECT_EQ(RunTool(restore).status, 0);
    ASSERT_TRUE(QFile::remove(file));
    EXPECT_EQ(RunTool({u"create"_s, u"--dsn"_s, u"absent"_s}).status, 0);
    EXPECT_TRUE(QFile::exists(file));
}

TEST(Tool, SaysWhatAReaderOfAFileNeeds)
{
    test_data_source::RenewSqlite(u"read"_s);
    DirectConnection database;
    ASSERT_TRUE(database.Open(u"read"_s) && database.Run(u"PRAGMA query_only = 1"_s));
    EXPECT_FALSE(database.Run(u"UPDATE users SET fullname = 'x'"_s));
    EXPECT_THAT(database.Error().toStdString(), testing::HasSubstr("start the accounting service"));
}

TEST(Tool, SaysWhatIsWrong)
{
    // The driver would make a database that is gone with the connection.
    test_data_source::Define(u"nameless"_s, u"Driver=SQLite3\nDatabse=/var/tmp/bill.db"_s);
    const QString kNoFile = u"The section [nameless] of odbc.ini names no Database."_s;
    EXPECT_EQ(ConnectDatabase("nameless"), 0);
    EXPECT_EQ(LastFailure().value_or(Failure()).text, kNoFile);
    const std::tuple<QStringList, int, QString> cases[] = {
        {{}, 2, u"Name one command"_s},
        {{u"create"_s}, 2, u"Name one command"_s},
        {{u"drop"_s, u"--dsn"_s, u"x"_s}, 2, u"There is no command \"drop\""_s},
        {{u"demo"_s, u"--dsn"_s, u"x"_s, u"--users"_s, u"many"_s},
         2,
         u"--users must be a number"_s},
        {{u"demo"_s, u"--dsn"_s, u"x"_s, u"--days"_s, u"0"_s}, 2, u"--days must be a number"_s},
        {{u"create"_s, u"--fierce"_s}, 2, u"fierce"_s},
        {{u"create"_s, u"--dsn"_s, u"x"_s, u"--force"_s}, 2, u"\"create\" does not take --force"_s},
        {{u"create"_s, u"--dsn"_s, u"nameless"_s}, 3, kNoFile},
        {{u"check"_s, u"--dsn"_s, u"nameless"_s}, 3, kNoFile},
        {{u"copy"_s, u"--from"_s, u"nameless"_s, u"--to"_s, u"x"_s}, 3, kNoFile},
        {{u"create"_s, u"--dsn"_s, u"no such source"_s}, 3, u"cannot be opened"_s},
        {{u"demo"_s, u"--dsn"_s, u"no such source"_s}, 3, u"cannot be opened"_s},
        {{u"check"_s, u"--dsn"_s, u"no such source"_s}, 3, u"cannot be opened"_s},
        {{u"upgrade"_s, u"--dsn"_s, u"no such source"_s}, 3, u"cannot be opened"_s},
    };
    for (const auto &[arguments, status, text] : cases) {
        const Ended ended = RunTool(arguments);
        EXPECT_EQ(ended.status, status) << qPrintable(arguments.join(u' '));
        EXPECT_TRUE(ended.error.contains(text)) << qPrintable(ended.error);
    }
}

} // namespace
