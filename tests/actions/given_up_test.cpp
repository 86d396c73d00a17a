// Actions on the session's own thread that do not answer, or are cancelled.
#include "actions/action_fixture.h"
#include "db/session_thread.h"
#include "service/service_link.h"
#include "support/core/fake_service.h"
#include "support/core/limits_scope.h"
#include "support/core/private_bus.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

constexpr int kPatience = 30000; // milliseconds

class GivenUpAction : public ActionFixture
{
protected:
    void SetUp() override
    {
        ActionFixture::SetUp();
        service.OfferAccounting();
        link = ServiceLink::Create(bus.Connection());
        session.emplace();
        session->Open(Dsn());
        EXPECT_TRUE(Await([](ActionRun &run) { run.Lock(kAnna); }).IsDone());
        (void)driver->Take();
    }

    void TearDown() override
    {
        session.reset();
        FaultyDriver::Release();
        EXPECT_TRUE(
            QTest::qWaitFor([] { return SessionThread::AbandonedCalls() == 0; }, kPatience));
        ActionFixture::TearDown();
    }

    void Start(const Body &body, std::optional<Outcome> &outcome)
    {
        session->Start(
            &context,
            [body, told = link] { return Run(body, {}, told.get()); },
            [&outcome](const Outcome &given) { outcome = given; });
    }

    [[nodiscard]] Outcome Await(const Body &body)
    {
        std::optional<Outcome> outcome;
        Start(body, outcome);
        return Await(outcome);
    }

    [[nodiscard]] static Outcome Await(const std::optional<Outcome> &outcome)
    {
        EXPECT_TRUE(QTest::qWaitFor([&outcome] { return outcome.has_value(); }, kPatience));
        return outcome.value();
    }

    QObject context;
    PrivateBus bus;
    FakeService service {bus};
    std::shared_ptr<const ServiceLink> link;
    std::optional<SessionThread> session;
};
TB_ON_EVERY_ENGINE(GivenUpAction);

TEST_P(GivenUpAction, IsNotDoneBeforeItsCommitAndUnknownAtIt)
{
    const LimitsScope limits({.answer = 400ms});
    const QStringList statements = StatementsOf(SetBothModes);
    const auto commit = static_cast<int>(statements.indexOf(u"commit"_s)) + 1;
    for (const int held : {2, commit - 1, commit}) {
        driver->Hold(held);
        const Outcome outcome = Await(SetBothModes);
        EXPECT_EQ(outcome.state, held == commit ? State::Unknown : State::NotDone) << held;
        ASSERT_THAT(outcome.failures, SizeIs(1));
        EXPECT_EQ(outcome.failures[0].kind, Kind::NotAnswered);
        FaultyDriver::Release();
        EXPECT_TRUE(
            QTest::qWaitFor([] { return SessionThread::AbandonedCalls() == 0; }, kPatience));
        EXPECT_EQ(Modes(),
                  held == commit ? QStringList({u"1|5"_s, u"2|5"_s})
                                 : QStringList({u"1|0"_s, u"2|0"_s}));
        EXPECT_TRUE(Await([](ActionRun &run) { run.Lock(kAnna); }).IsDone())
            << "on a new connection";
    }
}

TEST_P(GivenUpAction, TellsTheServiceNothingMore)
{
    const LimitsScope limits({.answer = 400ms});
    driver->Hold(2);
    const Outcome outcome = Await([](ActionRun &run) {
        run.Lock(kAnna);
        EXPECT_FALSE(run.TellBlocked(UserId(1)));
    });
    EXPECT_EQ(outcome.state, State::NotDone);
    FaultyDriver::Release();
    EXPECT_TRUE(QTest::qWaitFor([] { return SessionThread::AbandonedCalls() == 0; }, kPatience));
    EXPECT_EQ(service.TakeCalls(), QStringList());
}

TEST_P(GivenUpAction, ThatNeverBeganIsNotDone)
{
    driver->Hold(1);
    std::optional<Outcome> first;
    std::optional<Outcome> second;
    Start(SetBothModes, first);
    Start(SetBothModes, second);
    ASSERT_TRUE(FaultyDriver::IsHolding(30s));
    session->Cancel();
    FaultyDriver::Release();
    for (const Outcome &outcome : {Await(first), Await(second)}) {
        EXPECT_EQ(outcome.state, State::NotDone);
        EXPECT_EQ(outcome.failures.at(0).kind, Kind::Cancelled);
    }
    EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s));
}

// The cancel ends the action, not what has to be put right after it.
TEST_P(GivenUpAction, ThatIsCancelledTellsWhatHoldsInstead)
{
    std::optional<Outcome> outcome;
    Start(
        [this](ActionRun &run) {
            run.Lock(kAnna);
            EXPECT_TRUE(run.TellBlocked(UserId(1)));
            driver->Hold(1);
            run.Write(kSetMode, quint32 {5}, UserId(1));
        },
        outcome);
    ASSERT_TRUE(FaultyDriver::IsHolding(30s));
    session->Cancel();
    FaultyDriver::Release();
    EXPECT_EQ(Await(outcome).state, State::NotDone);
    EXPECT_EQ(outcome->failures.at(0).kind, Kind::Cancelled);
    EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s));
    EXPECT_EQ(service.TakeCalls(), (QStringList {u"BlockUser 1"_s, u"UnblockUser 1"_s}));
}

} // namespace
