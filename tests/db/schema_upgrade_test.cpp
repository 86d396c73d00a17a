// The numbered steps of the schema: none is left out, and a database comes from any state to the newest.
#include "db/schema_upgrade.h"

#include "db/check.h"
#include "db/group_keys.h"
#include "db/query.h"
#include "db/report_connection.h"
#include "db/schema.h"
#include "db/schema_scripts.h"
#include "db/schema_version.h"
#include "db/translation.h"
#include "support/core/engine_fixture.h"
#include "support/core/faulty_driver.h"
#include "support/core/test_data_source.h"

#include <QDir>

#include <gmock/gmock.h>
#include <map>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

using End = UpgradeOutcome::End;

const auto kQuiet = [](const QString &) {};

TEST(SchemaSteps, ExistForEveryEngineUnderTheSameNumbersAndNames)
{
    const QDir folder(QStringLiteral(TB_SOURCE_DIR "/src/db/schema/steps"));
    QStringList titles;
    int number = 0;
    for (const SchemaStep &step : SchemaSteps(kSqlite)) {
        EXPECT_EQ(step.number, ++number);
        titles << u"%1-%2"_s.arg(step.number, 3, 10, QChar(u'0')).arg(step.name);
    }
    EXPECT_EQ(number, NewestSchema());
    QStringList files;
    for (const QString &title : std::as_const(titles)) {
        for (const QString &engine : {u"mariadb"_s, u"postgresql"_s, u"sqlite"_s}) {
            files << title + u'.' + engine + u".sql"_s;
        }
    }
    EXPECT_EQ(folder.entryList(QDir::Files, QDir::Name), files);
    EXPECT_EQ(QDir(u":/schema/steps"_s).entryList(QDir::Files, QDir::Name), files);
    for (const Dialect *dialect : {&kSqlite, &kPostgresql, &kMariadb}) {
        QStringList own;
        for (const SchemaStep &step : SchemaSteps(*dialect)) {
            own << u"%1-%2"_s.arg(step.number, 3, 10, QChar(u'0')).arg(step.name);
            EXPECT_FALSE(step.statements.isEmpty()) << dialect->engine << qPrintable(step.name);
        }
        EXPECT_EQ(own, titles) << dialect->engine;
    }
}

// What the engine's own catalogue tells of the tables: columns, types, defaults, keys and indexes.
const std::map<QString, QStringList> kCatalogue {
    {u"sqlite"_s,
     {u"SELECT m.name, p.name, p.type, p.\"notnull\", p.dflt_value, p.pk FROM sqlite_master m, "
      "pragma_table_info(m.name) p WHERE m.type = 'table' ORDER BY m.name, p.cid"_s,
      u"SELECT type, name, tbl_name, sql FROM sqlite_master ORDER BY type, name"_s}},
    {u"postgresql"_s,
     {u"SELECT table_name, column_name, data_type, character_maximum_length, collation_name, "
      "is_nullable, column_default, is_identity, identity_start FROM information_schema.columns "
      "WHERE table_schema = 'public' ORDER BY table_name, ordinal_position"_s,
      u"SELECT indexdef FROM pg_indexes WHERE schemaname = 'public' ORDER BY indexname"_s,
      u"SELECT conrelid::regclass::text, contype, pg_get_constraintdef(oid) FROM pg_constraint "
      "WHERE connamespace = 'public'::regnamespace ORDER BY 1, 2, 3"_s}},
    {u"mariadb"_s,
     {u"SELECT table_name, column_name, column_type, collation_name, is_nullable, "
      "column_default, column_key, extra FROM information_schema.columns "
      "WHERE table_schema = DATABASE() ORDER BY table_name, ordinal_position"_s,
      u"SELECT table_name, index_name, seq_in_index, column_name, collation, non_unique "
      "FROM information_schema.statistics WHERE table_schema = DATABASE() ORDER BY 1, 2, 3"_s,
      u"SELECT table_name, engine, table_collation FROM information_schema.tables "
      "WHERE table_schema = DATABASE() ORDER BY 1"_s}},
};

class SchemaUpgrades : public EngineFixture
{
protected:
    void TearDown() override
    {
        RemoveTables(); // the next test finds the tables as they ought to be
        EXPECT_EQ(CreateSchema(Dsn()), std::nullopt);
        EngineFixture::TearDown();
    }

    static void Run(const QStringList &statements)
    {
        DirectConnection database;
        ASSERT_TRUE(database.Open(Dsn())) << qPrintable(database.Error());
        for (const QString &statement : statements) {
            ASSERT_TRUE(database.Run(statement))
                << qPrintable(statement) << ": " << qPrintable(database.Error());
        }
    }

    static const Dialect &Spelling()
    {
        return Engine() == u"sqlite"_s ? kSqlite
            : Engine() == u"mariadb"_s ? kMariadb
                                       : kPostgresql;
    }

    static void RemoveTables()
    {
        const QString quote(QLatin1Char(Spelling().identifierQuote));
        QStringList statements;
        for (const QString &table : SchemaTables()) {
            statements << u"DROP TABLE IF EXISTS "_s + quote + table + quote;
        }
        if (Engine() == u"postgresql"_s) {
            statements << u"DROP COLLATION IF EXISTS nocase"_s;
        }
        Run(statements);
    }

    // A database as it was before there were versions.
    static void GoBackToTheFirstSchema()
    {
        RemoveTables();
        Run(FirstSchema(Spelling()));
    }

    static QStringList Catalogue()
    {
        DirectConnection database;
        EXPECT_TRUE(database.Open(Dsn()));
        QStringList lines;
        for (const QString &query : kCatalogue.at(Engine())) {
            const auto rows = database.Rows(query);
            EXPECT_TRUE(rows) << qPrintable(database.Error());
            for (const QStringList &row : rows.value_or(QList<QStringList>())) {
                lines << row.join(u'|');
            }
        }
        EXPECT_GT(lines.size(), 100);
        return lines;
    }

    static std::optional<int> Version()
    {
        DirectConnection database;
        EXPECT_TRUE(database.Open(Dsn()));
        return SchemaVersionOf(database);
    }

    static UpgradeOutcome Upgrade() { return UpgradeSchema(Dsn(), UpgradeMode::Run, kQuiet); }
};
TB_ON_EVERY_ENGINE(SchemaUpgrades);

TEST_P(SchemaUpgrades, LeadToWhatAFreshDatabaseHas)
{
    const QStringList fresh = Catalogue();
    EXPECT_EQ(Version(), NewestSchema());
    GoBackToTheFirstSchema();
    EXPECT_EQ(Version(), 0);
    EXPECT_NE(Catalogue(), fresh);
    const UpgradeOutcome outcome = Upgrade();
    EXPECT_EQ(outcome.end, End::Done) << qPrintable(outcome.problem);
    EXPECT_EQ(Version(), NewestSchema());
    EXPECT_EQ(Catalogue().join(u'\n').toStdString(), fresh.join(u'\n').toStdString());
    EXPECT_EQ(RowsOf("SELECT version FROM schema_version"),
              QStringList {QString::number(NewestSchema())});
}

TEST_P(SchemaUpgrades, MakeTheTablesOfTheService)
{
    for (const char *query :
         {"SELECT gateway, address, unknown, user_id, generation, received, sent "
          "FROM service_counters",
          "SELECT gateway, generation, instance, seen FROM service_gateways",
          "SELECT bill_id, day, data, money, price FROM credit_use"}) {
        EXPECT_EQ(RowsOf(query), QStringList()) << query;
    }
    const auto refused = [](const char *statement) {
        Execute(statement);
        return LastFailure().has_value();
    };
    for (const char *row : {"INSERT INTO service_counters (gateway, address, unknown) "
                            "VALUES ('a', '10.0.0.1', 0)",
                            "INSERT INTO service_gateways (gateway) VALUES ('a')",
                            "INSERT INTO credit_use (bill_id, day) VALUES (1, #2026/11/21#)"}) {
        EXPECT_FALSE(refused(row)) << row;
        EXPECT_TRUE(refused(row)) << row; // each row has a key
    }
    EXPECT_FALSE(refused("INSERT INTO service_counters (gateway, address, unknown) "
                         "VALUES ('a', '10.0.0.1', 1)"));
}

TEST_P(SchemaUpgrades, KeepTheRowsAndAreRunOnce)
{
    GoBackToTheFirstSchema();
    Execute("INSERT INTO users (username) VALUES (?)", u"Zo\u00eb"_s);
    QStringList told;
    const auto hear = [&told](const QString &line) { told << line; };
    const QString versions =
        u"The tables of \"%1\" have version %2; this program is made for version %3."_s;
    const QString newest = QString::number(NewestSchema());

    EXPECT_EQ(UpgradeSchema(Dsn(), UpgradeMode::DryRun, hear).end, End::Done);
    EXPECT_EQ(Version(), 0);
    const QStringList announced = std::exchange(told, {});
    ASSERT_EQ(announced.size(), 1 + NewestSchema());
    EXPECT_EQ(announced.at(0), versions.arg(Dsn(), u"0"_s, newest));
    EXPECT_EQ(announced.at(1), u"step 1: service-tables"_s);

    EXPECT_EQ(UpgradeSchema(Dsn(), UpgradeMode::Run, hear).end, End::Done);
    EXPECT_EQ(std::exchange(told, {}), announced);
    EXPECT_EQ(RowsOf("SELECT username FROM users"), QStringList {u"Zo\u00eb"_s});

    EXPECT_EQ(UpgradeSchema(Dsn(), UpgradeMode::Run, hear).end, End::Done);
    EXPECT_EQ(told, QStringList {versions.arg(Dsn(), newest, newest)});
}

TEST_P(SchemaUpgrades, StayAwayFromANewerSchema)
{
    Execute("UPDATE schema_version SET version = version + 1");
    const QStringList rows = EveryRow();
    const UpgradeOutcome outcome = UpgradeSchema(
        Dsn(), UpgradeMode::Run, [](const QString &line) { FAIL() << qPrintable(line); });
    EXPECT_EQ(outcome.end, End::Newer);
    EXPECT_EQ(outcome.problem, NewerSchemaText(NewestSchema() + 1));
    EXPECT_EQ(EveryRow(), rows);
}

TEST_P(SchemaUpgrades, AreKnownToEachConnection)
{
    const auto reportsProblem = [] {
        QString problem;
        const auto connection = ReportConnection::Open(Dsn(), u"system"_s, {}, problem);
        EXPECT_EQ(connection == nullptr, !problem.isEmpty());
        return problem;
    };
    EXPECT_EQ(SessionSchemaVersion(), NewestSchema());
    test_data_source::RaiseSchemaVersion(Dsn());
    DisconnectDatabase();
    EXPECT_EQ(ConnectDatabase(Dsn().toUtf8().constData()), 0);
    EXPECT_EQ(OpenedSchemaVersion().error().kind, Failure::Kind::NewerSchema);
    EXPECT_EQ(OpenedSchemaVersion().error().text, NewerSchemaText(NewestSchema() + 1));
    Execute("INSERT INTO users (username) VALUES ('late')"); // which tries to open it again
    EXPECT_EQ(LastFailure()->kind, Failure::Kind::NewerSchema);
    EXPECT_EQ(RowsOf("SELECT user_id FROM users"), QStringList());
    EXPECT_EQ(reportsProblem(), NewerSchemaText(NewestSchema() + 1));

    Run({u"DELETE FROM schema_version"_s}); // as a first step leaves it that broke off there
    EXPECT_EQ(ReopenDatabase(), true);
    EXPECT_EQ(OpenedSchemaVersion(), 0);
    EXPECT_EQ(reportsProblem(), QString());

    DisconnectDatabase();
    test_data_source::ForgetSchemaVersion(Dsn());
    Run({u"CREATE TABLE schema_version (other INTEGER)"_s});
    EXPECT_EQ(ConnectDatabase(Dsn().toUtf8().constData()), 0);
    EXPECT_FALSE(OpenedSchemaVersion());
    EXPECT_NE(reportsProblem(), QString());
}

// Names of groups as they may have come about before the database kept them apart.
TEST_P(SchemaUpgrades, RenameGroupsThatAreCalledAlikeAndTellSo)
{
    GoBackToTheFirstSchema();
    const std::tuple<int, QString, QString> groups[] = {
        {5, u"everybody"_s, u"everybody (2)"_s}, // not the one that every program knows
        {81, u"\u00c4rzte"_s, u"\u00c4rzte"_s},
        {82, u"\u00e4rzte "_s, u"\u00e4rzte (2)"_s},
        {83, u"Staff"_s, u"Staff"_s},
        {84, u"staff"_s, u"staff (3)"_s},
        {85, u"STAFF (2)"_s, u"STAFF (2)"_s},
        {86, QString(), QString()},
        {87, u" "_s, u" "_s},
        {88, QString(254, u'x'), QString(254, u'x')},
        {89, QString(254, u'X'), QString(250, u'X') + u" (2)"}};
    QStringList renamed;
    for (const auto &[groupId, name, wanted] : groups) {
        RunBeside("INSERT INTO groups (group_id, name) VALUES (?, ?)", {groupId, name.toUtf8()});
        if (name != wanted) {
            renamed << GroupRename {groupId, name, wanted}.InWords();
        }
    }
    const auto toldBy = [](UpgradeMode mode) {
        QStringList told;
        const UpgradeOutcome outcome =
            UpgradeSchema(Dsn(), mode, [&told](const QString &line) { told << line; });
        EXPECT_EQ(outcome.end, End::Done) << qPrintable(outcome.problem);
        return told;
    };
    const auto names = [] { return RowsOf("SELECT group_id, name FROM groups ORDER BY group_id"); };
    const QStringList before = names();
    const QStringList announced = toldBy(UpgradeMode::DryRun);
    EXPECT_EQ(announced.mid(3), renamed);
    EXPECT_EQ(names(), before);
    EXPECT_EQ(toldBy(UpgradeMode::Run), announced);

    DirectConnection database;
    ASSERT_TRUE(database.Open(Dsn()));
    const auto rows = database.Rows(QString::fromStdString(
        Translate(Spelling(),
                  "SELECT group_id, name, name_key FROM groups WHERE group_id <> 80 ORDER BY 1")));
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows->size(), std::ssize(groups));
    for (qsizetype at = 0; at < rows->size(); ++at) {
        const auto &[groupId, name, wanted] = groups[at];
        EXPECT_EQ(rows->at(at).at(1), wanted);
        EXPECT_EQ(rows->at(at).at(2), GroupKey(wanted)) << groupId;
    }
}

TEST_P(SchemaUpgrades, LeaveNoTwoGroupsWithOneKey)
{
    EXPECT_EQ(RowsOf("SELECT name_key FROM groups"), QStringList {GroupKey(u"EVERYBODY "_s)});
    const auto refused = [](const char *statement) {
        Execute(statement);
        return LastFailure() ? std::optional(LastFailure()->kind) : std::nullopt;
    };
    const char *const named = "INSERT INTO groups (name, name_key) VALUES ('a', 'key of a')";
    EXPECT_EQ(refused(named), std::nullopt);
    EXPECT_EQ(refused(named), Failure::Kind::NotUnique);
    EXPECT_EQ(refused("INSERT INTO groups (name) VALUES ('b')"), std::nullopt);
    EXPECT_EQ(refused("INSERT INTO groups (name) VALUES ('c')"), std::nullopt);
}

TEST_P(SchemaUpgrades, NeedTables)
{
    RemoveTables();
    const UpgradeOutcome outcome = Upgrade();
    EXPECT_EQ(outcome.end, End::Failed);
    EXPECT_THAT(outcome.problem.toStdString(), testing::HasSubstr("has no tables yet"));
}

TEST_P(SchemaUpgrades, AreNotOfferedWhereThereAreNoTables)
{
    RemoveTables();
    DisconnectDatabase();
    EXPECT_EQ(ConnectDatabase(Dsn().toUtf8().constData()), 0);
    EXPECT_EQ(OpenedSchemaVersion().error().kind, Failure::Kind::NewerSchema);
    EXPECT_EQ(OpenedSchemaVersion().error().text, RefusedSchemaText(kNoSchema));
    const CheckResult checked = CheckDatabase(Dsn());
    EXPECT_EQ(checked.failure, RefusedSchemaText(kNoSchema));
    EXPECT_FALSE(checked.isRefused);
    EXPECT_EQ(checked.notes, QStringList());

    ASSERT_EQ(CreateSchema(Dsn()), std::nullopt);
    EXPECT_EQ(ReopenDatabase(), true);
    EXPECT_EQ(OpenedSchemaVersion(), NewestSchema());
}

TEST_P(SchemaUpgrades, StopAtAVersionThatCannotBeRead)
{
    GoBackToTheFirstSchema();
    Run({u"CREATE TABLE schema_version (other INTEGER)"_s});
    const QStringList before = Catalogue();
    EXPECT_EQ(Version(), std::nullopt);
    const UpgradeOutcome outcome = Upgrade();
    EXPECT_EQ(outcome.end, End::Failed);
    EXPECT_THAT(outcome.problem.toStdString(), testing::HasSubstr("cannot be read"));
    EXPECT_EQ(Catalogue(), before);
}

// Each statement that an upgrade sends fails once.
TEST_P(SchemaUpgrades, GoOnWhereTheyBrokeOff)
{
    const QStringList fresh = Catalogue();
    GoBackToTheFirstSchema();
    QList<QStringList> whole {Catalogue()}; // by version
    for (int version = 1; version < NewestSchema(); ++version) {
        RemoveTables();
        Run(SchemaStatements(Spelling(), version) << VersionStatements(version).first());
        whole << Catalogue();
    }
    GoBackToTheFirstSchema();
    FaultyDriver driver(Dsn());
    for (int failing = 1;; ++failing) {
        FaultyDriver::RefuseBesideAt(failing);
        const UpgradeOutcome broken = Upgrade();
        const int sent = FaultyDriver::RefuseBesideAt(0);
        if (failing > sent) {
            EXPECT_GT(failing, 10);
            break;
        }
        if (broken.end
            == End::Done) { // the number was written: another upgrade would have been content
            EXPECT_EQ(Version(), NewestSchema()) << failing;
        } else {
            EXPECT_LT(Version(), NewestSchema()) << failing;
            EXPECT_TRUE(Engine() == u"mariadb"_s || Catalogue() == whole.at(*Version())) << failing;
            EXPECT_EQ(Upgrade().end, End::Done) << failing;
        }
        EXPECT_EQ(Version(), NewestSchema()) << failing;
        EXPECT_EQ(Catalogue(), fresh) << failing;
        GoBackToTheFirstSchema();
    }
}

TEST_P(SchemaUpgrades, MayRunAtTheSameTime)
{
    const QStringList fresh = Catalogue();
    for (int round = 0; round < 5; ++round) {
        GoBackToTheFirstSchema();
        std::array<UpgradeOutcome, 3> outcomes;
        {
            std::vector<std::jthread> threads;
            threads.reserve(outcomes.size());
            for (UpgradeOutcome &outcome : outcomes) {
                threads.emplace_back([&outcome, dsn = Dsn()] {
                    outcome = UpgradeSchema(dsn, UpgradeMode::Run, kQuiet);
                });
            }
        }
        for (const UpgradeOutcome &outcome : outcomes) {
            EXPECT_EQ(outcome.end, End::Done) << qPrintable(outcome.problem);
        }
        EXPECT_EQ(Catalogue(), fresh);
        EXPECT_EQ(RowsOf("SELECT version FROM schema_version"),
                  QStringList {QString::number(NewestSchema())});
    }
}

} // namespace
