// How counts become records, charged credits and blocks.
#include "metering_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class Counting : public MeteringFixture
{ };

} // namespace

TB_ON_EVERY_ENGINE(Counting);

TEST_P(Counting, WithoutControlOnlyTheDayIsCounted)
{
    EXPECT_EQ(Count1(kAnna, {10, 2, 0.5}).received, 10U << 20);
    Count1(kAnna, {5, 1, 0.25});
    EXPECT_EQ(Rows(kTraffic), QStringList {u"1|0|15|3|0"_s});
    EXPECT_EQ(Rows(kTime), QStringList {u"1|0|0.75|0"_s});
    GoTo({2026, 11, 22});
    Count1(kAnna, {4});
    EXPECT_EQ(Rows(kTraffic), (QStringList {u"1|0|15|3|0"_s, u"1|0|4|0|0"_s}));
}

TEST_P(Counting, TheLimitBlocksWhenItIsReached)
{
    Set(kAnna, "mode = 1, traflim = 100, trafperiod = 1");
    EXPECT_EQ(Count1(kAnna, {99, 7}).trafficUsedUp, QList<UserId>());
    EXPECT_EQ(Rows(kBlocks), QStringList {u"0|0"_s});
    EXPECT_EQ(Count1(kAnna, {1}).trafficUsedUp,
              QList {kAnna}); // exactly the limit: nothing is left
    EXPECT_EQ(Rows(kTraffic), (QStringList {u"1|0|100|7|0"_s, u"1|1|100|7|1"_s}));
    EXPECT_EQ(Rows(kBlocks), QStringList {u"1|1"_s});
}

TEST_P(Counting, CreditsPayForWhatIsBeyondTheLimitOldestFirst)
{
    Set(kAnna, "mode = 1, traflim = 100, trafperiod = 1");
    Count1(kAnna, {95});
    Run("INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, 1, 1, 3)");
    Run("INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, 1, 1, 10)");
    Count1(kAnna, {10}); // 5 for the limit, 3 for the first credit, 2 for the second
    EXPECT_EQ(Rows(kCredits), (QStringList {u"3|0|1"_s, u"2|0|0"_s}));
    EXPECT_EQ(Rows(kTraffic).last(), u"1|1|100|0|0"_s);
    EXPECT_EQ(Count1(kAnna, {11}).trafficUsedUp, QList {kAnna}); // 8 are paid for, 3 by nobody
    EXPECT_EQ(Rows(kCredits), (QStringList {u"3|0|1"_s, u"10|0|1"_s}));
    EXPECT_EQ(Rows(kTraffic).last(), u"1|1|103|0|1"_s);
    EXPECT_EQ(Rows("SELECT bill_id, day, data, money, price FROM credit_use ORDER BY bill_id"),
              (QStringList {u"1|2026-11-21|3|0|0"_s, u"2|2026-11-21|10|0|0"_s}));
}
