// Where limits end, and how soon a block bites: asked with packets of the workstations.
#include "daemon/service_lab.h"
#include "service/service_link.h"
#include "support/lab/ruleset.h"

#include <QDeadlineTimer>
#include <QRandomGenerator>
#include <QTest>

#include <csignal>
#include <iostream>

using namespace Qt::StringLiterals;

namespace {

constexpr char kBlock[] = "SELECT blocked, blockreason FROM users WHERE user_id = 1";
constexpr int kAtOnce = 100; // milliseconds
constexpr int kOnceWritten = 500; // until what was written is enforced too
constexpr int kOnePeriod = 1400; // a second, and what a count may take
constexpr quint64 kMegabyte = 1 << 20;
constexpr quint64 kLargestPacket = 65536;

} // namespace

class ServiceLimits : public ServiceLab
{
protected:
    void Start()
    {
        ServiceLab::Start();
        link = ServiceLink::Create(bus->Connection());
        ASSERT_NE(link, nullptr);
    }

    // The user's received bytes when the limit has been reached and is written as the block's reason.
    static quint64 ReceivedAtTheEnd(quint64 limit)
    {
        const QDeadlineTimer patience(kPatience);
        while ((Accounted()[1].first + kLargestPacket < limit
                || RowsOf(kBlock) != QStringList(u"1|1"_s))
               && !patience.hasExpired()) {
            QTest::qWait(20);
        }
        EXPECT_EQ(RowsOf(kBlock), QStringList(u"1|1"_s));
        return Accounted()[1].first;
    }

    static void ExpectEndAt(quint64 limit)
    {
        EXPECT_LT(Download(1, static_cast<qint64>(2 * limit)), static_cast<qint64>(limit));
        const quint64 received = ReceivedAtTheEnd(limit);
        EXPECT_LE(received, limit);
        EXPECT_GE(received + kLargestPacket, limit);
    }

    // Blocks user 1 by word, and then not any more, so many times; `pause` comes before each block.
    void ExpectBlocksAtOnce(Probe &probe, int times, const std::function<void()> &pause)
    {
        qint64 longest = 0;
        for (int i = 0; i < times; ++i) {
            ASSERT_TRUE(probe.Passes());
            pause();
            link->BlockUser(UserId {1});
            const auto bitten = probe.Await(false, 1000);
            ASSERT_TRUE(bitten);
            longest = std::max(longest, *bitten);
            link->UnblockUser(UserId {1});
            ASSERT_TRUE(probe.Await(true, 1000));
        }
        std::cout << "the slowest of " << times << " blocks: " << longest << " ms\n";
        EXPECT_LE(longest, kAtOnce);
    }

    std::unique_ptr<ServiceLink> link;
};

class ServiceBlocks : public ServiceLimits
{ };

TB_ON_EVERY_ENGINE(ServiceLimits);
INSTANTIATE_TEST_SUITE_P(Engines, ServiceBlocks, testing::Values("sqlite"), EngineName);

TEST_P(ServiceLimits, EndToTheByteAndGoOnWhenRaised)
{
    AddUser(1, "mode = 1, traflim = 5");
    Start();
    ExpectEndAt(5 * kMegabyte);
    Probe probe(Lab(), Workstation(1), kThere);
    EXPECT_TRUE(probe.Await(false, kOnceWritten));

    Run("UPDATE users SET traflim = 6 WHERE user_id = 1"); // and word of it
    link->UnblockUser(UserId {1});
    EXPECT_TRUE(probe.Await(true, 500));
    ExpectEndAt(6 * kMegabyte);
    EXPECT_TRUE(probe.Await(false, kOnceWritten));

    Run("UPDATE users SET traflim = 7 WHERE user_id = 1"); // and no word of it
    EXPECT_TRUE(probe.Await(true, kOnePeriod));
    ExpectEndAt(7 * kMegabyte);
}

TEST_P(ServiceLimits, OfEachSizeEndToTheByte)
{
    quint64 limit = 0; // megabytes
    AddUser(1, "mode = 1, blocked = true, blockreason = 1");
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    EXPECT_FALSE(probe.Passes());
    for (const quint64 more :
         IsLongRun() ? std::vector<quint64> {5, 50, 500} : std::vector<quint64> {50}) {
        limit += more;
        Run("UPDATE users SET traflim = " + QByteArray::number(limit) + " WHERE user_id = 1");
        link->UnblockUser(UserId {1});
        EXPECT_TRUE(probe.Await(true, kOnePeriod));
        ExpectEndAt(limit * kMegabyte);
        EXPECT_TRUE(probe.Await(false, kOnceWritten));
        std::cout << "of " << limit << " Mb " << limit * kMegabyte - Accounted()[1].first
                  << " bytes were refused\n";
    }
}

// Credits of traffic and of money one behind the other, further ones with and without word of them, and a
// price that changes.
TEST_P(ServiceLimits, OfCreditsEndToTheByteToo)
{
    const auto setPrice = [this](const QByteArray &price) {
        Write(store.FileOf(ConfigKeyId::Price), "trafprice = \"" + price + "\"\n");
    };
    setPrice("1.0"); // money for each megabyte
    AddUser(1, "mode = 2");
    Run("INSERT INTO billing (mode, object_id, data, unlimited) VALUES (2, 1, 2, 1)");
    Run("INSERT INTO billing (mode, object_id, moneydata, unlimited) VALUES (2, 1, 3, 1)");
    Start();
    ExpectEndAt(5 * kMegabyte);
    Probe probe(Lab(), Workstation(1), kThere);
    EXPECT_TRUE(probe.Await(false, kOnceWritten));

    Run("INSERT INTO billing (mode, object_id, data, unlimited) VALUES (2, 1, 2, 1)");
    link->UnblockUser(UserId {1});
    EXPECT_TRUE(probe.Await(true, kOnceWritten));
    // What a credit lacked of the packet that was refused is not the next one's.
    ExpectEndAt(Accounted()[1].first + 2 * kMegabyte);

    setPrice("2.0");
    Signal(SIGHUP);
    Run("INSERT INTO billing (mode, object_id, moneydata, unlimited) VALUES (2, 1, 8, 1)");
    EXPECT_TRUE(probe.Await(true, kOnePeriod));
    ExpectEndAt(Accounted()[1].first + 4 * kMegabyte);
    EXPECT_EQ(RowsOf("SELECT closed FROM billing"), QStringList(4, u"1"_s));
}

TEST_P(ServiceLimits, OfAGroupIsSharedByItsMembers)
{
    Run("UPDATE groups SET mode = 1, traflim = 3 WHERE group_id = 80");
    AddUser(1);
    AddUser(2);
    Start();
    EXPECT_EQ(Download(1, kMegabyte), static_cast<qint64>(kMegabyte));
    EXPECT_LT(Download(2, 4 * kMegabyte), static_cast<qint64>(2 * kMegabyte));
    EXPECT_EQ(AwaitRows("SELECT blocked, blockreason FROM groups WHERE group_id = 80", {u"1|1"_s}),
              QStringList(u"1|1"_s));
    const BytesByUser bytes = Accounted();
    const quint64 received = bytes.at(1).first + bytes.at(2).first;
    EXPECT_LE(received, 3 * kMegabyte);
    EXPECT_GE(received + kLargestPacket, 3 * kMegabyte);
    EXPECT_EQ(RowsOf(kBlock), QStringList(u"0|0"_s));
    Probe probe(Lab(), Workstation(1), kThere);
    EXPECT_TRUE(probe.Await(false, kOnceWritten));
}

TEST_P(ServiceBlocks, BiteAtOnceByWordAndWithinAPeriodByTheRow)
{
    AddUser(1);
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    Run("UPDATE users SET blocked = true, blockreason = 3 WHERE user_id = 1");
    EXPECT_TRUE(probe.Await(false, kOnePeriod));
    Run("UPDATE users SET blocked = false, blockreason = 0 WHERE user_id = 1");
    EXPECT_TRUE(probe.Await(true, kOnePeriod));

    ExpectBlocksAtOnce(probe, IsLongRun() ? 100 : 20, [] {});
}

// Everybody sends all the time, so that each count is one of everybody.
TEST_P(ServiceBlocks, BiteAtOnceAlsoAmidTheCountOfManyUsers)
{
    const quint32 users = IsLongRun() ? 10000 : 500;
    AddUsers(users);
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    std::atomic<bool> stop = false;
    std::atomic<quint64> sent = 0;
    std::thread traffic([&] {
        const auto source =
            MakeSocket(Lab(), Place::Workstations, Transport::Udp, {u"0.0.0.0"_s, 4000});
        for (quint32 id = 2; !stop; id = id < users ? id + 1 : 2) {
            sent += SendFrom(source, kNetwork + id, {kThere, 4000}, 10) ? 1 : 0;
            if (id % 100 == 0) {
                std::this_thread::sleep_for(std::chrono::milliseconds(2));
            }
        }
    });
    ExpectBlocksAtOnce(probe, IsLongRun() ? 100 : 10, [] {
        QTest::qWait(QRandomGenerator::global()->bounded(20, 400));
    });
    stop = true;
    traffic.join();
    const auto counted = [] {
        quint64 bytes = 0;
        for (const auto &[user, each] : Accounted()) {
            bytes += user == 1 ? 0 : each.second;
        }
        return bytes;
    };
    EXPECT_TRUE(QTest::qWaitFor([&] { return counted() == Ipv4Bytes(10, 1) * sent; }, kPatience));
    EXPECT_EQ(counted(), Ipv4Bytes(10, 1) * sent);
}

// What no row says is over with the last look at the row.
TEST_P(ServiceBlocks, TheRowHoldsWhenTheNoticeHasHadItsTime)
{
    AddUser(1);
    AddUser(2, "blocked = true, blockreason = 3");
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    link->BlockUser(UserId {1});
    EXPECT_TRUE(probe.Await(false, 1000));
    EXPECT_TRUE(probe.Await(true, 4000));
    Probe other(Lab(), Workstation(2), kThere);
    EXPECT_FALSE(other.Passes());
    link->UnblockUser(UserId {2});
    EXPECT_TRUE(other.Await(true, 1000));
    EXPECT_TRUE(other.Await(false, 4000));
}

// Two of the month's seconds are left.
TEST_P(ServiceBlocks, ALimitOfTimeEndsWithinASecond)
{
    AddUser(1, "mode = 4, timelim = 1, timeperiod = 2");
    Run("INSERT INTO time_use (user_id, period, data) VALUES (1, 2, 3598.0 / 3600)");
    Start();
    Probe probe(Lab(), Workstation(1), kThere);
    EXPECT_TRUE(probe.Passes());
    EXPECT_TRUE(probe.Await(false, 5000));
    EXPECT_EQ(AwaitRows(kBlock, {u"1|2"_s}), QStringList(u"1|2"_s));
    const QStringList used = RowsOf("SELECT data * 3600 FROM time_use WHERE period = 2");
    ASSERT_EQ(used.size(), 1);
    EXPECT_GE(used.first().toDouble(), 3600);
    EXPECT_LE(used.first().toDouble(), 3601.2);
}

TEST_P(ServiceBlocks, ATableThatSomebodyRemovedIsThereAgainAtOnce)
{
    AddUser(1);
    AddUser(2, "blocked = true, blockreason = 3");
    Start();
    Probe counted(Lab(), Workstation(1), kThere);
    Probe refused(Lab(), Workstation(2), kThere);
    EXPECT_TRUE(counted.Passes());
    EXPECT_FALSE(refused.Passes());
    const BytesByUser before {{1, {0, counted.PassedBytes()}}};
    EXPECT_EQ(AwaitAccounted(before), before);
    ASSERT_TRUE(FlushRuleset());
    const auto back = refused.Await(false, 1000);
    ASSERT_TRUE(back);
    EXPECT_LE(*back, kAtOnce);
    AwaitLine(u"was made anew"_s);
    EXPECT_TRUE(counted.Passes());
    const BytesByUser after {{1, {0, counted.PassedBytes()}}};
    BytesByUser accounted = AwaitAccounted(after);
    accounted.erase(2); // what passed while there was no table, and while one was made
    EXPECT_EQ(accounted, after);
}
