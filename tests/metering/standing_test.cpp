// Who may send what: read of everybody at once, as the rules say of each.
#include "metering/standing.h"

#include "access/user_rules.h"
#include "db/demo_data.h"
#include "metering/account.h"
#include "metering_fixture.h"

using namespace Qt::StringLiterals;

namespace {

const Moment kSaturdayNoon {{2026, 11, 21}, QTime(12, 0)};

class StandingsRead : public MeteringFixture
{
protected:
    static Standings ReadAllStandings(const QSet<UserId> &loggedIn = {},
                                      const Moment &moment = kSaturdayNoon)
    {
        const auto read = ReadStandings(moment, kPrices, loggedIn);
        EXPECT_TRUE(read) << (read ? "" : qPrintable(read.error().text));
        return read.value_or(Standings());
    }

    static Standing OfAnna(const Moment &moment = kSaturdayNoon)
    {
        const Standings all = ReadAllStandings({}, moment);
        EXPECT_EQ(all.users.size(), 3U);
        return all.users.empty() ? Standing() : all.users.front();
    }
};

} // namespace

TB_ON_EVERY_ENGINE(StandingsRead);

// Everybody of the demonstration at several moments, together and one by one.
TEST_P(StandingsRead, IsTheSameReadTogetherAndOneByOne)
{
    Run("DELETE FROM users");
    const auto problem = FillWithDemoData(Dsn(), {200, 6, 40}, [](const QString &) {});
    ASSERT_FALSE(problem) << qPrintable(*problem);
    QSet<FactKind> reasons;
    for (const Moment &moment : {kSaturdayNoon, Moment {{2026, 11, 23}, QTime(9, 30)}}) {
        const TodayOverride today(moment.day);
        const Standings all = ReadAllStandings({UserId {4}}, moment);
        EXPECT_GT(all.users.size(), 150U);
        for (const Standing &standing : all.users) {
            const auto one =
                ReadStanding(standing.user, moment, kPrices, standing.user == UserId {4});
            ASSERT_TRUE(one && *one);
            EXPECT_EQ((*one)->user, standing) << standing.user.value;
            if (standing.sharedGroup.IsSet()) {
                EXPECT_EQ((*one)->groupLeftBytes, all.groupLeftBytes.at(standing.sharedGroup));
            }
            reasons.insert(standing.why);
        }
    }
    EXPECT_GE(reasons.size(), 4);
}

TEST_P(StandingsRead, OfAnUnmonitoredUserIsNone)
{
    Set(kAnna, "monitored = false");
    EXPECT_EQ(ReadAllStandings().users.size(), 2U);
    const auto one = ReadStanding(kAnna, kSaturdayNoon, kPrices, false);
    ASSERT_TRUE(one);
    EXPECT_FALSE(*one);
}
