// Which counters are accounted, and what is left out and forgotten of them.
#include "metering/counters.h"

#include "metering/gateway_claim.h"
#include "metering_fixture.h"
#include "support/core/test_data_source.h"

#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using namespace test_data_source;

namespace {

class Counters : public MeteringFixture
{
protected:
    [[nodiscard]] CountersByKey Accounted() const
    {
        const auto read = ReadCounters(next.gatewayId, next.generation);
        EXPECT_TRUE(read) << (read ? "" : qPrintable(read.error().text));
        return read.value_or(CountersByKey());
    }
};

const CounterKey kAnnas {NetAddress::FromIpv4(0x0A000001), false};
const CounterKey kBerts {NetAddress::FromIpv4(0x0A000002), false};

} // namespace

TB_ON_EVERY_ENGINE(Counters);

TEST_P(Counters, AreReadAsTheyWereLastAccounted)
{
    OfUser(kAnna).received = 123'456'789'012'345;
    OfUser(kAnna).sent = 7;
    Write();
    const CountersByKey accounted = Accounted();
    ASSERT_EQ(accounted.size(), 1);
    EXPECT_EQ(accounted[kAnnas].received, 123'456'789'012'345U);
    EXPECT_EQ(accounted[kAnnas].sent, 7U);
    EXPECT_EQ(accounted[kAnnas].owner, kAnna);
    next.generation = 1;
    EXPECT_TRUE(Accounted().isEmpty());
}

TEST_P(Counters, BelowWhatWasAccountedHaveNothingNew)
{
    OfUser(kAnna).received = 1000;
    OfUser(kAnna).sent = 1000;
    const Count older = Taken();
    OfUser(kAnna).received = 2000;
    Write();
    const auto again = WriteCount(older, kPrices);
    ASSERT_TRUE(again);
    EXPECT_EQ(again->received, 0U);
    EXPECT_EQ(Accounted()[kAnnas].received, 2000U);
}

TEST_P(Counters, ThatWereForgottenBeginAtNothing)
{
    OfUser(kAnna).received = 2000;
    OfUser(kBert).received = 2000;
    Write();
    ASSERT_TRUE(ForgetCounters(next.gatewayId, {kAnnas}));
    OfUser(kAnna).received = 500; // made anew
    EXPECT_EQ(Write().received, 500U);
    EXPECT_EQ(Accounted().size(), 2);
}

TEST_P(Counters, ThatTheKernelHasNoMoreAreForgottenAtTheStart)
{
    OfUser(kAnna).received = 2000;
    OfUser(kBert).received = 2000;
    OfUser(UserId {3}).received = 2000;
    Write();
    Count present = Taken();
    present.counters.erase(present.counters.begin()); // Anna's went
    present.counters.front().received = 100; // Bert's began anew
    ASSERT_TRUE(ReconcileCounters(present));
    EXPECT_EQ(Accounted().size(), 1);
    present.counters.front().received = 300;
    const auto counted = WriteCount(present, kPrices);
    ASSERT_TRUE(counted);
    EXPECT_EQ(counted->received, 300U);
}

TEST_P(Counters, ThatHaveNotChangedAreLeftOut)
{
    OfUser(kAnna).received = 2000;
    OfUser(kBert).received = 2000;
    Write();
    ChangedCounters changed(next.generation, Accounted());
    EXPECT_TRUE(changed.In(Taken()).counters.empty());
    OfUser(kBert).sent = 1;
    const Count count = changed.In(Taken());
    ASSERT_EQ(count.counters.size(), 1U);
    EXPECT_EQ(count.counters.front().address, kBerts.address);
    changed.Take(count);
    EXPECT_TRUE(changed.In(Taken()).counters.empty());
    changed.Forget({kBerts});
    EXPECT_EQ(changed.In(Taken()).counters.size(), 1U);
    next.generation = 5;
    EXPECT_EQ(changed.In(Taken()).counters.size(), 2U) << "of another generation nothing is known";
    changed.Take(Taken());
    EXPECT_TRUE(changed.In(Taken()).counters.empty());
}

class CountersOnServers : public Counters
{ };
TB_ON_EVERY_SERVER(CountersOnServers);

// What a session that was given up still does at the server is not done beside it once more.
TEST_P(CountersOnServers, OfACountThatStillRunsAreNotAccountedByTheNextOneToo)
{
    ASSERT_TRUE(ClaimGateway({next.gatewayId, u"here"_s, next.generation}, now, 1s));
    OfUser(kAnna).received = 1000;
    Write();
    OfUser(kAnna).received = 3000;
    DirectConnection holder;
    ASSERT_TRUE(holder.Open(Dsn()) && holder.Begin()
                && holder.Rows(u"SELECT traf_id FROM traffic_use WHERE user_id = 1 FOR UPDATE"_s));
    const Count count = Taken();
    quint64 byFirst = 0;
    std::thread first([&] {
        OpenSession(Dsn());
        byFirst = WriteCount(count, kPrices).value_or(Counted()).received;
        CloseSession();
    });
    AwaitLockWait();
    std::thread later([&holder] {
        AwaitLockWait(2);
        holder.Close();
    });
    const auto second = WriteCount(count, kPrices);
    first.join();
    later.join();
    EXPECT_EQ(byFirst, 2000U);
    ASSERT_TRUE(second) << qPrintable(second.error().text);
    EXPECT_EQ(second->received, 0U);
    EXPECT_EQ(Rows("SELECT data * 1048576 FROM traffic_use"), QStringList {u"3000"_s});
}
