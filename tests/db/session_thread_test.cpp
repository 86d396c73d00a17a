// The session on its own thread: what it gives and where, and that nobody waits for what does not
// answer.
#include "db/session_thread.h"

#include "db/query.h"
#include "db/session.h"
#include "db/user_names.h"
#include "db/write.h"
#include "support/core/engine_fixture.h"
#include "support/core/faulty_driver.h"
#include "support/core/limits_scope.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QSignalSpy>
#include <QTest>
#include <QThread>

#include <gmock/gmock.h>
#include <random>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Kind = Failure::Kind;
using Patience = SessionThread::Patience;
using testing::ElementsAre;
using testing::IsEmpty;

// Tells what a piece of work that was given up may have left.
struct Trace
{
    bool isGivenUp = false;
    bool mayBeKept = false;
};

template <>
struct GivenUp<Trace>
{
    [[nodiscard]] static Trace As(const Failure &failure, bool mayBeKept)
    {
        Q_UNUSED(failure)
        return {true, mayBeKept};
    }
};

namespace {

constexpr char kBlock[] = "UPDATE users SET blocked = true WHERE user_id = (?)";
constexpr char kBlocked[] = "SELECT user_id FROM users WHERE blocked = 1";

// What one of the tests waits for in all.
constexpr int kPatience = 30000; // milliseconds

// Milliseconds that a machine may take which has other things to do.
constexpr int kLag = 4000;

Result<quint32> CountUsers()
{
    return ReadOne("SELECT count(*) FROM users", [](const Row &row) { return row.Integer(1); })
        .map([](const std::optional<quint32> &count) { return count.value_or(0); });
}

Result<qint64> Block(quint32 user)
{
    return WriteRows(kBlock, user);
}

class OwnThread : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        AddAnnaAndBen();
        driver.emplace(Dsn());
        threads = Threads();
        session.emplace();
        session->Open(Dsn());
        ASSERT_EQ(Await(CountUsers).value(), 2U);
        (void)driver->Take();
    }

    void TearDown() override
    {
        session.reset();
        driver.reset();
        EXPECT_TRUE(
            QTest::qWaitFor([] { return SessionThread::AbandonedCalls() == 0; }, kPatience));
        EXPECT_TRUE(QTest::qWaitFor([this] { return Threads() == threads; }, kPatience))
            << "a session leaves no thread behind";
        EngineFixture::TearDown();
    }

    // How many this process has.
    [[nodiscard]] static qsizetype Threads()
    {
        return QDir(u"/proc/self/task"_s).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size();
    }

    // What the work gives, once it has given it.
    template <typename Work>
    std::invoke_result_t<Work> Await(Work work, Patience patience = Patience::Bounded)
    {
        std::optional<std::invoke_result_t<Work>> value;
        session->Start(
            &context, std::move(work), [&value](const auto &given) { value = given; }, patience);
        EXPECT_TRUE(QTest::qWaitFor([&value] { return value.has_value(); }, kPatience));
        return value.value();
    }

    // Whether a log that others wrote can be written back and begun anew.
    [[nodiscard]] static bool CanTidyUp()
    {
        DirectConnection other;
        EXPECT_TRUE(other.Open(Dsn()) && other.Run(u"UPDATE users SET mode = mode"_s));
        return other.Rows(u"PRAGMA wal_checkpoint(TRUNCATE)"_s).value().value(0).value(0) == u"0"_s;
    }

    // Work that runs on the engine until it is stopped.
    [[nodiscard]] static Result<std::optional<QString>> RunSlowly()
    {
        const char *const query = Engine() == u"postgresql"_s ? "SELECT pg_sleep(60)"
            : Engine() == u"mariadb"_s                        ? "SELECT SLEEP(60)"
                                       : "WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 "
                                         "FROM n WHERE x < 1000000000) SELECT count(*) FROM n";
        return ReadOne(query, [](const Row &row) { return row.Text(1); });
    }

    QObject context;
    std::optional<FaultyDriver> driver;
    std::optional<SessionThread> session;
    qsizetype threads = 0; // before the session's
};
TB_ON_EVERY_ENGINE(OwnThread);

TEST_P(OwnThread, HoldsNothingOfWhatItReadInPart)
{
    if (Engine() != u"sqlite"_s) {
        return; // there a closed cursor holds nothing
    }
    EXPECT_TRUE(Await([] { return Exists("SELECT username FROM users"); }).value());
    EXPECT_TRUE(CanTidyUp());
}

TEST_P(OwnThread, DoesTheWorkAndTheOwnersThreadHearOfIt)
{
    QThread *worked = nullptr;
    QThread *heard = nullptr;
    session->Start(
        &context,
        [&worked] {
            worked = QThread::currentThread();
            return CountUsers();
        },
        [&heard](const Result<quint32> &) { heard = QThread::currentThread(); });
    EXPECT_TRUE(session->IsBusy());
    EXPECT_EQ(heard, nullptr) << "not within the call";
    ASSERT_TRUE(QTest::qWaitFor([&heard] { return heard != nullptr; }, kPatience));
    EXPECT_EQ(heard, QThread::currentThread());
    EXPECT_NE(worked, QThread::currentThread());
    EXPECT_FALSE(session->IsBusy());
    EXPECT_EQ(FaultyDriver::Connects(), 1);
}

TEST_P(OwnThread, DoesOnePieceAfterTheOther)
{
    const QSignalSpy idle(&*session, &SessionThread::BecameIdle);
    QList<int> worked;
    QList<int> heard;
    for (int i = 0; i < 50; ++i) {
        session->Start(
            &context,
            [&worked, i] {
                worked << i;
                return CountUsers();
            },
            [&heard, i](const Result<quint32> &) { heard << i; });
    }
    ASSERT_TRUE(QTest::qWaitFor([&idle] { return !idle.isEmpty(); }, kPatience));
    QList<int> expected(50);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(worked, expected);
    EXPECT_EQ(heard, expected);
    EXPECT_EQ(idle.size(), 1);
}

// What is called when the work is done belongs to the owner's thread, to its end.
class Owned
{
public:
    explicit Owned(QList<QThread *> &ends) : endings(&ends) { }
    Owned(const Owned &) = delete;
    Owned &operator=(const Owned &) = delete;
    ~Owned() { endings->append(QThread::currentThread()); }

private:
    QList<QThread *> *endings;
};

TEST_P(OwnThread, LeavesWhatIsCalledToItsOwner)
{
    QList<QThread *> endings;
    for (int i = 0; i < 200; ++i) {
        const auto owned = std::make_shared<Owned>(endings);
        Await([] { return Result<bool>(true); });
        session->Start(
            &context, [] { return Result<bool>(true); }, [owned](const Result<bool> &) {});
        if (i % 2 == 0) {
            session->Close();
            session->Open(Dsn());
        }
    }
    Await(CountUsers);
    EXPECT_THAT(endings,
                testing::AllOf(testing::SizeIs(200), testing::Each(QThread::currentThread())));
}

TEST_P(OwnThread, TellsNobodyWhoIsGone)
{
    auto gone = std::make_unique<QObject>();
    bool heard = false;
    session->Start(gone.get(), CountUsers, [&heard](const Result<quint32> &) { heard = true; });
    gone.reset();
    EXPECT_EQ(Await(CountUsers).value(), 2U);
    EXPECT_FALSE(heard);
}

// A message box over a list does not keep the next one from being filled.
TEST_P(OwnThread, GoesOnWhileItsOwnerIsBusyWithAValue)
{
    bool nested = false;
    bool second = false;
    session->Start(&context, CountUsers, [&](const Result<quint32> &) {
        nested = QTest::qWaitFor([&second] { return second; }, kPatience);
    });
    session->Start(&context, CountUsers, [&second](const Result<quint32> &) { second = true; });
    ASSERT_TRUE(QTest::qWaitFor([&second] { return second; }, kPatience));
    EXPECT_TRUE(nested);
}

TEST_P(OwnThread, GivesUpACallThatDoesNotAnswer)
{
    const LimitsScope limits({.answer = 400ms});
    driver->Hold(1);
    const QElapsedTimer timer = [] {
        QElapsedTimer t;
        t.start();
        return t;
    }();
    const auto given = Await(CountUsers);
    ASSERT_FALSE(given);
    EXPECT_EQ(given.error().kind, Kind::NotAnswered);
    EXPECT_LT(timer.elapsed(), kLag);
    EXPECT_EQ(SessionThread::AbandonedCalls(), 1);
    EXPECT_EQ(Await(CountUsers).value(), 2U);
    EXPECT_EQ(FaultyDriver::Connects(), 2);
    FaultyDriver::Release();
}

// The call comes back when nobody waits for it any more: nothing of it is kept, and no lock is left.
TEST_P(OwnThread, LeavesNothingOfWhatWasGivenUp)
{
    const LimitsScope limits({.answer = 400ms});
    std::atomic<bool> ended = false;
    const auto work = [&ended]() -> Result<qint64> {
        const auto begun = transaction::Begin();
        auto done = begun ? Block(1) : tl::unexpected(begun.error());
        if (done) {
            done = Block(2);
        }
        const auto last = done ? Block(1) : done;
        EXPECT_FALSE(last);
        EXPECT_FALSE(transaction::Commit());
        transaction::Rollback();
        ended = true;
        return done;
    };
    driver->Hold(3);
    int heard = 0;
    session->Start(&context, work, [&heard](const Result<qint64> &given) {
        ++heard;
        EXPECT_EQ(given.error().kind, Kind::NotAnswered);
    });
    ASSERT_TRUE(QTest::qWaitFor([&heard] { return heard == 1; }, kPatience));
    const auto sent = driver->Take();
    FaultyDriver::Release();
    ASSERT_TRUE(QTest::qWaitFor([&ended] { return ended.load(); }, kPatience));
    EXPECT_EQ(Await([] { return Block(1); }).value(), 1) << "its lock is gone";
    EXPECT_THAT(RowsOf(kBlocked), ElementsAre(u"1"_s));
    EXPECT_EQ(driver->Take().filter(u"update users"_s).size(), 1) << "it sent nothing more";
    EXPECT_EQ(heard, 1);
}

TEST_P(OwnThread, WaitsWithoutEndForWhatMayTakeLong)
{
    const LimitsScope limits({.answer = 50ms});
    driver->Hold(1);
    bool heard = false;
    session->Start(
        &context,
        CountUsers,
        [&heard](const Result<quint32> &given) {
            heard = true;
            EXPECT_EQ(given.value(), 2U);
        },
        Patience::Endless);
    QTest::qWait(300);
    EXPECT_FALSE(heard);
    FaultyDriver::Release();
    ASSERT_TRUE(QTest::qWaitFor([&heard] { return heard; }, kPatience));
    EXPECT_EQ(FaultyDriver::Connects(), 1);
}

TEST_P(OwnThread, EndsAStatementThatIsCancelled)
{
    for (int i = 0; i < 3; ++i) {
        std::optional<Result<std::optional<QString>>> value;
        session->Start(
            &context, RunSlowly, [&value](const auto &given) { value = given; }, Patience::Endless);
        const QRegularExpression slow(u"sleep|recursive"_s,
                                      QRegularExpression::CaseInsensitiveOption);
        while (i > 0 && driver->Take().filter(slow).isEmpty()) {
            QTest::qWait(30);
        }
        QElapsedTimer timer;
        timer.start();
        session->Cancel();
        ASSERT_TRUE(QTest::qWaitFor([&value] { return value.has_value(); }, kPatience));
        EXPECT_LT(timer.elapsed(), kLag);
        ASSERT_FALSE(*value);
        EXPECT_EQ(value->error().kind, Kind::Cancelled);
        EXPECT_EQ(Await(CountUsers).value(), 2U);
    }
    // What was asked to stop leaves its connection; the first may have been cancelled before it began.
    EXPECT_GE(FaultyDriver::Connects(), 2);
}

TEST_P(OwnThread, EndsAWaitForALockThatIsCancelled)
{
    DirectConnection holder;
    ASSERT_TRUE(holder.Open(Dsn()));
    ASSERT_TRUE(holder.Run(Engine() == u"sqlite"_s ? u"BEGIN IMMEDIATE"_s : u"BEGIN"_s));
    ASSERT_TRUE(holder.Run(u"UPDATE users SET mode = 1 WHERE user_id = 1"_s));
    std::optional<Result<qint64>> value;
    session->Start(
        &context,
        []() -> Result<qint64> {
            if (const auto begun = transaction::Begin(); !begun) {
                return tl::unexpected(begun.error());
            }
            const auto done = Block(1);
            transaction::Rollback();
            return done;
        },
        [&value](const Result<qint64> &given) { value = given; });
    QTest::qWait(150);
    EXPECT_FALSE(value);
    QElapsedTimer timer;
    timer.start();
    session->Cancel();
    ASSERT_TRUE(QTest::qWaitFor([&value] { return value.has_value(); }, kPatience));
    EXPECT_LT(timer.elapsed(), kLag);
    EXPECT_EQ(value->error().kind, Kind::Cancelled);
    ASSERT_TRUE(holder.Run(u"ROLLBACK"_s));
    EXPECT_EQ(Await([] { return Block(1); }).value(), 1);
}

TEST_P(OwnThread, DropsWhatWaitsWhenItIsCancelled)
{
    driver->Hold(1);
    QList<Kind> heard;
    std::atomic<int> worked = 0;
    for (int i = 0; i < 3; ++i) {
        session->Start(
            &context,
            [&worked] {
                ++worked;
                return CountUsers();
            },
            [&heard](const Result<quint32> &given) { heard << given.error().kind; });
    }
    ASSERT_TRUE(FaultyDriver::IsHolding(5s));
    session->Cancel();
    EXPECT_THAT(heard, IsEmpty()) << "not within the call";
    FaultyDriver::Release();
    ASSERT_TRUE(QTest::qWaitFor([&heard] { return heard.size() == 3; }, kPatience));
    EXPECT_THAT(heard, testing::Each(Kind::Cancelled));
    EXPECT_EQ(worked, 1);
    EXPECT_EQ(Await(CountUsers).value(), 2U) << "what comes later is not cancelled";
}

TEST_P(OwnThread, GivesUpWhatDoesNotAnswerToACancel)
{
    const LimitsScope limits({.cancel = 150ms});
    for (const bool cancelHangs : {false, true}) {
        driver->Hold(1);
        if (cancelHangs) {
            driver->HoldCancels();
        }
        std::optional<Result<quint32>> value;
        session->Start(
            &context,
            CountUsers,
            [&value](const Result<quint32> &given) { value = given; },
            Patience::Endless);
        ASSERT_TRUE(FaultyDriver::IsHolding(5s));
        QElapsedTimer timer;
        timer.start();
        session->Cancel();
        ASSERT_TRUE(QTest::qWaitFor([&value] { return value.has_value(); }, kPatience));
        EXPECT_GE(timer.elapsed(), 140);
        EXPECT_LT(timer.elapsed(), kLag);
        EXPECT_EQ(value->error().kind, Kind::Cancelled);
        EXPECT_EQ(Await(CountUsers).value(), 2U);
        FaultyDriver::Release();
    }
    EXPECT_EQ(FaultyDriver::Connects(), 3);
}

// The statement was done when it was cancelled: what it gave is gone, which is not nothing.
TEST_P(OwnThread, TakesALostAnswerForNoneThatWasGiven)
{
    const auto cancelledAtItsEnd = [this](int number, auto work) {
        EXPECT_EQ(Await(CountUsers).value(), 2U); // on a connection of its own
        std::optional<std::invoke_result_t<decltype(work)>> value;
        driver->HoldAnswer(number);
        session->Start(
            &context, work, [&value](const auto &given) { value = given; }, Patience::Endless);
        EXPECT_TRUE(FaultyDriver::IsHolding(5s));
        const int enough = FaultyDriver::Cancels() + 2; // so that the first has come to its end
        session->Cancel();
        EXPECT_TRUE(
            QTest::qWaitFor([enough] { return FaultyDriver::Cancels() >= enough; }, kPatience));
        FaultyDriver::Release();
        EXPECT_TRUE(QTest::qWaitFor([&value] { return value.has_value(); }, kPatience));
        return value.value();
    };
    const auto read = cancelledAtItsEnd(1, CountUsers);
    ASSERT_FALSE(read) << *read;
    EXPECT_EQ(read.error().kind, Kind::Cancelled);

    const auto written = cancelledAtItsEnd(1, [] { return Block(1); });
    EXPECT_TRUE(written ? *written == 1 : written.error().kind == Kind::OutcomeUnknown);
    EXPECT_THAT(RowsOf(kBlocked), ElementsAre(u"1"_s));

    const auto undone = cancelledAtItsEnd(2, [] {
        return transaction::Begin().and_then([](bool) {
            (void)Block(2);
            const auto done = Block(2);
            transaction::Rollback();
            return done;
        });
    });
    ASSERT_FALSE(undone);
    EXPECT_EQ(undone.error().kind, Kind::Cancelled);
    EXPECT_THAT(RowsOf(kBlocked), ElementsAre(u"1"_s));
}

// Cancels at any time reach what they are for, and nothing after it.
TEST_P(OwnThread, SurvivesCancelsAtAnyTime)
{
    std::mt19937 random(4711); // NOLINT: the same at every run
    const auto read = [] {
        return ReadAll(
                   "SELECT a.user_id, b.name FROM users a, groups b, protocols c, protocols d, ports e "
                   "ORDER BY e.port_id",
                   [](const Row &row) { return row.Integer(1); })
            .map([](const auto &rows) { return rows.size(); });
    };
    const auto all = Await(read).value();
    ASSERT_GT(all, 5000U);
    int cancelled = 0;
    for (int i = 0; i < 40; ++i) {
        std::optional<Result<size_t>> value;
        session->Start(&context, read, [&value](const auto &given) { value = given; });
        QTest::qSleep(static_cast<int>(random() % 12));
        session->Cancel();
        const auto next = Await(read);
        ASSERT_TRUE(value);
        if (*value) {
            EXPECT_EQ(**value, all);
        } else {
            EXPECT_EQ(value->error().kind, Kind::Cancelled) << qPrintable(value->error().text);
            ++cancelled;
        }
        ASSERT_TRUE(next) << qPrintable(next.error().text);
        EXPECT_EQ(*next, all);
    }
    EXPECT_GT(cancelled, 0);
}

TEST_P(OwnThread, TellsWhetherSomethingMayBeKept)
{
    const LimitsScope limits({.answer = 300ms});
    const auto inTransaction = [] {
        if (transaction::Begin()) {
            (void)CountUsers();
            (void)Block(1);
            (void)transaction::Commit();
        }
        return Trace();
    };
    const auto alone = [] {
        (void)CountUsers();
        (void)Block(1);
        return Trace();
    };
    const auto heldAt = [&](int number, auto work) {
        (void)Await(CountUsers); // on a new connection, if need be
        driver->Hold(number);
        const Trace trace = Await(work);
        EXPECT_TRUE(trace.isGivenUp);
        FaultyDriver::Release();
        return trace.mayBeKept;
    };
    EXPECT_FALSE(heldAt(1, inTransaction)) << "BEGIN";
    EXPECT_FALSE(heldAt(2, inTransaction)) << "SELECT";
    EXPECT_FALSE(heldAt(3, inTransaction)) << "UPDATE";
    EXPECT_TRUE(heldAt(4, inTransaction)) << "COMMIT";
    EXPECT_FALSE(heldAt(1, alone)) << "SELECT";
    EXPECT_TRUE(heldAt(2, alone)) << "UPDATE";
}

TEST_P(OwnThread, IsClosedWithoutWaitingForACall)
{
    driver->Hold(1);
    bool heard = false;
    session->Start(&context, CountUsers, [&heard](const Result<quint32> &) { heard = true; });
    session->Start(&context, CountUsers, [&heard](const Result<quint32> &) { heard = true; });
    ASSERT_TRUE(FaultyDriver::IsHolding(5s));
    QElapsedTimer timer;
    timer.start();
    session->Close();
    EXPECT_LT(timer.elapsed(), 1000);
    EXPECT_FALSE(session->IsBusy());
    EXPECT_EQ(SessionThread::AbandonedCalls(), 1);
    timer.start();
    session.reset();
    EXPECT_LT(timer.elapsed(), 1000);
    FaultyDriver::Release();
    QTest::qWait(50);
    EXPECT_FALSE(heard);
}

TEST_P(OwnThread, IsDestroyedWithoutWaitingForACall)
{
    driver->Hold(1);
    driver->HoldCancels();
    session->Start(&context, CountUsers, [](const Result<quint32> &) { FAIL(); });
    ASSERT_TRUE(FaultyDriver::IsHolding(5s));
    QElapsedTimer timer;
    timer.start();
    session.reset();
    EXPECT_LT(timer.elapsed(), 1000);
    FaultyDriver::Release();
}

TEST_P(OwnThread, TellsWhoeverComesBeforeItWasOpened)
{
    session->Close();
    const auto given = Await(CountUsers);
    EXPECT_EQ(given.error().kind, Kind::ConnectionLost);
    session->Open(Dsn());
    EXPECT_EQ(Await(CountUsers).value(), 2U);
}

TEST_P(OwnThread, OpensAConnectionThatWasLostAfterPausesThatGrow)
{
    const LimitsScope limits({.firstPause = 50ms, .longestPause = 200ms});
    session->Open(Dsn());
    Await(CountUsers);
    const QSignalSpy changes(&*session, &SessionThread::ConnectionChanged);
    EXPECT_TRUE(session->IsConnected());
    driver->RefuseConnects(true);
    session->Close();
    const int before = FaultyDriver::Connects();
    session->Open(Dsn());
    ASSERT_TRUE(QTest::qWaitFor([this] { return !session->IsConnected(); }, kPatience));
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(
        QTest::qWaitFor([before] { return FaultyDriver::Connects() == before + 4; }, kPatience));
    EXPECT_GE(timer.elapsed(), 320) << "50, 100 and 200 ms";
    EXPECT_EQ(Await(CountUsers).error().kind, Kind::ConnectionLost);
    ASSERT_EQ(changes.size(), 1) << "it is told once";
    EXPECT_EQ(changes[0][0], false);

    driver->RefuseConnects(false);
    ASSERT_TRUE(QTest::qWaitFor([this] { return session->IsConnected(); }, kPatience));
    ASSERT_EQ(changes.size(), 2);
    EXPECT_EQ(changes[1][0], true);
    EXPECT_EQ(Await(CountUsers).value(), 2U);
}

TEST_P(OwnThread, OpensAConnectionAtOnceWhenAskedTo)
{
    const LimitsScope limits({.firstPause = 60s});
    driver->RefuseConnects(true);
    session->Open(Dsn());
    EXPECT_EQ(Await(CountUsers).error().kind, Kind::ConnectionLost);
    driver->RefuseConnects(false);
    EXPECT_EQ(Await(CountUsers).error().kind, Kind::ConnectionLost) << "in the pause";
    session->Reopen();
    ASSERT_TRUE(QTest::qWaitFor([this] { return session->IsConnected(); }, kPatience));
    EXPECT_EQ(Await(CountUsers).value(), 2U);
}

TEST_P(OwnThread, TriesAtOneConnectionAtATime)
{
    const LimitsScope limits({.connect = 100ms, .firstPause = 100ms, .longestPause = 300ms});
    driver->HoldConnects();
    session->Open(Dsn());
    const int before = FaultyDriver::Connects();
    QTest::qWait(50);
    for (int i = 0; i < 5; ++i) {
        session->Reopen();
    }
    session->Cancel();
    EXPECT_FALSE(session->IsConnected()) << "nobody waits for it any longer";
    QTest::qWait(600); // three hosts get their time; then a pause
    EXPECT_FALSE(session->IsConnected());
    EXPECT_LE(FaultyDriver::Connects() - before, 3);
    EXPECT_EQ(Await(CountUsers).error().kind, Kind::ConnectionLost);
    FaultyDriver::Release();
    ASSERT_TRUE(QTest::qWaitFor([this] { return session->IsConnected(); }, kPatience));
    EXPECT_EQ(Await(CountUsers).value(), 2U);
}

class OwnThreadOfServer : public OwnThread
{ };
TB_ON_EVERY_SERVER(OwnThreadOfServer);

TEST_P(OwnThreadOfServer, TellsThatTheConnectionIsLostAndIsBack)
{
    const LimitsScope limits({.firstPause = 50ms});
    const QSignalSpy changes(&*session, &SessionThread::ConnectionChanged);
    driver->LoseBefore(1);
    EXPECT_EQ(Await(CountUsers).value(), 2U) << "asked again";
    EXPECT_TRUE(changes.isEmpty()) << "nobody has to know";
    driver->RefuseConnects(true);
    driver->LoseBefore(1);
    EXPECT_EQ(Await(CountUsers).error().kind, Kind::ConnectionLost);
    EXPECT_FALSE(session->IsConnected());
    driver->RefuseConnects(false);
    ASSERT_TRUE(QTest::qWaitFor([this] { return session->IsConnected(); }, kPatience));
    EXPECT_EQ(changes.size(), 2);
}

} // namespace
