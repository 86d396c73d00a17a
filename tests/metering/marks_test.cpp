// Rows that say something else than what holds are brought up to it.
#include "metering/new_period.h"
#include "metering_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class Marks : public MeteringFixture
{
protected:
    static MarksWritten WriteAt(const QTime &time = QTime(12, 0))
    {
        const auto read = ReadStandings({{2026, 11, 21}, time}, kPrices, {}); // a Saturday
        const auto written = read.and_then(WriteMarks);
        EXPECT_TRUE(written) << (written ? "" : qPrintable(written.error().text));
        return written.value_or(MarksWritten());
    }

    static QStringList Marked()
    {
        return Rows("SELECT blocked, blockreason, timeblocked FROM users WHERE user_id = 1");
    }
};

} // namespace

TB_ON_EVERY_ENGINE(Marks);

TEST_P(Marks, FollowALimitThatTheRowsAloneRaiseOrLower)
{
    Set(kAnna, "mode = 1, traflim = 10, trafperiod = 2");
    CountFor(kAnna, {5});
    EXPECT_TRUE(WriteAt().trafficUsedUp.isEmpty());
    Set(kAnna, "traflim = 5");
    EXPECT_EQ(WriteAt().trafficUsedUp, QList {kAnna});
    EXPECT_EQ(Marked(), QStringList {u"1|1|0"_s});
    EXPECT_TRUE(WriteAt().trafficUsedUp.isEmpty()) << "it is marked already";
    Set(kAnna, "traflim = 6");
    EXPECT_EQ(WriteAt().lifted, QList {kAnna});
    EXPECT_EQ(Marked(), QStringList {u"0|1|0"_s});
}

TEST_P(Marks, FollowTimeAndCredits)
{
    Set(kAnna, "mode = 4, timelim = 0, timeperiod = 2");
    Set(kBert, "mode = 2");
    const MarksWritten written = WriteAt();
    EXPECT_EQ(written.timeUsedUp, QList {kAnna});
    EXPECT_EQ(written.trafficUsedUp, QList {kBert});
    Run("INSERT INTO billing (mode, object_id, unlimited) VALUES (2, 2, 1)");
    EXPECT_EQ(WriteAt().lifted, QList {kBert});
}

TEST_P(Marks, FollowAGroupsLimit)
{
    SetGroup("mode = 1, traflim = 0, trafperiod = 2");
    EXPECT_EQ(WriteAt().groupsUsedUp, QList {kEverybodyGroup});
    EXPECT_TRUE(WriteAt().groupsUsedUp.isEmpty());
    SetGroup("traflim = 1");
    EXPECT_EQ(WriteAt().groupsLifted, QList {kEverybodyGroup});
    EXPECT_EQ(Rows("SELECT blocked, blockreason FROM groups WHERE group_id = 80"),
              QStringList {u"0|1"_s});
}

TEST_P(Marks, LeaveTheAdministratorsBlocks)
{
    Set(kAnna, "mode = 1, traflim = 0, trafperiod = 2, blocked = true, blockreason = 3");
    EXPECT_TRUE(WriteAt().trafficUsedUp.isEmpty());
    Set(kAnna, "mode = 0");
    EXPECT_TRUE(WriteAt().lifted.isEmpty());
    EXPECT_EQ(Marked(), QStringList {u"1|3|0"_s});
}

// The users list shows who is outside of the allowed time by timeaccess and timeblocked: they differ.
TEST_P(Marks, SayWhetherTheMomentLiesInARange)
{
    Run("INSERT INTO time_blocked (user_id, dayofweek, timestart, timestop) "
        "VALUES (1, 6, '08.30', '12:00:00')");
    struct Case
    {
        const char *columns;
        QTime time;
        bool mark;
    };
    for (const Case &each : {Case {"timeaccess = true", QTime(9, 0), true},
                             Case {"timeaccess = true", QTime(12, 0), false},
                             Case {"timeaccess = false", QTime(9, 0), true},
                             Case {"timeaccess = false", QTime(8, 29, 59), false}}) {
        Set(kAnna, each.columns);
        WriteAt(each.time);
        EXPECT_EQ(Marked(), QStringList {each.mark ? u"0|0|1"_s : u"0|0|0"_s}) << each.columns;
        EXPECT_EQ(WriteAt(each.time).timeMarks, 0);
    }
    Run("DELETE FROM time_blocked");
    Set(kAnna, "timeaccess = true");
    EXPECT_EQ(WriteAt().timeMarks, 1) << "without ranges nobody is outside of them";
}
