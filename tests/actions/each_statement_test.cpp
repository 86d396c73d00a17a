// Actions whose statements stand for themselves: what fails does not stop what follows.
#include "actions/action_fixture.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

void SetModes(ActionRun &run)
{
    run.Watch(kAnna);
    run.Write(kSetMode, quint32 {5}, UserId(1));
    run.Write(kSetMode, quint32 {5}, UserId(2));
}

class EachStatement : public ActionFixture
{ };
TB_ON_EVERY_ENGINE(EachStatement);

TEST_P(EachStatement, IsWrittenAtOnce)
{
    const Outcome outcome = RunEach([](ActionRun &run) {
        run.Watch(kAnna);
        EXPECT_TRUE(run.Write(kSetMode, quint32 {5}, UserId(1)));
        EXPECT_EQ(run.ChangedRows(), 1);
        EXPECT_THAT(Modes(), ElementsAre(u"1|5"_s, u"2|0"_s));
    });
    EXPECT_EQ(outcome.state, State::Done);
    EXPECT_THAT(driver->Take().filter(u"begin"_s, Qt::CaseInsensitive), IsEmpty());
    ASSERT_THAT(outcome.changes, SizeIs(1));
    EXPECT_EQ(outcome.changes[0], (Change {u"users"_s, u"1"_s, {u"mode=0"_s}, {u"mode=5"_s}}));
}

TEST_P(EachStatement, ThatFailsIsNamedAndTheOthersAreWritten)
{
    for (const int failing : {2, 3}) {
        Execute("UPDATE users SET mode = 0");
        driver->Refuse(failing);
        const Outcome outcome = RunEach(SetModes);
        EXPECT_EQ(outcome.state, State::Partly);
        ASSERT_THAT(outcome.failures, SizeIs(1));
        EXPECT_EQ(outcome.failures[0].statement, QLatin1StringView(kSetMode));
        EXPECT_EQ(outcome.failures[0].kind, Kind::Refused);
        EXPECT_TRUE(
            InWords(ActionId::SaveLogins, outcome).contains(u"\n\nThe database refused it.\n"_s));
        EXPECT_EQ(Modes(),
                  failing == 2 ? QStringList({u"1|0"_s, u"2|5"_s})
                               : QStringList({u"1|5"_s, u"2|0"_s}));
    }
}

TEST_P(EachStatement, ThatAllFailLeaveNothing)
{
    const Outcome outcome = RunEach([this](ActionRun &run) {
        for (const quint32 user : {1U, 2U}) {
            driver->Refuse(1);
            EXPECT_FALSE(run.Write(kSetMode, quint32 {5}, UserId(user)));
            EXPECT_FALSE(run.IsStopped());
        }
    });
    EXPECT_EQ(outcome.state, State::NotDone);
    EXPECT_THAT(outcome.failures, SizeIs(2));
    EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s));
}

TEST_P(EachStatement, StopsForAQuestionOrARefusal)
{
    const Outcome asks = RunEach([](ActionRun &run) {
        EXPECT_FALSE(run.Ask({u"key"_s, u"Sure?"_s}));
        EXPECT_FALSE(run.Write(kSetMode, quint32 {5}, UserId(1)));
    });
    EXPECT_EQ(asks.state, State::NeedsAnswers);
    EXPECT_THAT(asks.questions, SizeIs(1));
    const Outcome refuses = RunEach([](ActionRun &run) {
        run.Refuse(u"The service runs."_s);
        EXPECT_FALSE(run.Write(kSetMode, quint32 {5}, UserId(1)));
    });
    EXPECT_EQ(refuses.state, State::Refused);
    EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s));
    const Outcome stops = RunEach([](ActionRun &run) {
        run.Write(kSetMode, quint32 {5}, UserId(1));
        run.Refuse(u"The service runs."_s);
    });
    EXPECT_EQ(stops.state, State::Partly);
    EXPECT_EQ(stops.refusal, u"The service runs."_s);
}

class LostStatement : public ActionFixture
{
protected:
    static Result<bool> IsFive()
    {
        return Exists("SELECT user_id FROM users WHERE user_id = 1 AND mode = 5");
    }
};
TB_ON_EVERY_SERVER(LostStatement);

TEST_P(LostStatement, IsUnknownAndTheOthersAreWritten)
{
    for (const bool kept : {false, true}) {
        Execute("UPDATE users SET mode = 0");
        kept ? driver->LoseAfter(2) : driver->LoseBefore(2);
        const Outcome outcome = RunEach(SetModes);
        EXPECT_EQ(outcome.state, State::Partly);
        ASSERT_THAT(outcome.failures, SizeIs(1));
        EXPECT_EQ(outcome.failures[0].kind, Kind::OutcomeUnknown);
        EXPECT_EQ(Modes(),
                  kept ? QStringList({u"1|5"_s, u"2|5"_s}) : QStringList({u"1|0"_s, u"2|5"_s}));
    }
}

TEST_P(LostStatement, ThatIsTheOnlyOneIsUnknown)
{
    const Outcome outcome = RunEach([this](ActionRun &run) {
        driver->LoseBefore(1);
        run.Write(kSetMode, quint32 {5}, UserId(1));
    });
    EXPECT_EQ(outcome.state, State::Unknown);
}

TEST_P(LostStatement, IsKnownWhenItsRowTells)
{
    for (const bool kept : {false, true}) {
        Execute("UPDATE users SET mode = 0");
        const Outcome outcome = RunEach([&](ActionRun &run) {
            kept ? driver->LoseAfter(1) : driver->LoseBefore(1);
            EXPECT_EQ(run.WriteOrLook(IsFive, kSetMode, quint32 {5}, UserId(1)), kept);
        });
        EXPECT_EQ(outcome.state, kept ? State::Done : State::NotDone);
        EXPECT_EQ(outcome.failures.size(), kept ? 0 : 1);
        EXPECT_EQ(Modes().constFirst(), kept ? u"1|5"_s : u"1|0"_s);
        if (!kept) {
            EXPECT_EQ(outcome.failures[0].kind, Kind::ConnectionLost);
        }
    }
}

TEST_P(LostStatement, IsUnknownWhenItsRowCannotBeRead)
{
    const Outcome outcome = RunEach([this](ActionRun &run) {
        driver->LoseAfter(1);
        driver->RefuseConnects(true);
        EXPECT_FALSE(run.WriteOrLook(IsFive, kSetMode, quint32 {5}, UserId(1)));
    });
    EXPECT_EQ(outcome.state, State::Unknown);
    ASSERT_THAT(outcome.failures, SizeIs(1));
    EXPECT_EQ(outcome.failures[0].kind, Kind::OutcomeUnknown);
}

} // namespace
