// When a day is over, by a clock that may be set.
#include "daemon/day_clock.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct ClockCase
{
    const char *name;
    QDateTime begun;
    QDateTime now;
    QList<QDateTime> ended; // the midnights that are told
    QString told;
};

QDateTime At(int day, int hour, int minute = 0)
{
    return QDateTime({2026, 11, day}, QTime(hour, minute));
}

} // namespace

TEST(DayClock, EndsDaysAndTellsOfAClockThatWasSetBack)
{
    const QString back =
        u"The clock was set back from 2026-11-21 to 2026-11-20: what is counted now goes to 2026-11-20."_s;
    const ClockCase cases[] = {
        {"the same day", At(21, 0), At(21, 23, 59), {}, {}},
        {"midnight", At(21, 23, 59), At(22, 0), {At(22, 0)}, {}},
        {"forward over three midnights", At(21, 12), At(24, 6), {At(24, 0)}, {}},
        {"back within the day", At(21, 12), At(21, 3), {}, {}},
        {"back over midnight", At(21, 1), At(20, 23), {}, back}};
    for (const ClockCase &each : cases) {
        QDateTime now = each.begun;
        DayClock clock([&now] { return now; });
        QList<QDateTime> ended;
        QObject::connect(&clock, &DayClock::DayEnded, &clock, [&ended](const QDateTime &midnight) {
            ended << midnight;
        });
        clock.Start();
        now = each.now;
        EXPECT_EQ(clock.Check(), each.told) << each.name;
        EXPECT_EQ(ended, each.ended) << each.name;
        EXPECT_EQ(clock.Check(), each.told) << each.name;
        EXPECT_EQ(ended, each.ended) << each.name << ", asked again";
    }
}
