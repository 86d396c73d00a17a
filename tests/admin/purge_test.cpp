#include "admin/purge.h"

#include "base/painted_work.h"
#include "support/core/engine_fixture.h"
#include "support/core/statement_recorder.h"

#include <QThread>

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
            EXPECT_TRUE(RunPurgeStep(step)) << step.statement;
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
    const auto counts = CountPurge(steps);
    ASSERT_EQ(counts.size(), 3U);
    for (const PurgeCount &count : counts) {
        EXPECT_EQ(count.rows, 2) << qPrintable(count.table);
    }
    qint64 removed = 0;
    for (const PurgeStep &step : steps) {
        removed += RunPurgeStep(step).value_or(-100);
    }
    EXPECT_EQ(removed, 6);
}

TEST_P(PurgeTest, AFailedStepIsSeenAndTheWorkCanRunBesideTheWindow)
{
    Fill({{2026, 1, 1}});
    Execute("DROP TABLE time_use");
    QStringList outcome;
    QThread *worker = nullptr;
    RunPainted([&] {
        worker = QThread::currentThread();
        for (const PurgeStep &step : PurgeSteps({Keep::Today, false, {}, {}}, {2026, 3, 9})) {
            outcome << QString::number(RunPurgeStep(step).value_or(-1));
        }
        EXPECT_TRUE(IsWorkRunning());
    });
    EXPECT_NE(worker, QThread::currentThread());
    EXPECT_FALSE(IsWorkRunning());
    EXPECT_EQ(outcome, (QStringList {u"1"_s, u"-1"_s, u"1"_s}));
}
