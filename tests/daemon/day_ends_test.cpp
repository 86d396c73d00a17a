#include "daemon/day_ends.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

class DayEndsKept : public testing::Test
{
protected:
    static Count CountOfDay(int day)
    {
        return {.gatewayId = u"gate"_s,
                .generation = 18446744073709551557ULL,
                .at = QDateTime(QDate(2026, 11, day), QTime(0, 0)),
                .counters =
                    {{*NetAddress::From(u"10.0.0.1"), false, UserId {1}, 9007199254740993ULL, 5},
                     {*NetAddress::From(u"fe80::1"), true, UserId {2}, 0, 18446744073709551615ULL}},
                .online = {{UserId {1}, 12.25}},
                .usedUp = {},
                .usedUpGroups = {}};
    }

    static void ExpectSame(const Count &read, const Count &written)
    {
        EXPECT_EQ(read.gatewayId, written.gatewayId);
        EXPECT_EQ(read.generation, written.generation);
        EXPECT_EQ(read.at, written.at);
        ASSERT_EQ(read.counters.size(), written.counters.size());
        for (size_t i = 0; i < read.counters.size(); ++i) {
            EXPECT_EQ(read.counters[i].address, written.counters[i].address);
            EXPECT_EQ(read.counters[i].unknown, written.counters[i].unknown);
            EXPECT_EQ(read.counters[i].owner, written.counters[i].owner);
            EXPECT_EQ(read.counters[i].received, written.counters[i].received);
            EXPECT_EQ(read.counters[i].sent, written.counters[i].sent);
        }
        ASSERT_EQ(read.online.size(), 1U);
        EXPECT_EQ(read.online.front().user, written.online.front().user);
        EXPECT_EQ(read.online.front().seconds, written.online.front().seconds);
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"day-ends.json"_s);
};

TEST_F(DayEndsKept, ComeBackToTheLastBitUntilTheyAreWritten)
{
    {
        DayEnds ends(path);
        EXPECT_TRUE(ends.Waiting().empty());
        ends.Add(CountOfDay(21));
        ends.Add(CountOfDay(22));
        EXPECT_FALSE(ends.Problem());
    }
    DayEnds again(path);
    ASSERT_EQ(again.Waiting().size(), 2U);
    ExpectSame(again.Waiting()[0], CountOfDay(21));
    ExpectSame(again.Waiting()[1], CountOfDay(22));
    again.Remove(1);
    ExpectSame(DayEnds(path).Waiting().at(0), CountOfDay(22));
    again.Remove(1);
    EXPECT_FALSE(QFile::exists(path));
    EXPECT_FALSE(again.Problem());
}

TEST_F(DayEndsKept, OfADamagedFileAreToldAndPutAside)
{
    for (const char *damaged : {"[{\"gateway\":", R"([{"counters": [{"address": "10.0.0."}]}])"}) {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(damaged) > 0);
        file.close();
        const DayEnds ends(path);
        EXPECT_TRUE(ends.Waiting().empty()) << damaged;
        EXPECT_TRUE(ends.Problem()) << damaged;
        EXPECT_FALSE(QFile::exists(path));
        EXPECT_TRUE(QFile::remove(path + u".damaged"_s)) << damaged;
    }
}

TEST_F(DayEndsKept, ThatCannotBeWrittenAreToldAndStillWait)
{
    DayEnds ends(folder.filePath(u"no such folder/day-ends.json"_s));
    ends.Add(CountOfDay(21));
    EXPECT_TRUE(ends.Problem());
    EXPECT_EQ(ends.Waiting().size(), 1U);
}
