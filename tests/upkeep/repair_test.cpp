// What "check" finds is mended without loss, after a backup, and told row by row.
#include "upkeep/repair.h"

#include "db/check.h"
#include "db/demo_data.h"
#include "db/direct_connection.h"
#include "support/core/engine_fixture.h"
#include "support/core/test_data_source.h"
#include "upkeep/restore.h"
#include "upkeep/spare_database.h"

#include <QFile>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

const auto kQuiet = [](const QString &) {};

// Each with what is told of it when it is mended.
const std::pair<const char *, QString> kMendable[] = {
    {"INSERT INTO users (user_id, username, group_id) VALUES (900, 'nowhere %2', 0)",
     u"User 900 (nowhere %2) belonged to the group 0, which does not exist: now to \"Everybody\" (80)."_s},
    {"INSERT INTO users (user_id, username, group_id) VALUES (901, 'lost', 777)",
     u"User 901 (lost) belonged to the group 777, which does not exist: now to \"Everybody\" (80)."_s},
    {"INSERT INTO traffic_use (traf_id, user_id, period, current_time, data, senddata, blocked) "
     "VALUES (9000, 900, 1, #2026/11/01#, 1.5, 0.25, 0)",
     {}},
    {"INSERT INTO traffic_use (traf_id, user_id, period, current_time, data, senddata, blocked) "
     "VALUES (9001, 900, 1, #2026/11/01#, 2.5, 0.5, 1)",
     u"Traffic record 9001 of user 900 on 2026-11-01 (received 2.5, sent 0.5) is added to record "
     "9000 of the same day."_s},
    {"INSERT INTO traffic_use (traf_id, user_id, period, current_time, data, senddata, blocked) "
     "VALUES (9002, 900, 1, #2026/11/01#, 4, 1, 0)",
     {}},
    {"INSERT INTO billing (bill_id, mode, object_id, trafid) VALUES (900, 1, 900, 9001)", {}},
    {"INSERT INTO traffic_use (traf_id, group_id, period, current_time, data, senddata) "
     "VALUES (9003, 80, 0, #2026/11/01#, 64, 1.5)",
     {}},
    {"INSERT INTO traffic_use (traf_id, group_id, period, current_time, data, senddata) "
     "VALUES (9004, 80, 0, #2026/11/01#, 0.5, 0.25)",
     u"Traffic record 9004 of group 80 on 2026-11-01 (received 0.5, sent 0.25) is added to record "
     "9003 of the same day."_s},
    {"INSERT INTO time_use (time_id, user_id, period, current_time, data) "
     "VALUES (9000, 900, 0, #2026/11/01#, 1.25)",
     {}},
    {"INSERT INTO time_use (time_id, user_id, period, current_time, data) "
     "VALUES (9001, 900, 0, #2026/11/01#, 0.5)",
     u"Time record 9001 of user 900 on 2026-11-01 (0.5 hours) is added to record 9000 of the same "
     "day."_s},
    {"INSERT INTO billing (bill_id, mode, object_id, trafid) VALUES (901, 1, 900, NULL)",
     u"Credit 901 named no traffic record: the service finds it now (0)."_s},
    {"INSERT INTO billing (bill_id, mode, object_id, time_id) VALUES (902, 4, 900, NULL)",
     u"Credit 902 named no time record: the service finds it now (0)."_s},
    {"INSERT INTO Port_blocked (pb_id, user_id, port_id) VALUES (900, 900, 1)", {}},
    {"INSERT INTO Port_blocked (pb_id, user_id, port_id) VALUES (901, 900, 1)",
     u"Port 1 was denied to user 900 more than once: record 901 is removed."_s},
    // Records of users that name a group, too, are none of the group's.
    {"INSERT INTO traffic_use (traf_id, user_id, group_id, period, current_time, data) "
     "VALUES (9005, 901, 80, 0, #2026/11/01#, 3.5)",
     {}},
    {"INSERT INTO Port_blocked (pb_id, group_id, port_id) VALUES (902, 80, 1)", {}},
    {"INSERT INTO Port_blocked (pb_id, group_id, port_id) VALUES (903, 80, 1)",
     u"Port 1 was denied to group 80 more than once: record 903 is removed."_s},
    {"INSERT INTO groups (group_id, name) VALUES (700, 'EVERYBODY ')",
     u"Group 700, called \"EVERYBODY \" as another one is, is named \"EVERYBODY (2)\"."_s},
    {"INSERT INTO groups (group_id, name) VALUES (701, 'keyless')",
     u"Group 701 gets the key of its name."_s},
    {"INSERT INTO groups (group_id, name, name_key) VALUES (702, 'renamed', 'that of another name')",
     u"Group 702 gets the key of its name."_s},
    {"INSERT INTO schema_version (version) VALUES (0)",
     u"The version 0 of the tables, which is not the last one, is removed."_s}};

class Repairs : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        for (const auto &[statement, told] : kMendable) {
            RunBeside(statement);
        }
        wish = {Dsn(), files.filePath(u"before"_s)};
    }

    QTemporaryDir files;
    BackupWish wish;
};
TB_ON_EVERY_ENGINE(Repairs);

TEST_P(Repairs, MendWithoutLossAndTellEachRow)
{
    const QStringList before = EveryRowOf(Dsn());
    QStringList told;
    const auto mended = Repair(wish, RepairMode::Run, [&](const QString &line) { told << line; });
    ASSERT_TRUE(mended) << qPrintable(mended.error());
    EXPECT_EQ(*mended, 14);
    EXPECT_EQ(told.size(), 15); // with the line of the backup
    for (const auto &[statement, line] : kMendable) {
        EXPECT_TRUE(line.isEmpty() || told.contains(line))
            << qPrintable(line) << "\n in " << qPrintable(told.join(u'\n'));
    }
    const CheckResult result = CheckDatabase(Dsn());
    EXPECT_EQ(result.failure, std::nullopt);
    // What asks for a decision is left.
    EXPECT_EQ(result.findings.filter(u"open credits are of a kind"_s), result.findings);

    test_data_source::OpenSession(Dsn());
    EXPECT_EQ(RowsOf("SELECT traf_id, blocked FROM traffic_use WHERE user_id = 900 "
                     "AND data = 8 AND senddata = 1.75"),
              QStringList {u"9000|1"_s});
    EXPECT_EQ(RowsOf("SELECT COUNT(*) FROM traffic_use WHERE user_id = 900"), QStringList {u"1"_s});
    EXPECT_EQ(
        RowsOf(
            "SELECT traf_id, data, senddata FROM traffic_use WHERE group_id = 80 AND user_id = 0"),
        QStringList {u"9003|64.5|1.75"_s});
    EXPECT_EQ(RowsOf("SELECT data FROM traffic_use WHERE traf_id = 9005"), QStringList {u"3.5"_s});
    EXPECT_EQ(RowsOf("SELECT time_id FROM time_use WHERE user_id = 900 AND data = 1.75"),
              QStringList {u"9000"_s});
    EXPECT_EQ(RowsOf("SELECT trafid FROM billing WHERE bill_id = 900"), QStringList {u"9000"_s});
    test_data_source::CloseSession();

    // Nothing is left to do, and no second backup is made.
    EXPECT_EQ(Repair(wish, RepairMode::Run, kQuiet), 0);
    const QString there = SpareDatabase(Engine(), u"spare"_s);
    // The backup holds the last version of the tables only.
    const auto restored = Restore({wish.file, there}, kQuiet);
    ASSERT_TRUE(restored) << qPrintable(restored.error());
    EXPECT_EQ(EveryRowOf(there), before.filter(QRegularExpression(u"^(?!schema_version: 0)"_s)));
}

TEST_P(Repairs, OfADryRunAreOnlyTold)
{
    const QStringList before = EveryRow();
    QStringList told;
    EXPECT_EQ(Repair(wish, RepairMode::DryRun, [&](const QString &line) { told << line; }), 14);
    EXPECT_EQ(told.size(), 14);
    EXPECT_EQ(EveryRow(), before);
    EXPECT_FALSE(QFile::exists(wish.file));
}

TEST_P(Repairs, AreNotMadeWithoutABackupOrWhileOthersAreThere)
{
    const QStringList before = EveryRow(); // the session stays open
    const auto refused = Repair(wish, RepairMode::Run, kQuiet);
    ASSERT_FALSE(refused);
    EXPECT_THAT(refused.error().toStdString(),
                testing::ContainsRegex(Engine() == u"sqlite"_s ? "locked" : "End them first"));
    EXPECT_EQ(EveryRowOf(Dsn()), before);
    // The embedded engine tells of connections within one process only by its lock, after the backup.
    EXPECT_EQ(QFile::exists(wish.file), Engine() == u"sqlite"_s);
    test_data_source::CloseSession();
    QFile kept(wish.file);
    ASSERT_TRUE(kept.open(QIODevice::WriteOnly));
    EXPECT_THAT(Repair(wish, RepairMode::Run, kQuiet).error().toStdString(),
                testing::HasSubstr("is there already"));
    EXPECT_EQ(EveryRowOf(Dsn()), before);
}

TEST_P(Repairs, MakeEverybodyAgain)
{
    RunBeside("DELETE FROM groups WHERE group_id = 80");
    test_data_source::CloseSession();
    const auto mended = Repair(wish, RepairMode::Run, kQuiet);
    ASSERT_TRUE(mended) << qPrintable(mended.error());
    EXPECT_EQ(*mended, 16); // its row and its key; the group that was called so alone gives way
    EXPECT_EQ(CheckDatabase(Dsn()).findings.filter(u"group"_s), QStringList());
}

// The guide names the cause of everything that is found.
TEST(Findings, StandInTheGuideWithTheirCause)
{
    QFile guide(QStringLiteral(TB_SOURCE_DIR "/docs/database.md"));
    ASSERT_TRUE(guide.open(QIODevice::ReadOnly));
    const QString text = QString::fromUtf8(guide.readAll());
    for (const QString &sentence : CheckSentences()) {
        EXPECT_TRUE(text.contains(u"| "_s + sentence + u" | "_s)) << qPrintable(sentence);
    }
}

} // namespace
