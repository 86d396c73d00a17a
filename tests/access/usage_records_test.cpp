#include "access/usage_records.h"

#include "db/failure_log.h"
#include "db/session.h"
#include "support/core/engine_fixture.h"
#include "support/core/statement_recorder.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr UserId kUser {7};
constexpr UserId kNobody {8};
constexpr GroupId kGroup {90};

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
    const std::tuple<UsagePeriod, TrafficRecordId, TimeRecordId> cases[] = {
        {UsagePeriod::Statistics, TrafficRecordId {2}, TimeRecordId {1}},
        {UsagePeriod::Day, TrafficRecordId {3}, TimeRecordId {2}},
        {UsagePeriod::Month, TrafficRecordId {4}, TimeRecordId {3}},
    };
    for (const auto &[period, traffic, time] : cases) {
        EXPECT_EQ(FindUserTrafficRecord(kUser, period), traffic);
        EXPECT_EQ(FindUserTimeRecord(kUser, period), time);
        EXPECT_FALSE(FindUserTrafficRecord(kNobody, period)->IsSet());
        EXPECT_FALSE(FindUserTimeRecord(kNobody, period)->IsSet());
    }
}

TEST_P(UsageRecords, OfADayAreGoneOnTheNext)
{
    const TodayOverride tomorrow(QDate(2026, 11, 22));
    EXPECT_FALSE(FindUserTrafficRecord(kUser, UsagePeriod::Statistics)->IsSet());
    EXPECT_FALSE(FindUserTrafficRecord(kUser, UsagePeriod::Day)->IsSet());
    EXPECT_FALSE(FindUserTimeRecord(kUser, UsagePeriod::Day)->IsSet());
    EXPECT_EQ(FindUserTrafficRecord(kUser, UsagePeriod::Month), TrafficRecordId {4});
    EXPECT_FALSE(FindGroupTrafficRecord(kGroup)->IsSet());
}

TEST_P(UsageRecords, OfAGroupFollowTheGroupsOwnPeriod)
{
    EXPECT_EQ(FindGroupTrafficRecord(kGroup), TrafficRecordId {5});
    for (const quint32 period : {2U, 0U, 9U}) {
        Execute("UPDATE groups SET trafperiod = (?) WHERE group_id = (?)", period, kGroup);
        EXPECT_EQ(FindGroupTrafficRecord(kGroup), TrafficRecordId {6}) << period;
    }
    EXPECT_FALSE(FindGroupTrafficRecord(GroupId {91})->IsSet());
}

TEST_P(UsageRecords, OfAnUnknownPeriodAreNotLookedFor)
{
    StatementRecorder recorder;
    EXPECT_FALSE(FindUserTrafficRecord(kUser, UsagePeriod {3})->IsSet());
    EXPECT_FALSE(FindUserTimeRecord(kUser, UsagePeriod {3})->IsSet());
    EXPECT_EQ(recorder.Take(), QStringList());
}

TEST_P(UsageRecords, AreTheLastWhereThereAreSeveral)
{
    Execute("INSERT INTO traffic_use (user_id, period, current_time) VALUES (7, 1, '2026-11-21')");
    EXPECT_EQ(FindUserTrafficRecord(kUser, UsagePeriod::Day), TrafficRecordId {7});
}

} // namespace
