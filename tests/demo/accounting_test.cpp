#include "demo/accounting.h"

#include "access/usage_records.h"
#include "base/day.h"
#include "demo/made_up_traffic.h"
#include "support/core/database_fixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr UserId kAnna {1};
constexpr double kPrice = 0.5; // money for each megabyte

// One user, user_id 1, in a group of its own.
struct AccountingTest : DatabaseFixture
{
    TodayOverride today {{2026, 11, 21}};

    void User(const char *insert) { Execute(insert); }
    BlockReason Count(double received, double sent = 0, double hours = 0)
    {
        const Activity activity {Megabytes {received}, Megabytes {sent}, Hours {hours}};
        return Known(CountActivity(kAnna, activity, kPrice));
    }
    int Begun() { return Known(BeginNewPeriods()); }

    template <typename Value>
    static Value Known(const Result<Value> &result)
    {
        EXPECT_TRUE(result);
        return result.value_or(Value {});
    }
};

const char kTrafficUser[] = "INSERT INTO users (username, mode, traflim, trafperiod, group_id) "
                            "VALUES ('anna', 1, 100, 1, 80)";
const char kMonthlyUser[] = "INSERT INTO users (username, mode, traflim, trafperiod, group_id) "
                            "VALUES ('anna', 1, 100, 2, 80)";
const char kTimeUser[] = "INSERT INTO users (username, mode, timelim, timeperiod, group_id) "
                         "VALUES ('anna', 4, 2, 1, 80)";
const char kFreeUser[] = "INSERT INTO users (username, mode, group_id) VALUES ('anna', 0, 80)";
const char kPrePaidUser[] = "INSERT INTO users (username, mode, group_id) VALUES ('anna', 2, 80)";

const char kTraffic[] = "SELECT period, data, senddata, blocked FROM traffic_use "
                        "WHERE user_id = 1 ORDER BY traf_id";
const char kTime[] = "SELECT period, data, blocked FROM time_use ORDER BY time_id";
const char kCredits[] = "SELECT usage, moneyusage, closed FROM billing ORDER BY bill_id";
const char kBlocks[] = "SELECT blocked, blockreason FROM users";

} // namespace

TEST_F(AccountingTest, WithoutControlOnlyTheDayIsCounted)
{
    User(kFreeUser);
    EXPECT_EQ(Count(10, 2, 0.5), BlockReason::None);
    EXPECT_EQ(Count(5, 1, 0.25), BlockReason::None);
    EXPECT_EQ(RowsOf(kTraffic), QStringList {u"0|15.0|3.0|0"_s});
    EXPECT_EQ(RowsOf(kTime), QStringList {u"0|0.75|0"_s});
    const TodayOverride tomorrow({2026, 11, 22});
    EXPECT_EQ(Count(4), BlockReason::None);
    EXPECT_EQ(RowsOf(kTraffic), (QStringList {u"0|15.0|3.0|0"_s, u"0|4.0|0.0|0"_s}));
}

TEST_F(AccountingTest, TheLimitBlocksWhenItIsReached)
{
    User(kTrafficUser);
    EXPECT_EQ(Count(99, 7), BlockReason::None);
    EXPECT_EQ(RowsOf(kBlocks), QStringList {u"0|0"_s});
    EXPECT_EQ(Count(1), BlockReason::TrafficUsedUp); // exactly the limit: nothing is left
    EXPECT_EQ(RowsOf(kTraffic), (QStringList {u"0|100.0|7.0|0"_s, u"1|100.0|7.0|1"_s}));
    EXPECT_EQ(RowsOf(kBlocks), QStringList {u"1|1"_s});
}

TEST_F(AccountingTest, CreditsPayForWhatIsBeyondTheLimitOldestFirst)
{
    User(kTrafficUser);
    Count(95);
    const auto record = Known(FindUserTrafficRecord(kAnna, UsagePeriod::Day));
    Execute("INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, (?), 1, 3)", record);
    Execute("INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, (?), 1, 10)", record);
    EXPECT_EQ(Count(10),
              BlockReason::None); // 5 for the limit, 3 for the first credit, 2 for the second
    EXPECT_EQ(RowsOf(kCredits), (QStringList {u"3.0|0.0|1"_s, u"2.0|0.0|0"_s}));
    EXPECT_EQ(RowsOf(kTraffic).last(), u"1|100.0|0.0|0"_s);
    EXPECT_EQ(Count(11), BlockReason::TrafficUsedUp); // 8 are paid for, 3 by nobody
    EXPECT_EQ(RowsOf(kCredits), (QStringList {u"3.0|0.0|1"_s, u"10.0|0.0|1"_s}));
    EXPECT_EQ(RowsOf(kTraffic).last(), u"1|103.0|0.0|1"_s);
}

TEST_F(AccountingTest, ANewDayStartsANewDailyRecordAndLiftsTheBlock)
{
    User(kTrafficUser);
    EXPECT_EQ(Count(100), BlockReason::TrafficUsedUp);
    EXPECT_EQ(Begun(), 0);
    const TodayOverride tomorrow({2026, 11, 22});
    EXPECT_EQ(Begun(), 1);
    EXPECT_EQ(RowsOf(kBlocks), QStringList {u"0|1"_s}); // the reason stays
    EXPECT_EQ(Count(4), BlockReason::None);
    EXPECT_EQ(
        RowsOf(kTraffic),
        (QStringList {u"0|100.0|0.0|0"_s, u"1|100.0|0.0|1"_s, u"0|4.0|0.0|0"_s, u"1|4.0|0.0|0"_s}));
}

TEST_F(AccountingTest, AMonthHasOneRecordThatBeginsAnew)
{
    User(kMonthlyUser);
    EXPECT_EQ(Count(60, 3), BlockReason::None);
    const auto record = Known(FindUserTrafficRecord(kAnna, UsagePeriod::Month));
    Execute("INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, (?), 1, 1)", record);
    {
        const TodayOverride laterThatMonth({2026, 11, 30});
        EXPECT_EQ(Count(30), BlockReason::None);
        EXPECT_EQ(Begun(), 0);
    }
    const TodayOverride nextMonth({2026, 12, 1});
    EXPECT_EQ(Count(8, 1), BlockReason::None);
    EXPECT_EQ(Known(FindUserTrafficRecord(kAnna, UsagePeriod::Month)), record);
    EXPECT_EQ(RowsOf("SELECT data, senddata, current_time FROM traffic_use WHERE period = 2"),
              QStringList {u"8.0|1.0|2026-12-01"_s});
    EXPECT_EQ(RowsOf(kCredits), QStringList {u"0.0|0.0|1"_s}); // it extended the month before
}

TEST_F(AccountingTest, TimeHasItsOwnLimitAndReason)
{
    User(kTimeUser);
    EXPECT_EQ(Count(500, 0, 1.5), BlockReason::None);
    const auto record = Known(FindUserTimeRecord(kAnna, UsagePeriod::Day));
    Execute("INSERT INTO billing (mode, time_id, object_id, data) VALUES (4, (?), 1, 0.5)", record);
    EXPECT_EQ(Count(0, 0, 0.75),
              BlockReason::None); // half an hour for the limit, a quarter for the credit
    EXPECT_EQ(RowsOf(kCredits), QStringList {u"0.25|0.0|0"_s});
    EXPECT_EQ(Count(0, 0, 0.25), BlockReason::TimeUsedUp);
    EXPECT_EQ(RowsOf(kTime), (QStringList {u"0|2.5|0"_s, u"1|2.0|1"_s}));
    EXPECT_EQ(RowsOf(kBlocks), QStringList {u"1|2"_s});
    EXPECT_EQ(Begun(), 0);
    const TodayOverride tomorrow({2026, 11, 22});
    EXPECT_EQ(Begun(), 1);
}

TEST_F(AccountingTest, PrePaidUsersLiveOnTheirCredits)
{
    User(kPrePaidUser);
    Execute("INSERT INTO billing (mode, object_id, data, unlimited, expiredday) "
            "VALUES (2, 1, 50, 0, '2026.11.20')"); // expired yesterday
    Execute("INSERT INTO billing (mode, object_id, data, unlimited, expiredday) "
            "VALUES (2, 1, 4, 0, '2026.11.21')"); // good today
    Execute("INSERT INTO billing (mode, object_id, moneydata, unlimited) VALUES (2, 1, 5, 1)");
    EXPECT_EQ(Count(6), BlockReason::None); // 4 megabytes, then 2 for money
    EXPECT_EQ(RowsOf(kCredits), (QStringList {u"0.0|0.0|1"_s, u"4.0|0.0|1"_s, u"2.0|1.0|0"_s}));
    Execute("UPDATE users SET own_price = true, trafprice = 2");
    EXPECT_EQ(Count(2),
              BlockReason::TrafficUsedUp); // the rest of the money at the user's own price
    EXPECT_EQ(RowsOf(kCredits).last(), u"4.0|5.0|1"_s);
    EXPECT_EQ(RowsOf(kBlocks), QStringList {u"1|1"_s});
    const TodayOverride tomorrow({2026, 11, 22});
    EXPECT_EQ(Begun(), 0); // time alone brings no credit
}

TEST_F(AccountingTest, AnUnboundedCreditNeverEnds)
{
    User(kPrePaidUser);
    Execute("INSERT INTO billing (mode, object_id, unlimited) VALUES (2, 1, 1)");
    EXPECT_EQ(Count(1e6), BlockReason::None);
    EXPECT_EQ(RowsOf(kCredits), QStringList {u"1000000.0|0.0|0"_s});
}

TEST_F(AccountingTest, AGroupsLimitCountsItsMembers)
{
    User(kFreeUser);
    Execute("UPDATE groups SET mode = 1, traflim = 20, trafperiod = 2 WHERE group_id = 80");
    Count(15, 1);
    Count(5, 1);
    EXPECT_EQ(RowsOf("SELECT user_id, period, data, senddata, blocked FROM traffic_use "
                     "WHERE group_id = 80"),
              QStringList {u"0|2|20.0|2.0|1"_s});
    EXPECT_EQ(RowsOf("SELECT blocked FROM groups WHERE group_id = 80"), QStringList {u"0"_s});
}

TEST_F(AccountingTest, ABlockByTheAdministratorOutlastsThePeriod)
{
    User(kTrafficUser);
    Execute("UPDATE users SET blocked = true, blockreason = 3");
    EXPECT_EQ(Begun(), 0);
    EXPECT_EQ(RowsOf(kBlocks), QStringList {u"1|3"_s});
}

TEST_F(AccountingTest, ALimitThatCannotBeReadBlocksNobody)
{
    User(kTrafficUser);
    Count(10);
    Execute("ALTER TABLE users RENAME COLUMN traflim TO away");
    EXPECT_FALSE(CountActivity(kAnna, {Megabytes {1}, {}, {}}, kPrice));
    EXPECT_EQ(RowsOf(kBlocks), QStringList {u"0|0"_s});
    EXPECT_EQ(RowsOf(kTraffic), (QStringList {u"0|10.0|0.0|0"_s, u"1|10.0|0.0|0"_s}));
}

TEST_F(AccountingTest, CreditsThatCannotBeReadAreNotUsedUp)
{
    User(kTrafficUser);
    Count(95);
    Execute("ALTER TABLE billing RENAME COLUMN trafid TO away");
    EXPECT_FALSE(CountActivity(kAnna, {Megabytes {20}, {}, {}}, kPrice));
    EXPECT_EQ(RowsOf(kBlocks), QStringList {u"0|0"_s});
    EXPECT_EQ(RowsOf(kTraffic).last(), u"1|95.0|0.0|0"_s);
}

TEST_F(AccountingTest, ARecordThatCannotBeReadIsNoNewPeriod)
{
    User(kTrafficUser);
    Count(100);
    const TodayOverride tomorrow({2026, 11, 22});
    Execute("ALTER TABLE traffic_use RENAME COLUMN period TO away");
    EXPECT_FALSE(BeginNewPeriods());
    EXPECT_EQ(RowsOf(kBlocks), QStringList {u"1|1"_s});
}

TEST(MadeUpTraffic, IsTheSameForTheSameSeedAndPlausible)
{
    MadeUpTraffic one(7);
    MadeUpTraffic other(7);
    for (int i = 0; i < 1000; ++i) {
        const Activity activity = one.Next();
        EXPECT_EQ(activity.received, other.Next().received);
        EXPECT_GT(activity.received, Megabytes {0.4});
        EXPECT_LT(activity.received, Megabytes {10});
        EXPECT_LT(activity.sent, activity.received);
        EXPECT_LE(activity.hours, Hours {0.05});
    }
    const auto chosen = one.Choose({UserId {5}, UserId {6}, UserId {7}}, 2);
    EXPECT_EQ(chosen.size(), 2U);
    EXPECT_NE(chosen[0], chosen[1]);
    EXPECT_EQ(one.Choose({UserId {5}}, 2), std::vector {UserId {5}});
    EXPECT_EQ(one.Choose({UserId {5}, UserId {6}, UserId {47}, UserId {8}}, 1),
              std::vector {UserId {47}})
        << "who downloads all day";
}
