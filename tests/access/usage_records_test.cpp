#include "access/usage_records.h"

#include "db/failure_log.h"
#include "db/session.h"
#include "support/core/engine_fixture.h"
#include "support/core/statement_recorder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct UsageRecords : EngineFixture
{
    void SetUp() override
    {
        EngineFixture::SetUp();
        // Records 1 to 4 of user 7: yesterday's and today's day record, today's limit, the month's.
        for (
            const char *insert :
            {"INSERT INTO traffic_use (user_id, period, current_time) VALUES (7, 0, '2026-11-20')",
             "INSERT INTO traffic_use (user_id, period, current_time) VALUES (7, 0, '2026-11-21')",
             "INSERT INTO traffic_use (user_id, period, current_time) VALUES (7, 1, '2026-11-21')",
             "INSERT INTO traffic_use (user_id, period, current_time) VALUES (7, 2, '2026-10-01')",
             "INSERT INTO traffic_use (group_id, period, current_time) VALUES (90, 1, '2026-11-21')",
             "INSERT INTO traffic_use (group_id, period, current_time) VALUES (90, 2, '2026-10-01')",
             "INSERT INTO time_use (user_id, period, current_time) VALUES (7, 0, '2026-11-21')",
             "INSERT INTO time_use (user_id, period, current_time) VALUES (7, 1, '2026-11-21')",
             "INSERT INTO time_use (user_id, period, current_time) VALUES (7, 2, '2026-10-01')",
             "INSERT INTO groups (group_id, name, trafperiod) VALUES (90, 'Office', 1)"}) {
            Execute(insert);
        }
    }

    void TearDown() override
    {
        EXPECT_EQ(FailureLog::Instance().Count(), 0);
        EngineFixture::TearDown();
    }

    TodayOverride today {QDate(2026, 11, 21)};
};
TB_ON_EVERY_ENGINE(UsageRecords);

TEST_P(UsageRecords, AreThoseOfTheDayOrTheOnlyOneOfTheMonth)
{
    const std::tuple<quint32, quint32, quint32> cases[] = {{0, 2, 1}, {1, 3, 2}, {2, 4, 3}};
    for (const auto &[period, traffic, time] : cases) {
        EXPECT_EQ(FindUserTrafficRecord(7, period), traffic);
        EXPECT_EQ(FindUserTimeRecord(7, period), time);
        EXPECT_EQ(FindUserTrafficRecord(8, period), 0U);
        EXPECT_EQ(FindUserTimeRecord(8, period), 0U);
    }
}

TEST_P(UsageRecords, OfADayAreGoneOnTheNext)
{
    const TodayOverride tomorrow(QDate(2026, 11, 22));
    EXPECT_EQ(FindUserTrafficRecord(7, 0), 0U);
    EXPECT_EQ(FindUserTrafficRecord(7, 1), 0U);
    EXPECT_EQ(FindUserTimeRecord(7, 1), 0U);
    EXPECT_EQ(FindUserTrafficRecord(7, 2), 4U);
    EXPECT_EQ(FindGroupTrafficRecord(90), 0U);
}

TEST_P(UsageRecords, OfAGroupFollowTheGroupsOwnPeriod)
{
    EXPECT_EQ(FindGroupTrafficRecord(90), 5U);
    for (const quint32 period : {2U, 0U, 9U}) {
        Execute("UPDATE groups SET trafperiod = (?) WHERE group_id = (?)", period, 90U);
        EXPECT_EQ(FindGroupTrafficRecord(90), 6U) << period;
    }
    EXPECT_EQ(FindGroupTrafficRecord(91), 0U);
}

TEST_P(UsageRecords, OfAnUnknownPeriodAreNotLookedFor)
{
    StatementRecorder recorder;
    EXPECT_EQ(FindUserTrafficRecord(7, 3), 0U);
    EXPECT_EQ(FindUserTimeRecord(7, 3), 0U);
    EXPECT_EQ(recorder.Take(), QStringList());
}

TEST_P(UsageRecords, AreTheLastWhereThereAreSeveral)
{
    Execute("INSERT INTO traffic_use (user_id, period, current_time) VALUES (7, 1, '2026-11-21')");
    EXPECT_EQ(FindUserTrafficRecord(7, 1), 7U);
}

} // namespace
