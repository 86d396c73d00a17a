#include "demo/made_up_gateway.h"

#include <gtest/gtest.h>

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

TEST(MadeUpGateway, HandsOutWhatHasChangedAndEachSecondOnce)
{
    constexpr UserId kAnna {1};
    MadeUpGateway gateway;
    gateway.Add(kAnna, {Megabytes {1}, Megabytes {0.5}, Hours {0.25}});
    gateway.Add(kAnna, {Megabytes {2}, Megabytes {0}, Hours {0.25}});
    const Count first = gateway.At(QDateTime::currentDateTime());
    ASSERT_EQ(first.counters.size(), 1U);
    EXPECT_EQ(first.counters[0].received, 3U << 20);
    EXPECT_EQ(first.counters[0].sent, 1U << 19);
    EXPECT_EQ(first.online[0].seconds, 1800);
    gateway.TakeWritten();
    EXPECT_TRUE(gateway.At(first.at).counters.empty());
    gateway.Add(kAnna, {Megabytes {1}, {}, Hours {0.5}});
    const Count second = gateway.At(first.at);
    EXPECT_EQ(second.counters[0].received, 4U << 20) << "the counter goes on";
    EXPECT_EQ(second.online[0].seconds, 1800);
    EXPECT_NE(MadeUpGateway().At(first.at).generation, first.generation);
}
