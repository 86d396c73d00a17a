// How counts become records, charged credits and blocks.
#include "metering/new_period.h"
#include "metering_fixture.h"
#include "support/core/statement_recorder.h"

using namespace Qt::StringLiterals;

namespace {

class Counting : public MeteringFixture
{
protected:
    Counted Settle() const
    {
        const auto settled = SettleAccounts(now, kPrices);
        EXPECT_TRUE(settled) << (settled ? "" : qPrintable(settled.error().text));
        return settled.value_or(Counted());
    }
};

} // namespace

TB_ON_EVERY_ENGINE(Counting);

TEST_P(Counting, WithoutControlOnlyTheDayIsCounted)
{
    EXPECT_EQ(CountFor(kAnna, {10, 2, 0.5}).received, 10U << 20);
    CountFor(kAnna, {5, 1, 0.25});
    EXPECT_EQ(Rows(kTraffic), QStringList {u"1|0|15|3|0"_s});
    EXPECT_EQ(Rows(kTime), QStringList {u"1|0|0.75|0"_s});
    GoTo({2026, 11, 22});
    CountFor(kAnna, {4});
    EXPECT_EQ(Rows(kTraffic), (QStringList {u"1|0|15|3|0"_s, u"1|0|4|0|0"_s}));
}

TEST_P(Counting, TheLimitBlocksWhenItIsReached)
{
    Set(kAnna, "mode = 1, traflim = 100, trafperiod = 1");
    EXPECT_EQ(CountFor(kAnna, {99, 7}).trafficUsedUp, QList<UserId>());
    EXPECT_EQ(Rows(kBlocks), QStringList {u"0|0"_s});
    EXPECT_EQ(CountFor(kAnna, {1}).trafficUsedUp,
              QList {kAnna}); // exactly the limit: nothing is left
    EXPECT_EQ(Rows(kTraffic), (QStringList {u"1|0|100|7|0"_s, u"1|1|100|7|1"_s}));
    EXPECT_EQ(Rows(kBlocks), QStringList {u"1|1"_s});
}

TEST_P(Counting, CreditsPayForWhatIsBeyondTheLimitOldestFirst)
{
    Set(kAnna, "mode = 1, traflim = 100, trafperiod = 1");
    CountFor(kAnna, {95});
    Run("INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, 1, 1, 3)");
    Run("INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, 1, 1, 10)");
    CountFor(kAnna, {10}); // 5 for the limit, 3 for the first credit, 2 for the second
    EXPECT_EQ(Rows(kCredits), (QStringList {u"3|0|1"_s, u"2|0|0"_s}));
    EXPECT_EQ(Rows(kTraffic).last(), u"1|1|100|0|0"_s);
    EXPECT_EQ(CountFor(kAnna, {11}).trafficUsedUp, QList {kAnna}); // 8 are paid for, 3 by nobody
    EXPECT_EQ(Rows(kCredits), (QStringList {u"3|0|1"_s, u"10|0|1"_s}));
    EXPECT_EQ(Rows(kTraffic).last(), u"1|1|103|0|1"_s);
    EXPECT_EQ(Rows("SELECT bill_id, day, data, money, price FROM credit_use ORDER BY bill_id"),
              (QStringList {u"1|2026-11-21|3|0|0"_s, u"2|2026-11-21|10|0|0"_s}));
}

TEST_P(Counting, ADayHasARecordOfItsOwnAndTheNextOneLiftsTheBlock)
{
    Set(kAnna, "mode = 1, traflim = 100, trafperiod = 1");
    EXPECT_EQ(CountFor(kAnna, {100}).trafficUsedUp, QList {kAnna});
    EXPECT_EQ(Settle().lifted, QList<UserId>());
    GoTo({2026, 11, 22});
    EXPECT_EQ(Settle().lifted, QList {kAnna});
    EXPECT_EQ(Rows(kBlocks), QStringList {u"0|1"_s}); // the reason stays
    CountFor(kAnna, {4});
    EXPECT_EQ(Rows(kTraffic),
              (QStringList {u"1|0|100|0|0"_s, u"1|0|4|0|0"_s, u"1|1|100|0|1"_s, u"1|1|4|0|0"_s}));
}

TEST_P(Counting, AMonthHasOneRecordThatBeginsAnew)
{
    Set(kAnna, "mode = 1, traflim = 100, trafperiod = 2");
    CountFor(kAnna, {60, 3});
    Run("INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, 1, 1, 1)");
    GoTo({2026, 11, 30});
    CountFor(kAnna, {40.5});
    EXPECT_EQ(Rows(kCredits), QStringList {u"0.5|0|0"_s});
    GoTo({2026, 12, 1});
    CountFor(kAnna, {8, 1});
    EXPECT_EQ(Rows("SELECT traf_id, data, senddata, blocked, current_time FROM traffic_use "
                   "WHERE period = 2"),
              QStringList {u"1|8|1|0|2026-12-01"_s});
    EXPECT_EQ(Rows(kCredits), QStringList {u"0.5|0|1"_s}); // it extended the month before
}

TEST_P(Counting, TimeHasItsOwnLimitAndReason)
{
    Set(kAnna, "mode = 4, timelim = 2, timeperiod = 1");
    CountFor(kAnna, {500, 0, 1.5});
    Run("INSERT INTO billing (mode, time_id, object_id, data) VALUES (4, 1, 1, 0.5)");
    CountFor(kAnna, {1, 0, 0.75}); // half an hour for the limit, a quarter for the credit
    EXPECT_EQ(Rows(kCredits), QStringList {u"0.25|0|0"_s});
    EXPECT_EQ(CountFor(kAnna, {1, 0, 0.25}).timeUsedUp, QList {kAnna});
    EXPECT_EQ(Rows(kTime), (QStringList {u"1|0|2.5|0"_s, u"1|1|2|1"_s}));
    EXPECT_EQ(Rows(kBlocks), QStringList {u"1|2"_s});
    GoTo({2026, 11, 22});
    EXPECT_EQ(Settle().lifted, QList {kAnna});
}

TEST_P(Counting, WhoHasBothLimitsIsBlockedByTheOneThatEnds)
{
    Set(kAnna, "mode = 5, traflim = 10, trafperiod = 2, timelim = 1, timeperiod = 1");
    EXPECT_EQ(CountFor(kAnna, {4, 0, 1}).timeUsedUp, QList {kAnna});
    EXPECT_EQ(CountFor(kAnna, {6}).trafficUsedUp, QList<UserId>()) << "blocked already";
    GoTo({2026, 11, 22});
    EXPECT_EQ(Settle().lifted, QList<UserId>()) << "the month's traffic is used up";
    EXPECT_EQ(Rows(kBlocks).first().left(1), u"1"_s);
    GoTo({2026, 12, 1});
    EXPECT_EQ(Settle().lifted, QList {kAnna});
}

TEST_P(Counting, PrePaidUsersLiveOnTheirCredits)
{
    Set(kAnna, "mode = 2");
    Run("INSERT INTO billing (mode, object_id, data, unlimited, expiredday) "
        "VALUES (2, 1, 50, 0, '2026.11.20')"); // expired yesterday
    Run("INSERT INTO billing (mode, object_id, data, unlimited, expiredday) "
        "VALUES (2, 1, 4, 0, '2026.11.21')"); // good today
    Run("INSERT INTO billing (mode, object_id, moneydata, unlimited) VALUES (2, 1, 5, 1)");
    CountFor(kAnna, {6}); // 4 megabytes, then 2 for money
    EXPECT_EQ(Rows(kCredits), (QStringList {u"0|0|1"_s, u"4|0|1"_s, u"2|1|0"_s}));
    Set(kAnna, "own_price = true, trafprice = 2");
    EXPECT_EQ(CountFor(kAnna, {2}).trafficUsedUp,
              QList {kAnna}); // the rest of the money at the user's own price
    EXPECT_EQ(Rows(kCredits).last(), u"4|5|1"_s);
    EXPECT_EQ(Rows(kBlocks), QStringList {u"1|1"_s});
    EXPECT_EQ(Rows("SELECT bill_id, day, data, money, price FROM credit_use ORDER BY bill_id"),
              (QStringList {u"2|2026-11-21|4|0|0"_s, u"3|2026-11-21|4|5|2"_s}));
    GoTo({2026, 11, 22});
    EXPECT_EQ(Settle().lifted, QList<UserId>()); // time alone brings no credit
    Run("INSERT INTO billing (mode, object_id, data, unlimited) VALUES (2, 1, 1, 1)");
    EXPECT_EQ(Settle().lifted, QList {kAnna});
}

TEST_P(Counting, ACreditPaysForEachDayByItself)
{
    Set(kAnna, "mode = 2");
    Run("INSERT INTO billing (mode, object_id, moneydata, unlimited) VALUES (2, 1, 5, 1)");
    CountFor(kAnna, {1});
    Does(kAnna, {2});
    Write({1.0}); // another price, of the same day
    GoTo({2026, 11, 22});
    CountFor(kAnna, {1});
    EXPECT_EQ(Rows("SELECT bill_id, day, data, money, price FROM credit_use ORDER BY day"),
              (QStringList {u"1|2026-11-21|3|2.5|1"_s, u"1|2026-11-22|1|0.5|0.5"_s}));
    EXPECT_EQ(Rows(kCredits), QStringList {u"4|3|0"_s});
}

TEST_P(Counting, ACreditWithoutABoundNeverEnds)
{
    Set(kAnna, "mode = 2");
    Run("INSERT INTO billing (mode, object_id, unlimited) VALUES (2, 1, 1)");
    Run("INSERT INTO billing (mode, object_id, data, unlimited) VALUES (2, 1, 1, 1)");
    EXPECT_EQ(CountFor(kAnna, {1e6}).trafficUsedUp, QList<UserId>());
    EXPECT_EQ(Rows(kCredits), (QStringList {u"1000000|0|0"_s, u"0|0|0"_s}));
}

TEST_P(Counting, MoneyWithoutAPriceNeverEnds)
{
    Set(kAnna, "mode = 2");
    Run("INSERT INTO billing (mode, object_id, moneydata, unlimited) VALUES (2, 1, 5, 1)");
    Does(kAnna, {1e6});
    EXPECT_EQ(Write({0}).trafficUsedUp, QList<UserId>());
    EXPECT_EQ(Rows(kCredits), QStringList {u"1000000|0|0"_s});
}

// 0.1 megabytes are 104 857.6 bytes.
TEST_P(Counting, ACreditOfPartsOfAByteEndsWithItsLastWholeOne)
{
    Set(kAnna, "mode = 2");
    Run("INSERT INTO billing (mode, object_id, data, unlimited) VALUES (2, 1, 0.1, 1)");
    OfUser(kAnna).received = 104'856;
    EXPECT_EQ(Write().trafficUsedUp, QList<UserId>());
    OfUser(kAnna).received = 104'857;
    EXPECT_EQ(Write().trafficUsedUp, QList {kAnna});
    EXPECT_EQ(RowsOf("SELECT closed FROM billing"), QStringList {u"1"_s});
}

TEST_P(Counting, AGroupsLimitIsSharedAndItsEndLeavesTheMembersRows)
{
    SetGroup("mode = 1, traflim = 20, trafperiod = 2");
    Set(kBert, "mode = 1, traflim = 100, trafperiod = 1");
    CountFor(kAnna, {15, 1});
    EXPECT_EQ(CountFor(kBert, {5, 1}).groupsUsedUp, QList {kEverybodyGroup});
    EXPECT_EQ(Rows(kGroupTraffic), QStringList {u"2|20|2|1"_s});
    EXPECT_EQ(Rows("SELECT blocked, blockreason FROM groups WHERE group_id = 80"),
              QStringList {u"1|1"_s});
    EXPECT_EQ(Rows("SELECT blocked FROM users"), (QStringList {u"0"_s, u"0"_s, u"0"_s}));
    GoTo({2026, 12, 1});
    EXPECT_EQ(Settle().groupsLifted, QList {kEverybodyGroup});
    EXPECT_EQ(Rows(kGroupTraffic), QStringList {u"2|0|0|0"_s});
}

TEST_P(Counting, AGroupsCreditsExtendItsLimit)
{
    SetGroup("mode = 1, traflim = 20, trafperiod = 1");
    Run("INSERT INTO billing (mode, trafid, group_id, data) VALUES (1, 0, 80, 5)");
    EXPECT_EQ(CountFor(kAnna, {24}).groupsUsedUp, QList<GroupId>());
    EXPECT_EQ(Rows(kCredits), QStringList {u"4|0|0"_s});
    EXPECT_EQ(CountFor(kBert, {1}).groupsUsedUp, QList {kEverybodyGroup});
    EXPECT_EQ(Rows(kGroupTraffic), QStringList {u"1|20|0|1"_s});
}

TEST_P(Counting, APrePaidGroupPaysForMembersWithoutAnAccount)
{
    SetGroup("mode = 2, own_price = true, trafprice = 2");
    Run("INSERT INTO billing (mode, group_id, moneydata, unlimited) VALUES (2, 80, 10, 1)");
    Set(kBert, "mode = 1, traflim = 100, trafperiod = 1");
    Does(kAnna, {2});
    Does(kBert, {50});
    Write();
    EXPECT_EQ(Rows(kCredits), QStringList {u"2|4|0"_s});
    EXPECT_EQ(CountFor(kAnna, {7}).groupsUsedUp, QList<GroupId>())
        << "its members are refused by it";
    EXPECT_EQ(Rows(kCredits), QStringList {u"5|10|1"_s});
    EXPECT_EQ(Rows("SELECT blocked FROM groups WHERE group_id = 80"), QStringList {u"0"_s});
}

TEST_P(Counting, CreditsFromBeforeTheRecordAreTiedToIt)
{
    Set(kAnna, "mode = 5, traflim = 1, trafperiod = 1, timelim = 1, timeperiod = 2");
    Run("INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, 0, 1, 3)");
    Run("INSERT INTO billing (mode, time_id, object_id, data) VALUES (4, 0, 1, 3)");
    CountFor(kAnna, {2, 0, 2});
    EXPECT_EQ(Rows("SELECT trafid, time_id, usage FROM billing ORDER BY bill_id"),
              (QStringList {u"1||1"_s, u"|1|1"_s}));
}

TEST_P(Counting, ALimitsCreditOfAnEarlierDayIsNotThisDays)
{
    Set(kAnna, "mode = 1, traflim = 1, trafperiod = 1");
    CountFor(kAnna, {0.5});
    Run("INSERT INTO billing (mode, trafid, object_id, data) VALUES (1, 1, 1, 3)");
    GoTo({2026, 11, 22});
    EXPECT_EQ(CountFor(kAnna, {2}).trafficUsedUp, QList {kAnna});
    EXPECT_EQ(Rows(kCredits), QStringList {u"0|0|0"_s});
}

TEST_P(Counting, AnExpiredCreditExtendsNoLimit)
{
    Set(kAnna, "mode = 1, traflim = 1, trafperiod = 2");
    Run("INSERT INTO billing (mode, trafid, object_id, data, unlimited, expiredday) "
        "VALUES (1, 0, 1, 3, 0, '2026.11.20')");
    EXPECT_EQ(CountFor(kAnna, {2}).trafficUsedUp, QList {kAnna});
    EXPECT_EQ(Rows(kCredits), QStringList {u"0|0|1"_s});
}

TEST_P(Counting, BlocksByTheAdministratorStay)
{
    for (const char *block : {"blockreason = 3", "blockreason = 4"}) {
        Set(kAnna, "mode = 1, traflim = 100, trafperiod = 1, blocked = true");
        Set(kAnna, block);
        EXPECT_TRUE(Settle().lifted.isEmpty());
        EXPECT_TRUE(CountFor(kAnna, {100}).trafficUsedUp.isEmpty());
        EXPECT_EQ(Rows(kBlocks), QStringList {u"1|"_s + QLatin1Char(block[14])});
    }
}

TEST_P(Counting, ARaisedLimitLiftsTheBlockWithTheNextCount)
{
    Set(kAnna, "mode = 1, traflim = 10, trafperiod = 1");
    CountFor(kAnna, {10});
    Set(kAnna, "traflim = 20");
    EXPECT_EQ(CountFor(kAnna, {1}).lifted, QList {kAnna});
    EXPECT_EQ(Rows(kBlocks), QStringList {u"0|1"_s});
}

// The kernel refuses the packet that does not fit any more.
TEST_P(Counting, WhoWasRefusedByTheKernelHasNothingLeft)
{
    struct Case
    {
        const char *columns;
        quint64 received; // of 10 megabytes
        bool isUsedUp;
    };
    constexpr quint64 kAll = 10 << 20;
    UserId user {0};
    for (const Case &each : {Case {"mode = 1, traflim = 10, trafperiod = 1", kAll - 65'535, true},
                             Case {"mode = 1, traflim = 10, trafperiod = 1", kAll - 65'536, false},
                             Case {"mode = 2", kAll - 65'535, true}}) {
        ++user.value;
        Set(user, each.columns);
        Execute("INSERT INTO billing (mode, object_id, data, unlimited) VALUES (2, (?), 10, 1)",
                user);
        OfUser(user).received = each.received;
        Write();
        next.usedUp = {user};
        const Counted counted = Write(); // nothing new: it was counted before the notice came
        EXPECT_EQ(counted.trafficUsedUp.contains(user), each.isUsedUp) << each.columns;
        const auto standing = ReadStanding(user, {now.date(), now.time()}, kPrices, false);
        ASSERT_TRUE(standing && *standing);
        EXPECT_EQ((*standing)->user.refused, each.isUsedUp) << each.columns;
    }
}

TEST_P(Counting, TimeOfWhoWasRefusedIsCountedOnce)
{
    Set(kAnna, "mode = 1, traflim = 10, trafperiod = 1");
    Does(kAnna, {10, 0, 1});
    next.usedUp = {kAnna};
    const Count count = Taken();
    ASSERT_TRUE(WriteCount(count, kPrices));
    ASSERT_TRUE(WriteCount(count, kPrices));
    EXPECT_EQ(Rows(kTime), QStringList {u"1|0|1|0"_s});
}

TEST_P(Counting, AGroupThatWasRefusedByTheKernelHasNothingLeft)
{
    SetGroup("mode = 1, traflim = 10, trafperiod = 1");
    OfUser(kAnna).received = (10 << 20) - 1000;
    Write();
    next.usedUpGroups = {kEverybodyGroup};
    EXPECT_EQ(Write().groupsUsedUp, QList {kEverybodyGroup});
    EXPECT_EQ(Settle().groupsLifted, QList<GroupId>());
}

TEST_P(Counting, MidnightEndsTheDayBeforeIt)
{
    Does(kAnna, {1});
    now = QDateTime(QDate(2026, 11, 22), QTime(0, 0), QTimeZone::utc());
    Write();
    Does(kAnna, {2});
    now = now.addMSecs(1);
    Write();
    EXPECT_EQ(Rows("SELECT current_time, data FROM traffic_use ORDER BY current_time"),
              (QStringList {u"2026-11-21|1"_s, u"2026-11-22|2"_s}));
}

TEST_P(Counting, CountsOfSeveralDaysMayComeLateInTheirOrder)
{
    Set(kAnna, "mode = 1, traflim = 10, trafperiod = 1");
    std::vector<Count> kept;
    for (const QDate day : {QDate(2026, 11, 21), QDate(2026, 11, 22), QDate(2026, 11, 23)}) {
        GoTo(day);
        Does(kAnna, {static_cast<double>(day.day()) - 20});
        kept.push_back(Taken());
        next.online.clear();
    }
    for (const Count &count : kept) {
        ASSERT_TRUE(WriteCount(count, kPrices));
    }
    EXPECT_EQ(Rows("SELECT current_time, period, data FROM traffic_use "
                   "ORDER BY period, current_time"),
              (QStringList {u"2026-11-21|0|1"_s,
                            u"2026-11-22|0|2"_s,
                            u"2026-11-23|0|3"_s,
                            u"2026-11-21|1|1"_s,
                            u"2026-11-22|1|2"_s,
                            u"2026-11-23|1|3"_s}));
}

TEST_P(Counting, TheSameCountOnceMoreCountsNothing)
{
    Set(kAnna, "mode = 5, traflim = 10, trafperiod = 1, timelim = 5, timeperiod = 1");
    Does(kAnna, {3, 1, 0.5});
    const Count count = Taken();
    ASSERT_TRUE(WriteCount(count, kPrices));
    const QStringList before = EveryRow();
    const auto again = WriteCount(count, kPrices);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->received, 0U);
    EXPECT_EQ(again->users, 0);
    EXPECT_EQ(EveryRow(), before);
}

TEST_P(Counting, ANewGenerationBeginsAtNothing)
{
    CountFor(kAnna, {3});
    next.generation = 8;
    OfUser(kAnna).received = 1 << 20;
    Write();
    EXPECT_EQ(Rows(kTraffic), QStringList {u"1|0|4|0|0"_s});
    EXPECT_EQ(RowsOf("SELECT generation FROM service_counters"), QStringList {u"8"_s});
}

TEST_P(Counting, GatewaysCountSideBySide)
{
    CountFor(kAnna, {3});
    next.gatewayId = u"other"_s;
    CountFor(kAnna, {1}); // 4 megabytes on its counter
    EXPECT_EQ(Rows(kTraffic), QStringList {u"1|0|7|0|0"_s});
}

TEST_P(Counting, WhatWasCountedBeforeTheAddressWasSomebodysIsAccountedOnce)
{
    next.counters.push_back({AddressOf(kAnna), true, {}, 5 << 20, 0}); // nobody's yet
    EXPECT_EQ(Write().received, 0U);
    next.counters[0].owner = kAnna;
    Does(kAnna, {1});
    EXPECT_EQ(Write().received, 6U << 20);
    EXPECT_EQ(Write().received, 0U);
    EXPECT_EQ(Rows(kTraffic), QStringList {u"1|0|6|0|0"_s});
}

TEST_P(Counting, AnAddressThatMovesTakesOnlyWhatIsNewToItsNewOwner)
{
    CountFor(kAnna, {3});
    OfUser(kAnna).owner = kBert;
    Does(kAnna, {2}); // on the same address
    Write();
    EXPECT_EQ(Rows(kTraffic), (QStringList {u"1|0|3|0|0"_s, u"2|0|2|0|0"_s}));
}

TEST_P(Counting, WhoIsGoneOrNotMonitoredIsNotCounted)
{
    Set(kBert, "monitored = false");
    Does(kBert, {1});
    Does(UserId {77}, {1});
    EXPECT_EQ(Write().received, 0U);
    EXPECT_EQ(Rows(kTraffic), QStringList());
    EXPECT_EQ(Rows("SELECT COUNT(*) FROM service_counters"), QStringList {u"2"_s});
}

TEST_P(Counting, OfSeveralRecordsOfADayTheLastOneCounts)
{
    Run("INSERT INTO traffic_use (user_id, period, current_time, data) "
        "VALUES (1, 0, #2026/11/21#, 5)");
    Run("INSERT INTO traffic_use (user_id, period, current_time, data) "
        "VALUES (1, 0, #2026/11/21#, 7)");
    CountFor(kAnna, {1});
    EXPECT_EQ(Rows("SELECT data FROM traffic_use ORDER BY traf_id"),
              (QStringList {u"5"_s, u"8"_s}));
}

TEST_P(Counting, ManyUsersAreCountedInBatches)
{
    StagedRows many;
    for (quint32 user = 4; user <= 1500; ++user) {
        many.Add(user);
    }
    Execute("INSERT INTO users (username, group_id) SELECT s.k, 80 FROM STAGED (?) AS_ROWS s",
            many);
    SetGroup("mode = 1, traflim = 1000000, trafperiod = 1");
    for (quint32 user = 1; user <= 1500; ++user) {
        next.counters.push_back(
            {NetAddress::FromIpv4(0x0A010000 + user), false, UserId {user}, 1 << 20, user});
    }
    EXPECT_EQ(Write().users, 1500);
    EXPECT_EQ(Rows("SELECT COUNT(*), SUM(data), SUM(senddata) * 1048576 FROM traffic_use "
                   "WHERE period = 0"),
              QStringList {u"1500|1500|1125750"_s});
    EXPECT_EQ(Rows("SELECT data, senddata * 1048576 FROM traffic_use WHERE period = 1"),
              QStringList {u"1500|1125750"_s});

    // The turns that a batch leaves to others are no reason to make the next one smaller.
    StatementRecorder recorder;
    EXPECT_EQ(Write().users, 0);
    EXPECT_LT(recorder.Take().count(u"COMMIT"_s), 40);
}
