// Actions of one transaction: all of it or nothing, whatever fails.
#include "actions/action_fixture.h"
#include "support/core/limits_scope.h"

#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

class OneTransaction : public ActionFixture
{ };
TB_ON_EVERY_ENGINE(OneTransaction);

TEST_P(OneTransaction, IsKeptAndTellsWhatChanged)
{
    const Outcome outcome = Run([](ActionRun &run) {
        run.Lock(kAnna);
        run.Watch(kAnnasLogins);
        EXPECT_TRUE(run.Write(kSetMode, quint32 {5}, UserId(1)));
        EXPECT_EQ(run.ChangedRows(), 1);
        EXPECT_TRUE(run.Write("UPDATE logins SET pwd = (?) WHERE userid = 1", u"secret"_s));
        EXPECT_TRUE(run.Write("INSERT INTO logins (login, userid) VALUES ((?), 1)", u"second"_s));
        EXPECT_TRUE(run.Write(kSetMode, quint32 {5}, UserId(99)));
        EXPECT_EQ(run.ChangedRows(), 0);
    });
    EXPECT_EQ(outcome.state, State::Done);
    EXPECT_TRUE(outcome.IsDone());
    EXPECT_THAT(outcome.failures, IsEmpty());
    EXPECT_FALSE(outcome.serviceTold);
    EXPECT_THAT(Modes(), ElementsAre(u"1|5"_s, u"2|0"_s));
    ASSERT_THAT(outcome.changes, SizeIs(3));
    EXPECT_EQ(outcome.changes[0], (Change {u"users"_s, u"1"_s, {u"mode=0"_s}, {u"mode=5"_s}}));
    EXPECT_EQ(outcome.changes[1],
              (Change {u"logins"_s, u"anna"_s, {u"pwd=***"_s}, {u"pwd=***"_s}}));
    EXPECT_EQ(outcome.changes[2].key, u"second"_s);
    EXPECT_THAT(outcome.changes[2].before, IsEmpty());
    EXPECT_THAT(outcome.changes[2].after, testing::Contains(u"login=second"_s));
    EXPECT_THAT(outcome.changes[2].after, testing::Contains(u"pwd=***"_s));
}

TEST_P(OneTransaction, TellsWhatIsGone)
{
    const Outcome outcome = Run([](ActionRun &run) {
        run.Lock(kAnnasLogins);
        run.Write("DELETE FROM logins WHERE userid = 1");
    });
    ASSERT_THAT(outcome.changes, SizeIs(1));
    EXPECT_THAT(outcome.changes[0].before, testing::Contains(u"login=anna"_s));
    EXPECT_THAT(outcome.changes[0].after, IsEmpty());
}

TEST_P(OneTransaction, KeepsNothingOfWhatFailsAnywhere)
{
    const QStringList statements = StatementsOf(SetBothModes);
    ASSERT_GE(statements.size(), 7) << "BEGIN, two locks, a read, two writes, COMMIT";
    for (int number = 1; number <= statements.size(); ++number) {
        (void)driver->Take();
        driver->Refuse(number);
        const Outcome outcome = Run(SetBothModes);
        EXPECT_EQ(outcome.state, State::NotDone) << number;
        ASSERT_THAT(outcome.failures, SizeIs(1)) << number;
        EXPECT_EQ(outcome.failures[0].kind, Kind::Refused) << number;
        EXPECT_EQ(outcome.failures[0].statement.toLower(), statements[number - 1].toLower())
            << number;
        EXPECT_THAT(outcome.changes, IsEmpty()) << number;
        EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s)) << number;
        EXPECT_FALSE(IsInTransaction());
        const QStringList sent = driver->Take();
        EXPECT_EQ(sent.size(), number + (number == 1 ? 0 : 1))
            << "nothing but its rollback follows";
        EXPECT_EQ(sent.constLast() == u"ROLLBACK"_s, number > 1);
    }
    EXPECT_EQ(Run(SetBothModes).state, State::Done);
}

TEST_P(OneTransaction, GoesOnInVainAfterAFailedRead)
{
    bool stopped = false;
    const Outcome outcome = Run([&](ActionRun &run) {
        driver->Refuse(1);
        const auto name = run.Take(
            ReadOne("SELECT username FROM users", [](const Row &row) { return row.Text(1); }));
        EXPECT_EQ(name, std::nullopt) << "as if there was none";
        stopped = run.IsStopped();
        run.Refuse(u"This user has been deleted meanwhile."_s); // which nobody knows
        EXPECT_FALSE(run.Write(kSetMode, quint32 {5}, UserId(1)));
        EXPECT_FALSE(run.Ask({u"key"_s, u"Sure?"_s}));
        (void)run.Take(Exists("SELECT nothing FROM nowhere"));
    });
    EXPECT_TRUE(stopped);
    EXPECT_EQ(outcome.state, State::NotDone);
    EXPECT_EQ(outcome.refusal, QString());
    EXPECT_THAT(outcome.questions, IsEmpty());
    ASSERT_THAT(outcome.failures, SizeIs(1)) << "what follows the failure is not told";
    EXPECT_EQ(outcome.failures[0].statement, u"SELECT username FROM users"_s);
}

// A body that does not look at a failure does not get on with it either.
TEST_P(OneTransaction, KeepsNothingWhenAFailureIsOverlooked)
{
    const Outcome outcome = Run([&](ActionRun &run) {
        run.Write(kSetMode, quint32 {5}, UserId(1));
        driver->Refuse(1);
        (void)Exists("SELECT username FROM users");
        run.Write(kSetMode, quint32 {5}, UserId(2));
    });
    EXPECT_EQ(outcome.state, State::NotDone);
    EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s));
}

TEST_P(OneTransaction, AsksBeforeItIsDone)
{
    const Question first {u"ip 10.0.0.1 of 7"_s, u"Take it over?"_s};
    const Question second {u"group"_s, u"Leave the group?"_s};
    const Body body = [&](ActionRun &run) {
        run.Lock(kAnna);
        const bool both = run.Ask(first);
        const bool agreed = run.Ask(second);
        EXPECT_EQ(run.Ask(first), both) << "it is one question";
        run.Write(kSetMode, quint32 {both && agreed ? 5U : 4U}, UserId(1));
    };
    Outcome outcome = Run(body);
    EXPECT_EQ(outcome.state, State::NeedsAnswers);
    EXPECT_EQ(outcome.questions, (QList<Question> {first, second}));
    EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s));
    EXPECT_FALSE(IsInTransaction());

    const Outcome refuses = Run([&](ActionRun &run) {
        if (!run.Ask(first)) {
            run.Refuse(u"As you wish."_s); // which nobody knows yet
        }
    });
    EXPECT_EQ(refuses.state, State::NeedsAnswers);

    outcome = Run(body, {{first.key, true}});
    EXPECT_EQ(outcome.questions, QList<Question> {second});
    EXPECT_EQ(Run(body, {{first.key, true}, {second.key, false}}).state, State::Done);
    EXPECT_THAT(Modes(), ElementsAre(u"1|4"_s, u"2|0"_s));
    EXPECT_EQ(Run(body, {{first.key, true}, {second.key, true}}).state, State::Done);
    EXPECT_THAT(Modes(), ElementsAre(u"1|5"_s, u"2|0"_s));
    EXPECT_EQ(Run(body, {{u"ip 10.0.0.1 of 8"_s, true}, {second.key, true}}).state,
              State::NeedsAnswers)
        << "the answer was to another one";
}

TEST_P(OneTransaction, IsRefusedForTheFirstReason)
{
    const Outcome outcome = Run([](ActionRun &run) {
        run.Write(kSetMode, quint32 {5}, UserId(1));
        run.Refuse(u"This group has been deleted meanwhile."_s);
        run.Refuse(u"This user has been deleted meanwhile."_s);
        (void)run.Ask({u"key"_s, u"Sure?"_s});
        EXPECT_FALSE(run.Write(kSetMode, quint32 {5}, UserId(2)));
    });
    EXPECT_EQ(outcome.state, State::Refused);
    EXPECT_EQ(outcome.refusal, u"This group has been deleted meanwhile."_s);
    EXPECT_THAT(outcome.failures, IsEmpty());
    EXPECT_THAT(outcome.changes, IsEmpty());
    EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s));
}

TEST_P(OneTransaction, KeepsOthersFromItsRows)
{
    int runs = 0;
    const Outcome outcome = Run([&](ActionRun &run) {
        ++runs;
        run.Lock(kAnna);
        DirectConnection other;
        ASSERT_TRUE(other.Open(Dsn()));
        if (Engine() != u"sqlite"_s) { // its driver waits five seconds whatever it is told
            const QString impatient = Engine() == u"postgresql"_s
                ? u"SET lock_timeout = 50"_s
                : u"SET innodb_lock_wait_timeout = 1"_s;
            ASSERT_TRUE(other.Run(impatient));
            EXPECT_FALSE(other.Run(u"UPDATE users SET mode = 1 WHERE user_id = 1"_s));
        }
        run.Write(kSetMode, quint32 {5}, UserId(1));
    });
    EXPECT_EQ(outcome.state, State::Done);
    EXPECT_EQ(runs, 1);
}

TEST_P(OneTransaction, TellsOfRowsThatOthersHoldAndDoesNotRunAgain)
{
    const LimitsScope limits({.lock = 1000ms});
    DisconnectDatabase();
    ASSERT_EQ(ConnectDatabase(Dsn().toUtf8().constData()), 1);
    DirectConnection holder;
    ASSERT_TRUE(holder.Open(Dsn()));
    ASSERT_TRUE(holder.Run(Engine() == u"sqlite"_s ? u"BEGIN IMMEDIATE"_s : u"BEGIN"_s)
                && holder.Run(u"UPDATE users SET mode = 1 WHERE user_id = 2"_s));
    int runs = 0;
    const Outcome outcome = Run([&runs](ActionRun &run) {
        ++runs;
        SetBothModes(run);
    });
    EXPECT_EQ(outcome.state, State::NotDone);
    ASSERT_THAT(outcome.failures, SizeIs(1));
    EXPECT_EQ(outcome.failures[0].kind, Kind::Locked);
    EXPECT_LE(runs, 1);
    ASSERT_TRUE(holder.Run(u"ROLLBACK"_s));
    EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s));
}

class Conflicts : public ActionFixture
{ };
TB_ON_EVERY_SERVER(Conflicts);

// The other one waits for the first row and holds the second: the action loses and runs once more.
TEST_P(Conflicts, LetTheActionRunAgain)
{
    Execute("INSERT INTO users (user_id, username) VALUES (3, 'clara')");
    Execute("INSERT INTO users (user_id, username) VALUES (4, 'dora')");
    if (Engine() == u"postgresql"_s) {
        Execute("SET deadlock_timeout = '10ms'"); // who looks first, loses
    }
    DirectConnection other;
    ASSERT_TRUE(other.Open(Dsn()) && other.Begin()
                && other.Run(u"UPDATE users SET mode = 2 WHERE user_id > 1"_s));
    std::thread waits;
    int runs = 0;
    const Outcome outcome = Run([&](ActionRun &run) {
        run.Lock(kAnna);
        if (++runs == 1) {
            waits = std::thread([&other] {
                EXPECT_TRUE(other.Run(u"UPDATE users SET mode = 2 WHERE user_id = 1"_s)
                            && other.Commit());
            });
            AwaitLockWait();
        }
        run.Lock(kBen);
        run.Write(kSetMode, quint32 {5}, UserId(1));
    });
    waits.join();
    EXPECT_EQ(outcome.state, State::Done);
    EXPECT_EQ(runs, 2);
    EXPECT_THAT(outcome.failures, IsEmpty());
    EXPECT_THAT(Modes(), ElementsAre(u"1|5"_s, u"2|2"_s, u"3|2"_s, u"4|2"_s));
    ASSERT_THAT(outcome.changes, SizeIs(1));
    EXPECT_EQ(outcome.changes[0].before, QStringList {u"mode=2"_s}) << "as the other one left it";
}

// Where a server tells of others only when it writes, or at its end.
TEST_P(Conflicts, AtAnyStatementLetTheActionRunAgain)
{
    const QStringList statements = StatementsOf(SetBothModes);
    for (int number = 1; number <= statements.size(); ++number) {
        driver->Conflict(number);
        EXPECT_EQ(Run(SetBothModes).state, State::Done) << number;
        EXPECT_THAT(Modes(), ElementsAre(u"1|5"_s, u"2|5"_s)) << number;
        Execute("UPDATE users SET mode = 0");
    }
}

TEST_P(Conflicts, ThatDoNotEndAreTold)
{
    const LimitsScope limits({.conflict = 300ms});
    int runs = 0;
    const auto start = std::chrono::steady_clock::now();
    const Outcome outcome = Run([&](ActionRun &run) {
        ++runs;
        run.Write(kSetMode, quint32 {5}, UserId(1));
        driver->Conflict(1);
        run.Write(kSetMode, quint32 {5}, UserId(2));
    });
    EXPECT_GE(runs, 3);
    EXPECT_LE(runs, 12) << "the pauses grow";
    EXPECT_LE(std::chrono::steady_clock::now() - start, 5s);
    EXPECT_EQ(outcome.state, State::NotDone);
    ASSERT_THAT(outcome.failures, SizeIs(1));
    EXPECT_EQ(outcome.failures[0].kind, Kind::Conflict);
    EXPECT_THAT(Modes(), ElementsAre(u"1|0"_s, u"2|0"_s));
}

} // namespace
