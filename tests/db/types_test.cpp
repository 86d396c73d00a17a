// The types of ids, codes and amounts: what they keep apart, and that they travel as their numbers.
#include "db/failure_log.h"
#include "db/session.h"
#include "db/value_codes.h"
#include "support/core/engine_fixture.h"

#include <gtest/gtest.h>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

template <typename Left, typename Right>
concept CanBeAdded = requires(Left left, Right right)
{
    left + right;
};

template <typename Left, typename Right>
concept CanBeCompared = requires(Left left, Right right)
{
    left == right;
};

static_assert(!std::is_convertible_v<quint32, UserId> && !std::is_convertible_v<UserId, quint32>);
static_assert(!std::is_constructible_v<UserId, GroupId>);
static_assert(CanBeCompared<UserId, UserId> && !CanBeCompared<UserId, GroupId>);
static_assert(!CanBeCompared<TrafficRecordId, TimeRecordId>);
static_assert(!CanBeCompared<LimitPeriod, UsagePeriod> && !CanBeCompared<PortId, quint32>);
static_assert(CanBeAdded<Megabytes, Megabytes> && !CanBeAdded<Megabytes, Hours>);
static_assert(!CanBeAdded<Megabytes, BaseUnits> && !CanBeAdded<Hours, double>);
static_assert(!std::is_constructible_v<WholeMegabytes, WholeHours>);
static_assert(!std::is_convertible_v<double, Megabytes> && !std::is_convertible_v<Hours, double>);
static_assert(!CanBeCompared<Megabytes, WholeMegabytes>, "only as AmountOf has it");

class Types : public EngineFixture
{ };
TB_ON_EVERY_ENGINE(Types);

} // namespace

TEST_P(Types, AreBoundAndReadAsTheNumbersThatTheyAre)
{
    Execute("INSERT INTO users (user_id, username, group_id, mode, blockreason, traflim, timelim) "
            "VALUES ((?), (?), (?), (?), (?), (?), (?))",
            UserId {7},
            u"anna"_s,
            kEverybodyGroup,
            AccountingMode::TrafficAndTime,
            BlockReason::Administrator,
            WholeMegabytes {4294967295U},
            WholeHours {9});
    RunQuery("SELECT user_id, group_id, mode, blockreason, traflim, timelim FROM users "
             "WHERE user_id = (?)",
             FetchMode::One,
             7U);
    EXPECT_EQ(queryResult.Id<UserId>(1), UserId {7});
    EXPECT_EQ(queryResult.Id<GroupId>(2), kEverybodyGroup);
    EXPECT_EQ(queryResult.Code<AccountingMode>(3), AccountingMode::TrafficAndTime);
    EXPECT_EQ(queryResult.Integer(3), 5U);
    EXPECT_EQ(queryResult.Code<BlockReason>(4), BlockReason::Administrator);
    EXPECT_EQ(queryResult.Integer(5), 4294967295U);
    EXPECT_EQ(queryResult.Integer(6), 9U);

    Execute("INSERT INTO billing (mode, object_id, data, moneydata) VALUES ((?), (?), (?), (?))",
            BillingMode::Credit,
            UserId {7},
            Megabytes {0.1},
            BaseUnits {-3.5});
    RunQuery("SELECT mode, data, moneydata FROM billing WHERE object_id = (?)", FetchMode::One, 7U);
    EXPECT_EQ(queryResult.Integer(1), 2U);
    EXPECT_EQ(queryResult.Amount(2), 0.1);
    EXPECT_EQ(queryResult.Amount(3), -3.5);
    EXPECT_EQ(FailureLog::Instance().Count(), 0);
}

TEST_P(Types, KeepACodeWithoutAMeaning)
{
    Execute("INSERT INTO users (user_id, username, mode, trafperiod) VALUES (7, 'anna', 3, 9)");
    RunQuery("SELECT mode, trafperiod FROM users WHERE user_id = 7", FetchMode::One);
    const auto mode = queryResult.Code<AccountingMode>(1);
    const auto period = queryResult.Code<LimitPeriod>(2);
    Execute("UPDATE users SET mode = (?), trafperiod = (?) WHERE user_id = 7", mode, period);
    EXPECT_EQ(RowsOf("SELECT mode, trafperiod FROM users"), QStringList {u"3|9"_s});
    EXPECT_EQ(static_cast<quint32>(UsagePeriodOf(period)), 9U);
}

TEST(Quantities, AddUpAndCompareWithinTheirKind)
{
    Megabytes sum {1.5};
    sum += Megabytes {2};
    sum -= Megabytes {0.5};
    EXPECT_EQ(sum, Megabytes {3});
    EXPECT_EQ(sum + Megabytes {1} - Megabytes {2}, Megabytes {2});
    EXPECT_LT(sum, AmountOf(WholeMegabytes {4}));
    EXPECT_FALSE(sum < AmountOf(WholeMegabytes {3}));
    EXPECT_EQ(AmountOf(WholeHours {4294967295U}), Hours {4294967295.0});
    EXPECT_FALSE(UserId {}.IsSet());
    EXPECT_TRUE(UserId {1}.IsSet());
}
