// Which gateway counts under an id.
#include "metering/gateway_claim.h"

#include "support/core/engine_fixture.h"

#include <QTimeZone>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class GatewayClaims : public EngineFixture
{
protected:
    static ClaimOutcome Claim(const GatewayClaim &claim, int secondsLater = 0)
    {
        const auto outcome = ClaimGateway(claim, kNow.addSecs(secondsLater), 180s);
        EXPECT_TRUE(outcome);
        return outcome.value_or(ClaimOutcome::AnotherIsAlive);
    }

    static ClaimOutcome Renew(const GatewayClaim &claim, int secondsLater = 0)
    {
        const auto outcome = RenewClaim(claim, kNow.addSecs(secondsLater));
        EXPECT_TRUE(outcome);
        return outcome.value_or(ClaimOutcome::AnotherIsAlive);
    }

    static inline const QDateTime kNow {QDate(2026, 11, 21), QTime(12, 0), QTimeZone::utc()};
    const GatewayClaim east {u"house"_s, u"east"_s, 5};
    const GatewayClaim west {u"house"_s, u"west"_s, 7};
};

} // namespace

TB_ON_EVERY_ENGINE(GatewayClaims);

TEST_P(GatewayClaims, AreForOneThatIsAlive)
{
    EXPECT_EQ(Claim(east), ClaimOutcome::Ours);
    EXPECT_EQ(Claim(east, 1), ClaimOutcome::Ours) << "started again";
    EXPECT_EQ(Claim(west, 100), ClaimOutcome::AnotherIsAlive);
    EXPECT_EQ(Claim(west, -100), ClaimOutcome::AnotherIsAlive) << "its clock is behind";
    EXPECT_EQ(Claim({u"yard"_s, u"west"_s, 7}), ClaimOutcome::Ours) << "an id of its own";
    EXPECT_EQ(Renew(east, 150), ClaimOutcome::Ours);
    EXPECT_EQ(Claim(west, 300), ClaimOutcome::AnotherIsAlive);
    EXPECT_EQ(RowsOf("SELECT gateway, generation, instance, seen FROM service_gateways ORDER BY "
                     "gateway"),
              QStringList(
                  {u"house|5|east|2026-11-21T12:02:30Z"_s, u"yard|7|west|2026-11-21T12:00:00Z"_s}));
}

TEST_P(GatewayClaims, PassFromOneThatIsSilent)
{
    EXPECT_EQ(Claim(east), ClaimOutcome::Ours);
    EXPECT_EQ(Claim(west, 180), ClaimOutcome::Ours);
    EXPECT_EQ(Renew(east, 181), ClaimOutcome::AnotherIsAlive) << "it has come back";
    EXPECT_EQ(Renew(west, 181), ClaimOutcome::Ours);
}

TEST_P(GatewayClaims, AreGivenBackAtTheEnd)
{
    EXPECT_EQ(Claim(east), ClaimOutcome::Ours);
    EXPECT_TRUE(ReleaseClaim(west)) << "not its own";
    EXPECT_EQ(Claim(west, 1), ClaimOutcome::AnotherIsAlive);
    EXPECT_TRUE(ReleaseClaim(east));
    EXPECT_EQ(Claim(west, 1), ClaimOutcome::Ours);
}
