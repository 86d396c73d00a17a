#include "daemon/on_line_time.h"

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

constexpr UserId kAnna {1};
constexpr auto kGrace = 10s;

struct OnLineCase
{
    const char *name;
    std::vector<std::chrono::milliseconds> seen; // from the beginning
    double spent = 0; // seconds
    std::chrono::milliseconds looked {}; // when
    bool isOnLine = false;
};

} // namespace

TEST(OnLine, IsTheTimeBetweenPacketsWithinTheGrace)
{
    const OnLineCase cases[] {
        {"nothing sent", {}, 0, 5s, false},
        {"one packet", {3s}, 0, 13s, true},
        {"one packet, and the grace is over", {3s}, 0, 13001ms, false},
        {"a pause of the grace", {3s, 13s}, 10, 14s, true},
        {"a longer one", {3s, 13001ms}, 0, 14s, true},
        {"two stays", {0s, 4s, 30s, 32500ms}, 6.5, 33s, true},
        {"the grace itself does not count", {0s, 4s}, 4, 30s, false},
    };
    for (const OnLineCase &each : cases) {
        OnLineTime time(kGrace);
        const OnLineTime::Clock::time_point begin {};
        for (const auto moment : each.seen) {
            time.Note(kAnna, begin + moment);
        }
        EXPECT_DOUBLE_EQ(time.Pending(kAnna), each.spent) << each.name;
        const auto present = time.OnLineAt(begin + each.looked);
        EXPECT_EQ(!present.empty(), each.isOnLine) << each.name;
        const auto taken = time.Take(begin + each.looked);
        EXPECT_EQ(taken.empty() ? 0 : taken.front().seconds, each.spent) << each.name;
        EXPECT_TRUE(time.Take(begin + each.looked).empty()) << each.name;
    }
}

TEST(OnLine, GoesOnBehindWhatWasTakenAndKeepsWhatCameBack)
{
    OnLineTime time(kGrace);
    const OnLineTime::Clock::time_point begin {};
    time.Note(kAnna, begin);
    time.Note(kAnna, begin + 4s);
    const auto taken = time.Take(begin + 5s);
    ASSERT_EQ(taken.size(), 1U);
    EXPECT_EQ(taken.front().userId, kAnna);
    time.Note(kAnna, begin + 7s);
    EXPECT_DOUBLE_EQ(time.Pending(kAnna), 3);
    time.PutBack(taken);
    EXPECT_DOUBLE_EQ(time.Pending(kAnna), 7);
    time.SetGrace(1s);
    time.Note(kAnna, begin + 9s);
    EXPECT_DOUBLE_EQ(time.Pending(kAnna), 7);
}
