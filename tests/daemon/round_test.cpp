// A round of the service's work on the database: what it reads anew, and when it need not.
#include "daemon/round.h"

#include "support/core/engine_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class Rounds : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO users (username, ip_addr, group_id, monitored, mode) "
                "VALUES ('anna', '10.77.0.1', 80, true, 0)");
        ASSERT_EQ(LastFailure(), std::nullopt);
        round.claim = {u"here"_s, u"machine"_s, 7};
        round.now = QDateTime({2026, 11, 21}, QTime(12, 0));
        Claim();
    }

    void Claim()
    {
        ASSERT_EQ(ClaimGateway(round.claim, round.now, std::chrono::seconds(60)),
                  ClaimOutcome::Ours);
    }

    RoundOutcome Run()
    {
        auto outcome = RunRound(round);
        EXPECT_TRUE(outcome) << (outcome ? "" : qPrintable(outcome.error().text));
        return outcome ? *std::move(outcome) : RoundOutcome();
    }

    // Until the engine is sure that nobody writes: one of them tells whole seconds.
    void KnowAll()
    {
        EXPECT_TRUE(IsTrueInTime([this] {
            const RoundOutcome outcome = Run();
            EXPECT_TRUE(outcome.known && outcome.known->standings.users.size() == 1);
            round.known = outcome.mark;
            return round.known.rests;
        }));
    }

    // What another test writes at the same server meanwhile may make a round read all the same.
    bool ReadsNothing(int rounds)
    {
        return IsTrueInTime([this, rounds] {
            round.known = {};
            KnowAll();
            for (int i = 0; i < rounds; ++i) {
                const RoundOutcome outcome = Run();
                if (outcome.known) {
                    return false;
                }
                round.known = outcome.mark;
            }
            return true;
        });
    }

    Round round;
};

} // namespace

TB_ON_EVERY_ENGINE(Rounds);

TEST_P(Rounds, ReadNothingAnewWhileNobodyWrites)
{
    EXPECT_TRUE(ReadsNothing(3));
    EXPECT_EQ(RowsOf("SELECT instance FROM service_gateways WHERE seen <> ''"),
              QStringList {u"machine"_s});
}

TEST_P(Rounds, ReadWhatTheConsoleHasWritten)
{
    KnowAll();
    RunBeside("UPDATE users SET blocked = true, blockreason = 3 WHERE user_id = 1");
    const RoundOutcome outcome = Run();
    ASSERT_TRUE(outcome.known);
    EXPECT_TRUE(outcome.known->standings.users.front().refused);
}

// Each of these is reason enough to read all, although nobody wrote.
TEST_P(Rounds, ReadAnewAfterWhatTheyWriteThemselves)
{
    KnowAll();
    const Round idle = round;
    const QDateTime later = round.now.addSecs(60);
    const NetAddress address = NetAddress::FromIpv4(0x0A4D0001);
    const Count count {.gatewayId = round.claim.gatewayId,
                       .generation = round.claim.generation,
                       .at = later,
                       .counters = {{address, false, UserId {1}, 1000, 500}},
                       .online = {},
                       .usedUp = {},
                       .usedUpGroups = {}};
    const std::function<void(Round &)> causes[] = {
        [&](Round &asked) { asked.counts = {count}; },
        [](Round &asked) { asked.beginsDay = true; },
        [](Round &asked) {
            asked.stations = {{u"10.77.0.9"_s, {}, u"gate"_s}};
        },
        [&](Round &asked) {
            asked.forgotten = {{address, false}};
        },
        [](Round &asked) { asked.known = {}; }};
    for (const auto &cause : causes) {
        round = idle;
        cause(round);
        EXPECT_TRUE(Run().known) << "cause " << &cause - causes;
    }
}

TEST_P(Rounds, GiveTheIdBackAlsoWhenNothingIsNew)
{
    EXPECT_TRUE(IsTrueInTime([this] {
        round.isLast = false;
        round.known = {};
        Claim();
        KnowAll();
        round.isLast = true;
        return !Run().known;
    }));
    EXPECT_EQ(RowsOf("SELECT seen FROM service_gateways"), QStringList {QString()});
}

// Who may what is read all the same, and the other workstation becomes a user.
TEST_P(Rounds, GoOnWithoutAWorkstationThatTheDatabaseRefuses)
{
    RunBeside("CREATE UNIQUE INDEX macs_once ON users (mac_addr)");
    const QString mac = u"001122334455"_s;
    round.stations = {{u"10.77.0.8"_s, mac, u"gate"_s}, {u"10.77.0.9"_s, mac, u"twin"_s}};
    const RoundOutcome outcome = Run();
    RunBeside(Engine() == u"mariadb" ? "DROP INDEX macs_once ON users" : "DROP INDEX macs_once");
    EXPECT_TRUE(outcome.known);
    EXPECT_EQ(outcome.stations.made.size(), 1);
    ASSERT_EQ(outcome.refusedStations.size(), 1);
    EXPECT_TRUE(outcome.refusedStations.front().startsWith(
        u"The workstation 10.77.0.9 cannot be written: "));
    EXPECT_EQ(RowsOf("SELECT username FROM users ORDER BY username"),
              (QStringList {u"anna"_s, u"gate"_s}));
}
