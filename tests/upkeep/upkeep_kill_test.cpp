// The tool killed at any moment: its source is never harmed, and what it was making is whole or refused by
// name. TB_LONG_RUN=1 has a hundred kills of each kind instead of a few.
#include "db/demo_data.h"
#include "db/direct_connection.h"
#include "db/schema.h"
#include "db/schema_version.h"
#include "support/core/engine_fixture.h"
#include "support/core/test_data_source.h"
#include "upkeep/backup_rows.h"
#include "upkeep/filled_database.h"
#include "upkeep/restore.h"
#include "upkeep/spare_database.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>

#include <ctime>

using namespace Qt::StringLiterals;

namespace {

const auto kQuiet = [](const QString &) {};

int Kills()
{
    return qEnvironmentVariableIntValue("TB_LONG_RUN") != 0 ? 100 : 6;
}

void RunTool(const QStringList &arguments, std::optional<qint64> killedAfter)
{
    QProcess tool;
    tool.start(QStringLiteral(TB_DATABASE_TOOL), arguments);
    ASSERT_TRUE(tool.waitForStarted());
    const bool hasEnded = killedAfter && tool.waitForFinished(int(*killedAfter));
    if (killedAfter && !hasEnded) {
        tool.kill();
    }
    ASSERT_TRUE(hasEnded || tool.waitForFinished(60'000));
    if (!killedAfter) {
        EXPECT_EQ(tool.exitCode(), 0) << tool.readAllStandardError().constData();
    }
}

// How long the tool takes when it is left alone, in milliseconds.
qint64 TimeOf(const QStringList &arguments)
{
    QElapsedTimer timer;
    timer.start();
    RunTool(arguments, std::nullopt);
    return timer.elapsed();
}

// For whoever reads the log of a long run.
void TellCount(const QString &what, int count)
{
    qInfo("of %d kills %d %s", Kills(), count, qPrintable(what));
}

// A server may go on for a moment with what the tool had sent before it was killed.
void AwaitNobody(const QString &dsn)
{
    const QDeadlineTimer patience(20'000);
    bool isFree = false;
    while (!isFree && !patience.hasExpired()) {
        const auto opened = FilledDatabase::Open(dsn);
        isFree = opened || !opened.error().contains(u"connected"_s);
    }
    EXPECT_TRUE(isFree);
}

class Killed : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        ASSERT_EQ(FillWithDemoData(Dsn(), {60, 5, 20}, kQuiet), std::nullopt);
        before = EveryRowOf(Dsn());
    }

    // The command fills `there`, which is empty again before each run.
    void ExpectWholeOrRefused(const QStringList &command, const QString &there)
    {
        const qint64 whole = TimeOf(command);
        int refused = 0;
        for (int run = 0; run < Kills(); ++run) {
            ASSERT_EQ(SpareDatabase(Engine(), u"spare"_s), there);
            RunTool(command, chance.bounded(whole + whole / 4));
            AwaitNobody(there);
            if (!IsWhole(there)) {
                ++refused;
                const auto again = CopyDatabase({Dsn(), there}, kQuiet);
                ASSERT_TRUE(again) << qPrintable(again.error());
            }
            EXPECT_EQ(EveryRowOf(there), before);
        }
        EXPECT_GT(refused, 0);
        TellCount(u"were not whole and said so"_s, refused);
        EXPECT_EQ(EveryRowOf(Dsn()), before);
    }

    // False for a database that is empty or says itself that it is not whole.
    static bool IsWhole(const QString &dsn)
    {
        DirectConnection database;
        EXPECT_TRUE(database.Open(dsn));
        const auto version = SchemaVersionOf(database);
        EXPECT_TRUE(version);
        return ExistingTable(database) && AgeOf(version.value_or(0)) == SchemaAge::Current;
    }

    QStringList before;
    QTemporaryDir files;
    QRandomGenerator chance {20};
};
TB_ON_EVERY_ENGINE(Killed);

TEST_P(Killed, ABackupIsThereAsAWholeOrNotAtAll)
{
    const auto command = [&](const QString &file) {
        return QStringList {u"backup"_s, file, u"--dsn"_s, Dsn(), u"--no-settings"_s};
    };
    const qint64 whole = TimeOf(command(files.filePath(u"first"_s)));
    int made = 0;
    for (int run = 0; run < Kills(); ++run) {
        const QString file = files.filePath(QString::number(run));
        RunTool(command(file), chance.bounded(whole + whole / 4));
        if (QFile::exists(file)) {
            ++made;
            EXPECT_TRUE(BackupRows::Open(file));
        }
    }
    EXPECT_LT(made, Kills());
    TellCount(u"had made the backup"_s, made);
    EXPECT_EQ(EveryRowOf(Dsn()), before);
}

TEST_P(Killed, ACopyIsWholeOrRefused)
{
    const QString there = SpareDatabase(Engine(), u"spare"_s);
    ExpectWholeOrRefused({u"copy"_s, u"--from"_s, Dsn(), u"--to"_s, there}, there);
}

TEST_P(Killed, WhatIsRestoredIsWholeOrRefused)
{
    const QString there = SpareDatabase(Engine(), u"spare"_s);
    const QString file = files.filePath(u"site"_s);
    RunTool({u"backup"_s, file, u"--dsn"_s, Dsn(), u"--no-settings"_s}, std::nullopt);
    ExpectWholeOrRefused({u"restore"_s, file, u"--dsn"_s, there}, there);
    EXPECT_TRUE(BackupRows::Open(file));
}

TEST_P(Killed, AnUpgradeIsCompletedByTheNextOne)
{
    const QString there = SpareDatabase(Engine(), u"spare"_s);
    ASSERT_TRUE(CopyDatabase({Dsn(), there}, kQuiet));
    const QStringList command {u"upgrade"_s, u"--dsn"_s, there};
    const auto makeOlder = [&] {
        QStringList removals;
        if (Engine() == u"sqlite"_s) { // the others drop an index with its column
            removals << u"DROP INDEX groups_name_key"_s;
        }
        const QString groups = Engine() == u"mariadb"_s ? u"`groups`"_s : u"\"groups\""_s;
        removals << u"ALTER TABLE %1 DROP COLUMN name_key"_s.arg(groups);
        for (const char *table :
             {"service_counters", "service_gateways", "credit_use", "schema_version"}) {
            removals << u"DROP TABLE IF EXISTS "_s + QLatin1StringView(table);
        }
        RunOn(there, removals);
        AwaitNobody(there);
    };
    makeOlder();
    const qint64 whole = TimeOf(command);
    for (int run = 0; run < Kills(); ++run) {
        makeOlder();
        RunTool(command, chance.bounded(whole + whole / 4));
        AwaitNobody(there);
        RunTool(command, std::nullopt);
        EXPECT_EQ(EveryRowOf(there), before);
        AwaitNobody(there);
    }
}

} // namespace
