#include "admin/purge.h"

#include "db/direct_connection.h"
#include "support/core/engine_fixture.h"
#include "support/core/statement_hook.h"
#include "support/core/statement_recorder.h"

#include <QDeadlineTimer>

#include <atomic>
#include <chrono>
#include <thread>

using namespace Qt::StringLiterals;

using Keep = PurgeChoice::Keep;

namespace {

QString Described(const std::vector<PurgeStep> &steps)
{
    QStringList lines;
    for (const PurgeStep &step : steps) {
        const QString day = step.day
            ? u" %1-%2-%3"_s.arg(step.day->year).arg(step.day->month).arg(step.day->day)
            : QString();
        lines << QString::fromLatin1(step.statement) + day;
    }
    return lines.join(u'\n');
}

} // namespace

TEST(Purge, TheStatementsOfEachChoiceInOrder)
{
    const QDate today(2026, 3, 6);
    EXPECT_EQ(Described(PurgeSteps({Keep::Nothing, true, {}, {}}, today)),
              u"DELETE FROM users\nDELETE FROM traffic_use\nDELETE FROM time_use\n"
              "DELETE FROM billing\nDELETE FROM sites\nDELETE FROM siteaccess"_s);
    EXPECT_FALSE(Described(PurgeSteps({Keep::Nothing, false, {}, {}}, today)).contains(u"users"_s));
    EXPECT_EQ(Described(PurgeSteps({Keep::Custom, true, {2026, 1, 5}, {2026, 2, 7}}, today)),
              u"DELETE FROM traffic_use WHERE current_time < (?) 2026-1-5\n"
              "DELETE FROM time_use WHERE current_time < (?) 2026-1-5\n"
              "DELETE FROM billing WHERE date < (?) 2026-1-5\n"
              "DELETE FROM traffic_use WHERE current_time > (?) 2026-2-7\n"
              "DELETE FROM time_use WHERE current_time > (?) 2026-2-7\n"
              "DELETE FROM billing WHERE date > (?) 2026-2-7"_s);
}

TEST(Purge, TheFirstDayKeptIsSimpleArithmetic)
{
    struct Case
    {
        QDate today;
        Keep keep;
        Day first;
    };
    const Case cases[] = {
        {{2026, 3, 3}, Keep::Today, {2026, 3, 3}},
        {{2026, 3, 3}, Keep::LastWeek, {2026, 2, 27}},
        {{2026, 3, 6}, Keep::LastWeek, {2026, 2, 30}}, // kept: bound as it stands
        {{2026, 1, 3}, Keep::LastWeek, {2026, 12, 27}}, // kept: no year is borrowed
        {{2026, 1, 31}, Keep::LastMonth, {2026, 12, 31}},
        {{2026, 5, 31}, Keep::LastMonth, {2026, 4, 31}},
        {{2028, 3, 29}, Keep::LastMonth, {2028, 2, 29}},
    };
    for (const auto &[today, keep, first] : cases) {
        for (const PurgeStep &step : PurgeSteps({keep, false, {}, {}}, today)) {
            EXPECT_EQ(step.day, first) << qPrintable(today.toString()) << step.statement;
        }
    }
}

class PurgeTest : public EngineFixture
{
protected:
    // A usage record and a credit on each of these days, the credits in the evening.
    void Fill(std::initializer_list<Day> days)
    {
        for (const Day day : days) {
            Execute("INSERT INTO traffic_use (user_id, period, current_time, data) VALUES "
                    "(1, 0, (?), 1)",
                    day);
            Execute("INSERT INTO time_use (user_id, period, current_time, data) VALUES "
                    "(1, 0, (?), 1)",
                    day);
            const QString evening = DayText(day) + u" 23:30:00"_s;
            Execute("INSERT INTO billing (mode, object_id, date) VALUES (2, 1, (?))", evening);
        }
    }

    static QString DayText(Day day) { return ExistingDate(day).toString(Qt::ISODate); }

    static void Purge(const PurgeChoice &choice, QDate today)
    {
        for (const PurgeStep &step : PurgeSteps(choice, today)) {
            EXPECT_TRUE(RunPurgeStep(step).outcome.IsDone()) << step.statement;
        }
    }
};

TB_ON_EVERY_ENGINE(PurgeTest);

TEST_P(PurgeTest, ACustomRangeOfOneDayKeepsExactlyThatDay)
{
    Fill({{2026, 3, 1}, {2026, 3, 2}, {2026, 3, 3}});
    Purge({Keep::Custom, false, {2026, 3, 2}, {2026, 3, 2}}, {2026, 3, 9});
    EXPECT_EQ(RowsOf("SELECT current_time FROM traffic_use"), QStringList {u"2026-03-02"_s});
    EXPECT_EQ(RowsOf("SELECT current_time FROM time_use"), QStringList {u"2026-03-02"_s});
    ASSERT_EQ(RowsOf("SELECT date FROM billing").size(), 1);
    EXPECT_TRUE(RowsOf("SELECT date FROM billing")[0].startsWith(u"2026-03-02 23:30"_s));
}

TEST_P(PurgeTest, KeepsFromTheComputedDayOn)
{
    struct Case
    {
        QDate today;
        Keep keep;
        Day lastGone;
        Day firstKept;
    };
    const Case cases[] = {
        {{2026, 3, 3}, Keep::Today, {2026, 3, 2}, {2026, 3, 3}},
        {{2026, 3, 3}, Keep::LastWeek, {2026, 2, 26}, {2026, 2, 27}},
        {{2026, 3, 4}, Keep::LastWeek, {2026, 2, 27}, {2026, 2, 28}},
        {{2026, 3, 6}, Keep::LastWeek, {2026, 2, 28}, {2026, 3, 1}}, // 30 February
        {{2028, 3, 5}, Keep::LastWeek, {2028, 2, 28}, {2028, 2, 29}},
        {{2028, 3, 6}, Keep::LastWeek, {2028, 2, 29}, {2028, 3, 1}},
        {{2026, 3, 7}, Keep::LastWeek, {2026, 2, 28}, {2026, 3, 1}},
        {{2026, 1, 6},
         Keep::LastWeek,
         {2026, 12, 29},
         {2026, 12, 30}}, // kept: this year's December
        {{2026, 1, 7}, Keep::LastWeek, {2025, 12, 31}, {2026, 1, 1}},
        {{2026, 1, 15}, Keep::LastMonth, {2026, 12, 14}, {2026, 12, 15}}, // kept: the same
        {{2026, 5, 31}, Keep::LastMonth, {2026, 4, 30}, {2026, 5, 1}}, // 31 April
        {{2026, 3, 29}, Keep::LastMonth, {2026, 2, 28}, {2026, 3, 1}}, // 29 February
        {{2028, 3, 29}, Keep::LastMonth, {2028, 2, 28}, {2028, 2, 29}},
    };
    for (const auto &[today, keep, lastGone, firstKept] : cases) {
        Purge({Keep::Nothing, false, {}, {}}, today);
        Fill({lastGone, firstKept});
        Purge({keep, false, {}, {}}, today);
        const QStringList left {DayText(firstKept)};
        EXPECT_EQ(RowsOf("SELECT current_time FROM traffic_use"), left) << qPrintable(left[0]);
        EXPECT_EQ(RowsOf("SELECT current_time FROM time_use"), left) << qPrintable(left[0]);
        const QStringList billing = RowsOf("SELECT date FROM billing");
        ASSERT_EQ(billing.size(), 1) << qPrintable(left[0]);
        EXPECT_TRUE(billing[0].startsWith(left[0])) << qPrintable(billing[0]);
    }
}

TEST_P(PurgeTest, WhatWouldGoIsWhatGoes)
{
    Fill({{2026, 1, 1}, {2026, 3, 2}, {2026, 3, 3}, {2026, 3, 4}});
    const auto steps = PurgeSteps({Keep::Custom, false, {2026, 3, 2}, {2026, 3, 3}}, {2026, 3, 9});
    const auto counted = CountPurge(steps);
    ASSERT_TRUE(counted);
    const auto counts = RowsByTable(*counted);
    ASSERT_EQ(counts.size(), 3U);
    for (const PurgeCount &count : counts) {
        EXPECT_EQ(count.rows, 2) << qPrintable(count.table);
    }
    for (const PurgeStep &step : *counted) {
        const PurgeOutcome outcome = RunPurgeStep(step);
        EXPECT_TRUE(outcome.outcome.IsDone());
        EXPECT_EQ(outcome.removed, step.rows) << step.statement;
    }
}

TEST_P(PurgeTest, ACountThatFailedIsNotNone)
{
    const auto steps = PurgeSteps({Keep::Today, false, {}, {}}, {2026, 3, 9});
    EXPECT_EQ(UntoldFailures(Dsn(), [&steps] { return CountPurge(steps).has_value(); }),
              QStringList());
}

TEST_P(PurgeTest, AFailedStepIsToldAndStopsNone)
{
    Fill({{2026, 1, 1}});
    Execute("ALTER TABLE time_use RENAME TO time_use_away");
    QStringList outcomes;
    for (const PurgeStep &step : PurgeSteps({Keep::Today, false, {}, {}}, {2026, 3, 9})) {
        const auto [outcome, removed] = RunPurgeStep(step);
        outcomes << (outcome.IsDone() ? QString::number(removed) : outcome.failures[0].statement);
    }
    Execute("ALTER TABLE time_use_away RENAME TO time_use");
    EXPECT_EQ(outcomes,
              (QStringList {u"1"_s, u"DELETE FROM time_use WHERE current_time < (?)"_s, u"1"_s}));
    EXPECT_EQ(RowsOf("SELECT current_time FROM time_use").size(), 1);
}

class PurgeLostTest : public PurgeTest
{ };
TB_ON_EVERY_SERVER(PurgeLostTest);

// The step waits for another program's lock when the server ends its connection; whether it was done
// is what that program then leaves.
TEST_P(PurgeLostTest, AStepWhoseEndWasNotHeardOfIsCountedAgain)
{
    for (const bool isDone : {false, true}) {
        Fill({{2026, 1, 1}, {2026, 1, 2}});
        const auto counted = CountPurge(PurgeSteps({Keep::Nothing, false, {}, {}}, {2026, 3, 9}));
        ASSERT_TRUE(counted);
        DirectConnection other;
        ASSERT_TRUE(other.Open(Dsn()) && other.Run(u"BEGIN"_s)
                    && other.Run(u"UPDATE traffic_use SET data = 2"_s));
        PurgeOutcome outcome;
        {
            const StatementHook beforeLook([&](const QString &statement) {
                if (statement.startsWith(u"SELECT COUNT"_s)) {
                    EXPECT_TRUE(!isDone || other.Run(u"DELETE FROM traffic_use"_s));
                    EXPECT_TRUE(other.Run(u"COMMIT"_s));
                }
            });
            std::atomic<bool> ended = false;
            std::thread console([&] {
                EXPECT_EQ(ConnectDatabase(Dsn().toUtf8().constData()), 1);
                outcome = RunPurgeStep(counted->front());
                DisconnectDatabase();
                ended = true;
            });
            const QDeadlineTimer deadline(20'000);
            while (!ended && !deadline.hasExpired()
                   && EndOtherConnections(u"delete from traffic"_s) == 0) {
                std::this_thread::sleep_for(std::chrono::milliseconds(10));
            }
            console.join();
        }
        EXPECT_EQ(outcome.outcome.IsDone(), isDone);
        EXPECT_EQ(outcome.removed, isDone ? 2 : 0);
        EXPECT_EQ(RowsOf("SELECT user_id FROM traffic_use").size(), isDone ? 0 : 2);
        if (!isDone) {
            EXPECT_EQ(outcome.outcome.state, Outcome::State::NotDone);
            ASSERT_EQ(outcome.outcome.failures.size(), 1);
            EXPECT_EQ(outcome.outcome.failures[0].kind, Failure::Kind::ConnectionLost);
        }
        EXPECT_TRUE(RunPurgeStep(counted->front()).outcome.IsDone());
    }
}
