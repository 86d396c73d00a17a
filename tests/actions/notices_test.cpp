// Word to the service: sent where the action puts it, not again when the action runs again, and
// corrected when it did not come about.
#include "actions/action_fixture.h"
#include "service/service_link.h"
#include "support/core/fake_service.h"
#include "support/core/private_bus.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kBlock[] = "UPDATE users SET blocked = true, blockreason = 3 WHERE user_id = (?)";

class NoticeTest : public ActionFixture
{
protected:
    void SetUp() override
    {
        ActionFixture::SetUp();
        service.OfferAccounting();
        link = ServiceLink::Create(bus.Connection());
        ASSERT_NE(link, nullptr);
    }

    [[nodiscard]] Outcome RunTold(const Body &body) { return Run(body, {}, link.get()); }

    // As "Block 1" and "Unblock 2".
    [[nodiscard]] QStringList Told()
    {
        return service.TakeCalls().replaceInStrings(u"User"_s, QString());
    }

    static void BlockAnna(ActionRun &run)
    {
        run.Lock(kAnna);
        run.TellBlocked(UserId(1));
        run.Write(kBlock, UserId(1));
    }

    PrivateBus bus;
    FakeService service {bus};
    std::unique_ptr<ServiceLink> link;
};
TB_ON_EVERY_ENGINE(NoticeTest);

TEST_P(NoticeTest, IsSentOnceWhereTheActionPutsIt)
{
    const Outcome outcome = RunTold([&](ActionRun &run) {
        EXPECT_TRUE(run.TellBlocked(UserId(1)));
        EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s)) << "before its row changes";
        run.Write(kBlock, UserId(1));
        EXPECT_TRUE(run.TellUnblocked(UserId(2)));
        EXPECT_TRUE(run.TellUnblocked(UserId(2)));
    });
    EXPECT_EQ(outcome.state, State::Done);
    EXPECT_TRUE(outcome.serviceTold);
    EXPECT_THAT(Told(), ElementsAre(u"Unblock 2"_s, u"Unblock 2"_s)) << "as often as it is told";
}

TEST_P(NoticeTest, IsNoneWithoutTheService)
{
    const Outcome outcome = Run([](ActionRun &run) {
        EXPECT_FALSE(run.TellBlocked(UserId(1)));
        run.Write(kBlock, UserId(1));
    });
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_FALSE(outcome.serviceTold);
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_P(NoticeTest, IsNoneOnceTheActionIsStopped)
{
    const Outcome outcome = RunTold([this](ActionRun &run) {
        driver->Refuse(1);
        run.Write(kBlock, UserId(1));
        EXPECT_FALSE(run.TellBlocked(UserId(1)));
        EXPECT_FALSE(run.TellUnblocked(UserId(2)));
    });
    EXPECT_EQ(outcome.state, State::NotDone);
    EXPECT_FALSE(outcome.serviceTold);
    EXPECT_THAT(Told(), IsEmpty());
}

TEST_P(NoticeTest, IsCorrectedByWhatTheRowSaysAfterARollback)
{
    Execute("UPDATE users SET blocked = true, blockreason = 1 WHERE user_id = 2");
    Execute(
        "INSERT INTO users (user_id, username, blocked, blockreason) VALUES (3, 'clara', 1, 4)");
    const Outcome outcome = RunTold([this](ActionRun &run) {
        for (const quint32 user : {2U, 1U, 99U, 3U}) {
            run.TellBlocked(UserId(user));
            run.Write(kBlock, UserId(user));
        }
        driver->Refuse(1);
        run.Write(kBlock, UserId(2));
    });
    EXPECT_EQ(outcome.state, State::NotDone);
    EXPECT_FALSE(outcome.serviceTold);
    EXPECT_THAT(Told(),
                ElementsAre(u"Block 2"_s,
                            u"Block 1"_s,
                            u"Block 99"_s,
                            u"Block 3"_s,
                            u"Unblock 1"_s,
                            u"Block 2"_s,
                            u"Unblock 3"_s))
        << "each once; nothing of a row that is gone, and only shown as blocked is not blocked";
}

TEST_P(NoticeTest, IsCorrectedAfterARefusedCommit)
{
    const QStringList statements = StatementsOf(BlockAnna);
    Execute("UPDATE users SET blocked = false WHERE user_id = 1");
    driver->Refuse(static_cast<int>(statements.indexOf(u"commit"_s)) + 1);
    EXPECT_EQ(RunTold(BlockAnna).state, State::NotDone);
    EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s, u"Unblock 1"_s));
}

TEST_P(NoticeTest, OfStatementsOfTheirOwnStands)
{
    const Outcome outcome = RunEach(
        [this](ActionRun &run) {
            run.TellBlocked(UserId(1));
            driver->Refuse(1);
            run.Write(kBlock, UserId(1));
        },
        link.get());
    EXPECT_TRUE(outcome.serviceTold);
    EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s));
}

class RepeatedNotice : public NoticeTest
{
protected:
    using Steps = QList<int>; // users; negative to unblock them

    // An action that loses against another one as long as there are further steps.
    [[nodiscard]] Body Losing(const QList<Steps> &runs)
    {
        return [this, runs, count = std::make_shared<int>(0)](ActionRun &run) {
            const int now = (*count)++;
            for (const int step : runs.at(now)) {
                const UserId user(static_cast<quint32>(std::abs(step)));
                EXPECT_TRUE(step > 0 ? run.TellBlocked(user) : run.TellUnblocked(user));
            }
            if (now + 1 < runs.size()) {
                driver->Conflict(1);
            }
            run.Write("UPDATE users SET mode = 1");
        };
    }
};
TB_ON_EVERY_SERVER(RepeatedNotice);

TEST_P(RepeatedNotice, IsNotSentAgain)
{
    const Outcome outcome = RunTold(Losing({{1, -2}, {1}, {1, -2, 1}}));
    EXPECT_TRUE(outcome.serviceTold);
    EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s, u"Unblock 2"_s, u"Block 1"_s));
}

TEST_P(RepeatedNotice, OfAnotherCourseIsSentWhereItIsNew)
{
    EXPECT_TRUE(RunTold(Losing({{1, 2}, {2, -1}})).IsDone());
    EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s, u"Block 2"_s, u"Unblock 1"_s));
}

TEST_P(RepeatedNotice, IsCorrectedWhenTheLastRunDidNotTellIt)
{
    const Outcome outcome = RunTold(Losing({{1, 2}, {}}));
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_FALSE(outcome.serviceTold);
    EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s, u"Block 2"_s, u"Unblock 1"_s, u"Unblock 2"_s));
}

// The first run told more than the last one, which meant the contrary.
TEST_P(RepeatedNotice, IsCorrectedWhenTheLastRunStoppedEarlier)
{
    Execute("UPDATE users SET blocked = true, blockreason = 3 WHERE user_id = 1");
    EXPECT_TRUE(RunTold(Losing({{1, -1}, {1}})).IsDone());
    EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s, u"Unblock 1"_s, u"Block 1"_s));
}

TEST_P(RepeatedNotice, IsNotCorrectedByWhatNobodyRead)
{
    const Outcome outcome = RunTold([this](ActionRun &run) {
        run.TellBlocked(UserId(1));
        driver->LoseBefore(1);
        driver->RefuseConnects(true);
        run.Write(kBlock, UserId(1));
    });
    EXPECT_EQ(outcome.state, State::NotDone);
    EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s));
}

TEST_P(RepeatedNotice, OfALostCommitIsCorrectedOnlyWhenItIsKnown)
{
    const auto commit = static_cast<int>(StatementsOf(BlockAnna).indexOf(u"commit"_s)) + 1;
    const auto reset = [] { Execute("UPDATE users SET blocked = false WHERE user_id = 1"); };
    reset();
    driver->LoseBefore(commit);
    EXPECT_EQ(RunTold(BlockAnna).state, State::NotDone);
    EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s, u"Unblock 1"_s));

    driver->LoseAfter(commit);
    const Outcome kept = RunTold(BlockAnna);
    EXPECT_TRUE(kept.IsDone());
    EXPECT_TRUE(kept.serviceTold);
    EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s));

    reset();
    driver->LoseAfter(commit);
    driver->RefuseConnects(true);
    EXPECT_EQ(RunTold(BlockAnna).state, State::Unknown);
    EXPECT_THAT(Told(), ElementsAre(u"Block 1"_s));
}

} // namespace
