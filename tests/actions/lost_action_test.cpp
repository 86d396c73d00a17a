// The connection is lost on the way of an action: it is not done, or it is, or nobody knows.
#include "actions/action_fixture.h"

#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class LostAction : public ActionFixture
{
protected:
    // The number of the action's COMMIT among its statements.
    [[nodiscard]] int CommitOf(const Body &body)
    {
        const auto number = static_cast<int>(StatementsOf(body).indexOf(u"commit"_s)) + 1;
        EXPECT_GT(number, 0);
        return number;
    }

    // Sees to it that the COMMIT of the next action loses its connection.
    void LoseCommit(const Body &body, bool kept)
    {
        const int number = CommitOf(body);
        kept ? driver->LoseAfter(number) : driver->LoseBefore(number);
    }

    // One that nothing can be told of afterwards.
    static void SetModeUnseen(ActionRun &run) { run.Write(kSetMode, quint32 {5}, UserId(1)); }

    static void ExpectUnknown(const Outcome &outcome)
    {
        EXPECT_EQ(outcome.state, State::Unknown);
        ASSERT_THAT(outcome.failures, SizeIs(1));
        EXPECT_EQ(outcome.failures[0].kind, Kind::OutcomeUnknown);
        EXPECT_THAT(outcome.changes, IsEmpty());
    }
};
TB_ON_EVERY_SERVER(LostAction);

TEST_P(LostAction, IsNotDoneBeforeItsCommit)
{
    const auto number = CommitOf(SetBothModes) - 1;
    for (int lost = 2; lost <= number; ++lost) {
        driver->LoseBefore(lost);
        const Outcome outcome = Run(SetBothModes);
        EXPECT_EQ(outcome.state, State::NotDone) << lost;
        ASSERT_THAT(outcome.failures, SizeIs(1)) << lost;
        EXPECT_EQ(outcome.failures[0].kind, Kind::ConnectionLost) << lost;
        EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s)) << lost;
    }
    EXPECT_EQ(Run(SetBothModes).state, State::Done) << "a second try is all it costs";
}

TEST_P(LostAction, IsDoneWhenTheConnectionWasLostBeforeIt)
{
    driver->LoseBefore(1);
    EXPECT_EQ(Run(SetBothModes).state, State::Done);
    EXPECT_THAT(Modes(), ElementsAre(u"1|5"_s, u"2|5"_s));
}

TEST_P(LostAction, IsNotDoneWhenItsRowsSaySo)
{
    LoseCommit(SetBothModes, false);
    const Outcome outcome = Run(SetBothModes);
    EXPECT_EQ(outcome.state, State::NotDone);
    ASSERT_THAT(outcome.failures, SizeIs(1));
    EXPECT_EQ(outcome.failures[0].kind, Kind::ConnectionLost);
    EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s));
    EXPECT_FALSE(IsInTransaction());
}

TEST_P(LostAction, IsDoneWhenItsRowsSaySo)
{
    LoseCommit(SetBothModes, true);
    const Outcome outcome = Run(SetBothModes);
    EXPECT_EQ(outcome.state, State::Done);
    EXPECT_THAT(outcome.failures, IsEmpty());
    EXPECT_THAT(outcome.changes, SizeIs(2));
    EXPECT_THAT(Modes(), ElementsAre(u"1|5"_s, u"2|5"_s));
}

TEST_P(LostAction, IsUnknownWhenItsRowsCannotBeRead)
{
    LoseCommit(SetBothModes, true);
    driver->RefuseConnects(true);
    ExpectUnknown(Run(SetBothModes));
}

TEST_P(LostAction, IsUnknownWhenNoRowTells)
{
    for (const bool kept : {false, true}) {
        LoseCommit(SetModeUnseen, kept);
        ExpectUnknown(Run(SetModeUnseen));
    }
    const Body elsewhere = [](ActionRun &run) {
        run.Lock(kBen);
        SetModeUnseen(run);
    };
    LoseCommit(elsewhere, true);
    ExpectUnknown(Run(elsewhere));
}

// Rows that nothing kept from changing: what does not stand there yet may still come.
TEST_P(LostAction, IsUnknownWhenItMayStillCome)
{
    const Body watches = [](ActionRun &run) {
        run.Watch(kAnna);
        SetModeUnseen(run);
    };
    LoseCommit(watches, false);
    ExpectUnknown(Run(watches));
    LoseCommit(watches, true);
    EXPECT_EQ(Run(watches).state, State::Done);

    const Body adds = [](ActionRun &run) {
        run.Write("INSERT INTO users (user_id, username) VALUES (7, 'gina')");
        run.WatchAdded({"users", "user_id", 7, "user_id"});
    };
    const int commit = CommitOf(adds);
    Execute("DELETE FROM users WHERE user_id = 7");
    driver->LoseBefore(commit);
    ExpectUnknown(Run(adds));
    driver->LoseAfter(commit);
    const Outcome kept = Run(adds);
    EXPECT_EQ(kept.state, State::Done);
    ASSERT_THAT(kept.changes, SizeIs(1));
    EXPECT_THAT(kept.changes[0].before, IsEmpty());
    EXPECT_EQ(kept.changes[0].key, u"7"_s);
}

TEST_P(LostAction, IsUnknownWhenSomebodyElseWasThereMeanwhile)
{
    LoseCommit(SetBothModes, true);
    driver->HoldConnects();
    std::thread somebody([] {
        ASSERT_TRUE(FaultyDriver::IsHolding(30s));
        RunBeside("UPDATE users SET mode = 3 WHERE user_id = 1");
        FaultyDriver::Release();
    });
    ExpectUnknown(Run(SetBothModes));
    somebody.join();
    EXPECT_THAT(Modes(), ElementsAre(u"1|3"_s, u"2|5"_s));
}

TEST_P(LostAction, IsDoneWhenThereWasNothingToKeep)
{
    const Body reads = [](ActionRun &run) {
        run.Lock(kAnna);
        EXPECT_TRUE(run.Take(Exists("SELECT username FROM users")));
    };
    LoseCommit(reads, false);
    EXPECT_EQ(Run(reads).state, State::Done);
}

} // namespace
