// Whole databases from one engine to another, through a file and without: row by row the same, and never
// into a database that others use.
#include "db/check.h"
#include "db/demo_data.h"
#include "db/maintenance.h"
#include "db/report_connection.h"
#include "db/schema.h"
#include "db/schema_scripts.h"
#include "db/schema_upgrade.h"
#include "db/schema_version.h"
#include "db/translation.h"
#include "support/core/engine_fixture.h"
#include "support/core/test_data_source.h"
#include "upkeep/backup.h"
#include "upkeep/filled_database.h"
#include "upkeep/nobody_else.h"
#include "upkeep/restore.h"
#include "upkeep/spare_database.h"

#include <QFile>
#include <QProcess>

#include <cfloat>
#include <gmock/gmock.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

const auto kQuiet = [](const QString &) {};

const char *const kHostileTexts[] = {"'; DROP TABLE users; --",
                                     "\"quoted\" `back` \\ \\\\ \\' \\n",
                                     "{a,NULL,\"b\"}",
                                     "NULL",
                                     "",
                                     " ends with blanks  ",
                                     "\x01\x02\t\r\n\x7f",
                                     "\xF0\x9F\x98\x80\xF0\x9F\x91\xA9 \xC3\xA9\xE4\xB8\xAD",
                                     "%s %n ? (?) ${x} [\"json\"]"};

// Beside the demonstration's rows those that a careless way would lose.
void AddHostileRows(const QString &dsn)
{
    DirectConnection database;
    ASSERT_TRUE(database.Open(dsn));
    const auto run = [&](const char *text, const SqlValues &values) {
        const auto statement = QString::fromStdString(Translate(database.Engine(), text));
        ASSERT_TRUE(database.Run(statement, values)) << text << qPrintable(database.Error());
    };
    for (const char *text : kHostileTexts) {
        run("INSERT INTO users (username, descrip) VALUES (?, ?)",
            {QByteArray(text), QByteArray(text)});
    }
    run("INSERT INTO users (username, fullname) VALUES (?, ?)",
        {QByteArray(250, 'x'), QByteArrayLiteral("\xF0\x9F\x98\x80").repeated(250)});
    for (const double amount : {DBL_MAX, -DBL_MAX, DBL_MIN, 4.9e-324, 0.1 + 0.2, -1.0 / 3, 1e22}) {
        run("INSERT INTO billing (mode, object_id, data, moneydata) VALUES (2, ?, ?, NULL)",
            {INT_MAX, amount});
    }
    for (const char *day : {"0001-01-01", "1582-10-10", "2024-02-29", "9999-12-31"}) {
        run("INSERT INTO traffic_use (user_id, period, current_time) VALUES (?, 0, ?)",
            {INT_MIN, QByteArray(day)});
        run("INSERT INTO billing (mode, date) VALUES (2, ?)", {QByteArray(day) + " 23:59:59"});
    }
    run("INSERT INTO service_counters (gateway, address, unknown, received) VALUES (?, ?, 1, ?)",
        {QByteArray("g'w"), QByteArray("fe80::1"), 1e300});
    run("INSERT INTO service_counters (gateway, address, unknown) VALUES (?, ?, 0)",
        {QByteArray("g'w"), QByteArray("fe80::1")});
    run("INSERT INTO credit_use (bill_id, day) VALUES (1, ?)", {QByteArray("2026-11-21")});
}

class Upkeep : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        ASSERT_EQ(FillWithDemoData(Dsn(), {40, 5, 12}, kQuiet), std::nullopt);
        AddHostileRows(Dsn());
        file = files.filePath(u"site.backup"_s);
    }

    [[nodiscard]] Told<void> Backup() const { return MakeBackup({Dsn(), file}, kQuiet); }

    static QString Spare(const QString &purpose = u"spare"_s)
    {
        return SpareDatabase(Engine(), purpose);
    }

    // What the session, reports, "check" and "upgrade" say of a database.
    static QStringList SayingsOf(const QString &dsn)
    {
        test_data_source::CloseSession();
        QStringList said;
        if (ConnectDatabase(dsn.toUtf8().constData()) == 0) {
            said << LastFailure()->text;
        }
        DisconnectDatabase();
        QString report;
        if (!ReportConnection::Open(dsn, u"system"_s, {}, report)) {
            said << report;
        }
        return said << CheckDatabase(dsn).failure.value_or(QString())
                    << UpgradeSchema(dsn, UpgradeMode::Run, kQuiet).problem;
    }

    QTemporaryDir files;
    QString file;
};
TB_ON_EVERY_ENGINE(Upkeep);

// The number that the engine gives a new group.
QString NewGroup(const QString &dsn)
{
    DirectConnection database;
    EXPECT_TRUE(database.Open(dsn));
    const QString table = Quoted(database.Engine(), u"groups"_s);
    EXPECT_TRUE(database.Run(u"INSERT INTO %1 (name) VALUES ('new')"_s.arg(table)))
        << qPrintable(database.Error());
    const auto rows = database.Rows(u"SELECT MAX(group_id) FROM "_s + table);
    return rows ? rows->first().first() : QString();
}

TEST_P(Upkeep, ACopyArrivesOnEveryEngineAndComesBackTheSame)
{
    // A number that was given once is not given again, though its row is gone.
    Execute("INSERT INTO groups (group_id, name) VALUES (300, 'gone')");
    RunBeside("DELETE FROM groups WHERE group_id = 300");
    const bool forgetsNumbers = Engine() == u"postgresql"_s; // those that a statement named
    const QStringList before = EveryRow();
    for (const char *engine : kEngines) {
        const QString there = SpareDatabase(QString::fromLatin1(engine), u"spare"_s);
        QStringList told;
        const auto copied =
            CopyDatabase({Dsn(), there}, [&](const QString &line) { told << line; });
        ASSERT_TRUE(copied) << engine << ": " << qPrintable(copied.error());
        EXPECT_EQ(told.filter(u"users: 50 rows, checksum "_s).size(), 1) << engine;
        EXPECT_EQ(CheckDatabase(there).failure, std::nullopt) << engine;

        const QString back = Spare(u"back"_s);
        const auto returned = CopyDatabase({there, back}, kQuiet);
        ASSERT_TRUE(returned) << engine << ": " << qPrintable(returned.error());
        EXPECT_EQ(EveryRowOf(back), before) << engine;
        EXPECT_EQ(NewGroup(there), forgetsNumbers ? u"86"_s : u"301"_s) << engine;
        EXPECT_EQ(NewGroup(back), forgetsNumbers ? u"86"_s : u"301"_s) << engine;
    }
}

// Every key and index, in the engine's words.
QStringList KeysAndIndexes(const QString &engine, const QString &dsn)
{
    const QHash<QString, QString> queries {
        {u"sqlite"_s, u"SELECT tbl_name, sql FROM sqlite_master ORDER BY tbl_name, name"_s},
        {u"postgresql"_s,
         u"SELECT i.tablename, i.indexdef, pg_get_constraintdef(c.oid) FROM pg_indexes i "
         "LEFT JOIN pg_constraint c ON c.conname = i.indexname "
         "WHERE i.schemaname = ANY (current_schemas(false)) ORDER BY i.indexname"_s},
        {u"mariadb"_s,
         u"SELECT table_name, index_name, seq_in_index, column_name, non_unique "
         "FROM information_schema.statistics WHERE table_schema = DATABASE() "
         "ORDER BY table_name, index_name, seq_in_index"_s}};
    DirectConnection database;
    EXPECT_TRUE(database.Open(dsn));
    QStringList lines;
    const auto rows = database.Rows(queries.value(engine));
    EXPECT_TRUE(rows) << qPrintable(database.Error());
    for (const QStringList &row : rows.value_or(QList<QStringList>())) {
        lines << row.join(u'|');
    }
    return lines;
}

TEST_P(Upkeep, ACopyHasTheKeysAndIndexesOfItsSource)
{
    const QString there = Spare(u"spare"_s);
    ASSERT_TRUE(CopyDatabase({Dsn(), there}, kQuiet));
    const QStringList wanted = KeysAndIndexes(Engine(), Dsn());
    EXPECT_GT(wanted.size(), 20);
    EXPECT_EQ(KeysAndIndexes(Engine(), there), wanted);
}

TEST_P(Upkeep, ABackupIsRestoredOnEveryEngine)
{
    const QStringList before = EveryRow();
    const auto made = Backup();
    ASSERT_TRUE(made) << qPrintable(made.error());
    EXPECT_EQ(QFile::permissions(file) & QFile::Permissions(0x0077), QFile::Permissions());
    EXPECT_EQ(QDir(files.path()).entryList(QDir::Files), QStringList {u"site.backup"_s});
    for (const char *engine : kEngines) {
        const QString there = SpareDatabase(QString::fromLatin1(engine), u"spare"_s);
        const auto restored = Restore({file, there}, kQuiet);
        ASSERT_TRUE(restored) << engine << ": " << qPrintable(restored.error());
        if (Engine() == QLatin1StringView(engine)) {
            EXPECT_EQ(EveryRowOf(there), before);
        }
    }
}

TEST_P(Upkeep, RefusesADatabaseThatIsNotEmptyOrThatOthersUse)
{
    ASSERT_TRUE(Backup());
    const QStringList before = EveryRow();
    test_data_source::CloseSession();
    EXPECT_THAT(Restore({file, Dsn()}, kQuiet).error().toStdString(),
                testing::HasSubstr("already has a table \"groups\". Nothing was changed."));
    EXPECT_EQ(EveryRowOf(Dsn()), before);

    const QString there = Spare();
    {
        DirectConnection other;
        ASSERT_TRUE(other.Open(there, AbsentFile::IsMade));
        const auto found = other.Rows(
            QString::fromStdString(Translate(other.Engine(), "SELECT * FROM PRESENT_TABLES")));
        ASSERT_TRUE(found);
        const auto refused = Restore({file, there}, kQuiet);
        ASSERT_FALSE(refused);
        // The embedded engine tells of a lock, since it is this very process that has the file open.
        EXPECT_THAT(refused.error().toStdString(),
                    testing::HasSubstr(Engine() == u"sqlite"_s ? "Nobody else may be connected"
                                                               : "Others are connected"));
    }
    EXPECT_TRUE(Restore({file, there}, kQuiet));
    EXPECT_FALSE(CopyDatabase({Dsn(), Dsn()}, kQuiet));
}

TEST_P(Upkeep, ADryRunWritesNothing)
{
    ASSERT_TRUE(Backup());
    const QString there = Spare();
    const auto tried = Restore({file, there, std::nullopt, FillMode::DryRun}, kQuiet);
    EXPECT_TRUE(tried) << qPrintable(tried.error());
    EXPECT_TRUE(CopyDatabase({Dsn(), there, FillMode::DryRun}, kQuiet));
    DirectConnection database;
    ASSERT_EQ(database.Open(there), Engine() != u"sqlite"_s);
    EXPECT_EQ(database.MissingFile().has_value(), Engine() == u"sqlite"_s) << "not even the file";
    EXPECT_TRUE(!database.IsOpen() || !ExistingTable(database));
}

TEST_P(Upkeep, ADatabaseThatDoesNotKeepEveryTextIsRefused)
{
    if (Engine() != u"postgresql"_s) {
        return; // the others' tables have an encoding of their own
    }
    ASSERT_TRUE(Backup());
    const QString there =
        SpareDatabase(Engine(), u"latin"_s, u" ENCODING 'LATIN1' LOCALE 'C' TEMPLATE template0"_s);
    const std::string told = "is in LATIN1. Only one in UTF8 keeps every text";
    for (const FillMode mode : {FillMode::DryRun, FillMode::Run}) {
        EXPECT_THAT(Restore({file, there, std::nullopt, mode}, kQuiet).error().toStdString(),
                    testing::HasSubstr(told));
        EXPECT_THAT(CopyDatabase({Dsn(), there, mode}, kQuiet).error().toStdString(),
                    testing::HasSubstr(told));
    }
    EXPECT_THAT(CreateSchema(there).value_or(QString()).toStdString(), testing::HasSubstr(told));
    DirectConnection database;
    ASSERT_TRUE(database.Open(there));
    EXPECT_EQ(ExistingTable(database), std::nullopt);
}

// The embedded engine keeps in a column of texts whatever another program puts there.
TEST_P(Upkeep, WhatNoOtherEngineWouldKeepIsToldWithItsRow)
{
    if (Engine() != u"sqlite"_s) {
        return;
    }
    for (const char *value : {"x'416e6e61'", "'An' || char(0) || 'na'", "x''"}) {
        Execute(
            (std::string("UPDATE users SET fullname = ") + value + " WHERE user_id = 2").c_str());
        const auto refused = Backup();
        ASSERT_FALSE(refused) << value;
        EXPECT_EQ(
            refused.error(),
            u"The table \"users\" has a value in \"fullname\" that such a column does not hold, "
            "in the row of user_id 2."_s);
        EXPECT_FALSE(QFile::exists(file));
    }
}

// Gives other rows when they are compared than when they were written.
class ChangingRows : public SiteRows
{
public:
    explicit ChangingRows(const Site &about) { site = about; }

    Told<RowBlock> Next(size_t table) override
    {
        RowBlock block(site.tables[table].shape);
        if (site.tables[table].shape.name == u"sites"_s && !given) {
            given = true;
            block.rows = 1;
            const bool added = block.columns[0].AddNumber("7");
            EXPECT_TRUE(added);
            block.columns[1].AddText(isAgain ? "changed" : "first");
            block.columns[2].AddText("10.0.0.1");
        }
        return block;
    }

    Told<void> Rewind() override
    {
        given = false;
        isAgain = true;
        return {};
    }

private:
    bool given = false;
    bool isAgain = false;
};

TEST_P(Upkeep, WhatIsNotTheSameStaysRefusedUntilItIsFilledAgain)
{
    Site site {u"SQLite"_s, NewestSchema(), {}};
    for (const TableShape &shape : TableShapes(NewestSchema())) {
        site.tables.push_back({shape, shape.name == u"sites" ? 1 : 0, 1});
    }
    const QString there = Spare();
    ChangingRows rows(site);
    auto filled = FilledDatabase::Open(there);
    ASSERT_TRUE(filled) << qPrintable(filled.error());
    const auto compared = (*filled)->Fill(rows, kQuiet);
    filled->reset();
    ASSERT_FALSE(compared);
    EXPECT_EQ(compared.error(),
              u"The table \"sites\" has \"first\" in \"sitename\" of the row of 7, and its source "
              "has \"changed\". The database is not whole, and no program works with it."_s);
    const QString notWhole = *RefusedSchemaText(kIncompleteSchema);
    EXPECT_EQ(SayingsOf(there), QStringList({notWhole, notWhole, notWhole, notWhole}));
    EXPECT_EQ(MakeBackup({there, file}, kQuiet).error(), notWhole);

    const auto copied = CopyDatabase({Dsn(), there}, kQuiet);
    ASSERT_TRUE(copied) << qPrintable(copied.error());
    EXPECT_EQ(SayingsOf(there), QStringList({QString(), QString()}));
}

TEST_P(Upkeep, AnOlderSiteStaysOfItsVersion)
{
    QStringList removals;
    for (const char *table :
         {"service_counters", "service_gateways", "credit_use", "schema_version"}) {
        removals << u"DROP TABLE "_s + QLatin1StringView(table);
    }
    const QString older = Spare(u"older"_s);
    ASSERT_TRUE(CopyDatabase({Dsn(), older}, kQuiet));
    RunOn(older, removals);
    const QString there = Spare();
    QStringList told;
    const auto copied = CopyDatabase({older, there}, [&](const QString &line) { told << line; });
    ASSERT_TRUE(copied) << qPrintable(copied.error());
    EXPECT_EQ(told.last(), OlderSchemaText(0, there));
    EXPECT_TRUE(NobodyNeedsOlderTables(there));
    if (Engine() != u"sqlite"_s) { // it tells of other processes only
        DirectConnection other;
        ASSERT_TRUE(other.Open(there));
        EXPECT_THAT(NobodyNeedsOlderTables(there).error().toStdString(),
                    testing::HasSubstr("Others are connected"));
    }
    const UpgradeOutcome upgraded = UpgradeSchema(there, UpgradeMode::Run, kQuiet);
    EXPECT_EQ(upgraded.problem, QString());
    DirectConnection present;
    ASSERT_TRUE(present.Open(there));
    EXPECT_TRUE(NobodyNeedsOlderTables(there)); // nothing is left to upgrade
    EXPECT_EQ(CheckDatabase(there).failure, std::nullopt);
}

// Two rows of which each transaction moves an amount from one to the other.
TEST_P(Upkeep, ABackupIsOfOneMomentWhileOthersWrite)
{
    RunBeside("DELETE FROM billing");
    RunBeside("INSERT INTO billing (bill_id, mode, data) VALUES (1, 2, 1000)");
    RunBeside("INSERT INTO credit_use (bill_id, day, data) VALUES (7, #2026/01/01#, 0)");
    std::atomic<int> moves {0};
    std::jthread writer([&](const std::stop_token &end) {
        DirectConnection database;
        bool isGood = database.Open(Dsn());
        const QString day = u"UPDATE credit_use SET data = data + 1 WHERE bill_id = 7"_s;
        while (isGood && !end.stop_requested()) {
            isGood = database.Run(QString::fromLatin1(database.Engine().begin))
                && database.Run(u"UPDATE billing SET data = data - 1 WHERE bill_id = 1"_s)
                && database.Run(day) && database.Run(u"COMMIT"_s);
            ++moves;
        }
        EXPECT_TRUE(isGood) << qPrintable(database.Error());
    });
    ASSERT_TRUE(IsTrueInTime([&] { return moves > 0; }));
    const int begun = moves;
    const auto made = MakeBackup({Dsn(), file}, [&](const QString &line) {
        // Between billing, which is read first, and the other.
        if (line.startsWith(u"billing"_s)) {
            const int sofar = moves;
            EXPECT_TRUE(IsTrueInTime([&] { return moves > sofar + 3; }));
        }
    });
    writer.request_stop();
    writer.join();
    ASSERT_TRUE(made) << qPrintable(made.error());
    EXPECT_GT(moves, begun + 3);
    const QString there = Spare();
    ASSERT_TRUE(Restore({file, there}, kQuiet));
    test_data_source::CloseSession();
    test_data_source::OpenSession(there);
    EXPECT_EQ(RowsOf("SELECT b.data + c.data FROM billing b INNER JOIN credit_use c "
                     "ON c.bill_id = 7 WHERE b.bill_id = 1"),
              QStringList {Engine() == u"sqlite"_s ? u"1000.0"_s : u"1000"_s});
    test_data_source::CloseSession();
}

TEST(UpkeepOfTheEmbeddedEngine, NamesTheProcessesThatHaveTheFileOpen)
{
    const auto site = u"own"_s;
    test_data_source::RenewSqlite(site);
    const QString there = SpareDatabase(u"sqlite"_s, u"spare"_s);
    const QString path = test_data_source::SqliteFile(there);
    RunOn(there, {u"SELECT 1"_s});
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    file.close();
    QProcess other;
    other.start(u"bash"_s, {u"-c"_s, u"exec 3<%1; echo open; read -r"_s.arg(path)});
    ASSERT_TRUE(other.waitForReadyRead());
    const auto refused = CopyDatabase({site, there}, kQuiet);
    ASSERT_FALSE(refused);
    EXPECT_TRUE(refused.error().endsWith(u"process %1 (bash)"_s.arg(other.processId())))
        << qPrintable(refused.error());
    other.closeWriteChannel();
    ASSERT_TRUE(other.waitForFinished());
    EXPECT_TRUE(CopyDatabase({site, there}, kQuiet));
}

// What a server refuses is told by the name of its table.
TEST(UpkeepOfTheEmbeddedEngine, RefusesWhatDoesNotFitAColumn)
{
    const std::pair<QString, QString> cases[] = {
        {u"INSERT INTO users (username, mode) VALUES ('a', 'many')"_s,
         u"The table \"users\" has a value in \"mode\""_s},
        {u"INSERT INTO billing (mode, data) VALUES (2, 'much')"_s,
         u"The table \"billing\" has a value in \"data\""_s},
        {u"INSERT INTO users (username) VALUES (printf('%2000s', 'x'))"_s,
         u"The table \"users\" has a value in \"username\""_s},
        {u"INSERT INTO users (username) VALUES (printf('%300s', 'x'))"_s,
         u"The table \"users\" does not take the rows from 1 on"_s},
        {u"INSERT INTO traffic_use (current_time) VALUES ('soon')"_s,
         u"The table \"traffic_use\" does not take the rows from 1 on"_s}};
    for (const auto &[statement, problem] : cases) {
        const auto site = u"own"_s;
        test_data_source::RenewSqlite(site);
        RunOn(site, {QString(statement).replace(u"current_time"_s, u"\"current_time\""_s)});
        for (const auto &engine : {u"postgresql"_s, u"mariadb"_s}) {
            const auto copied = CopyDatabase({site, SpareDatabase(engine, u"spare"_s)}, kQuiet);
            ASSERT_FALSE(copied) << qPrintable(statement);
            EXPECT_TRUE(copied.error().contains(problem)) << qPrintable(copied.error());
        }
    }
}

} // namespace
