// Servers that freeze, and that are started anew: with servers of the test's own, since nobody else
// could use them meanwhile.
#include "db/direct_connection.h"
#include "db/query.h"
#include "db/session_thread.h"
#include "db/write.h"
#include "support/core/limits_scope.h"
#include "support/core/test_data_source.h"
#include "support/servers/own_servers.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QSignalSpy>
#include <QTest>

#include <csignal>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Kind = Failure::Kind;

namespace {

constexpr int kPatience = 60000; // milliseconds for what has to come
constexpr int kLag = 6000; // milliseconds that a machine may take which has other things to do

const auto *const ownServers = OwnServers::Add(u"start"_s, u"own"_s);

QList<pid_t> Children(pid_t process)
{
    QFile file(u"/proc/%1/task/%1/children"_s.arg(process));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
    QList<pid_t> children;
    for (const QByteArray &child : file.readAll().split(' ')) {
        if (const pid_t number = child.trimmed().toInt(); number != 0) {
            children << number;
        }
    }
    return children;
}

// The processes of the server, all of them.
QList<pid_t> ProcessesOf(const QString &engine)
{
    QFile file(ownServers->Folder() + u"/%1.pid"_s.arg(engine));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    const pid_t server = file.readAll().trimmed().toInt();
    EXPECT_GT(server, 1);
    return QList<pid_t> {server} + Children(server);
}

// Processes that stand still while this lives.
// Whether each of its threads has stopped: the signal may take a moment on a busy machine.
bool IsStopped(pid_t process)
{
    const QDir threads(u"/proc/%1/task"_s.arg(process));
    const auto names = threads.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::all_of(names.begin(), names.end(), [&threads](const QString &name) {
        QFile file(threads.filePath(name + u"/stat"_s));
        const QByteArray state = file.open(QIODevice::ReadOnly) ? file.readAll() : "gone) T";
        const QByteArray letter = state.sliced(state.lastIndexOf(')') + 1).trimmed().first(1);
        return letter == "T" || letter == "Z"; // whoever has ended does nothing more
    });
}

class Frozen
{
public:
    explicit Frozen(const QList<pid_t> &frozen) : processes(frozen)
    {
        for (const pid_t process : processes) {
            EXPECT_EQ(kill(process, SIGSTOP), 0) << process;
        }
        for (const pid_t process : processes) {
            EXPECT_TRUE(QTest::qWaitFor([process] { return IsStopped(process); }, kPatience));
        }
    }
    ~Frozen()
    {
        for (const pid_t process : processes) {
            kill(process, SIGCONT);
        }
    }
    Frozen(const Frozen &) = delete;
    Frozen &operator=(const Frozen &) = delete;

private:
    QList<pid_t> processes;
};

Result<quint32> ReadOneNumber()
{
    return ReadOne("SELECT 7", [](const Row &row) { return row.Integer(1); })
        .map([](const std::optional<quint32> &number) { return number.value_or(0); });
}

class FrozenServer : public testing::TestWithParam<const char *>
{
protected:
    void SetUp() override
    {
        DirectConnection database;
        ASSERT_TRUE(database.Open(Engine())
                    && database.Run(u"CREATE TABLE IF NOT EXISTS users (user_id INTEGER)"_s))
            << qPrintable(database.Error());
        session.Open(Engine());
        ASSERT_EQ(Await(ReadOneNumber).value(), 7U);
    }

    void TearDown() override
    {
        session.Close();
        EXPECT_TRUE(
            QTest::qWaitFor([] { return SessionThread::AbandonedCalls() == 0; }, kPatience));
    }

    [[nodiscard]] static QString Engine() { return QString::fromLatin1(GetParam()); }

    template <typename Work>
    std::invoke_result_t<Work> Await(Work work)
    {
        std::optional<std::invoke_result_t<Work>> value;
        session.Start(&session, std::move(work), [&value](const auto &given) { value = given; });
        EXPECT_TRUE(QTest::qWaitFor([&value] { return value.has_value(); }, kPatience));
        return value.value();
    }

    [[nodiscard]] bool IsConnectedInTime()
    {
        return QTest::qWaitFor([this] { return session.IsConnected(); }, kPatience);
    }

    const LimitsScope limits {{.connect = 1s,
                               .answer = 500ms,
                               .cancel = 300ms,
                               .firstPause = 100ms,
                               .longestPause = 400ms}};
    SessionThread session;
};
INSTANTIATE_TEST_SUITE_P(Servers,
                         FrozenServer,
                         testing::Values("postgresql", "mariadb"),
                         [](const auto &engine) { return std::string(engine.param); });

TEST_P(FrozenServer, IsGivenUpAndFoundAgain)
{
    const QSignalSpy changes(&session, &SessionThread::ConnectionChanged);
    QElapsedTimer timer;
    {
        const Frozen server(ProcessesOf(Engine()));
        timer.start();
        const auto hung = Await(ReadOneNumber);
        ASSERT_FALSE(hung);
        EXPECT_EQ(hung.error().kind, Kind::NotAnswered);
        EXPECT_LT(timer.elapsed(), kLag);
        EXPECT_FALSE(session.IsConnected());
        // Connections that do not come about end by themselves: no thread is left behind for each.
        const auto lost = Await(ReadOneNumber);
        EXPECT_EQ(lost.error().kind, Kind::ConnectionLost) << qPrintable(lost.error().text);
        EXPECT_FALSE(lost.error().text.isEmpty());
        QTest::qWait(5000);
        EXPECT_FALSE(session.IsConnected());
        EXPECT_EQ(SessionThread::AbandonedCalls(), 1);
    }
    ASSERT_TRUE(IsConnectedInTime());
    EXPECT_EQ(Await(ReadOneNumber).value(), 7U);
    EXPECT_EQ(changes.size(), 2);
}

TEST_P(FrozenServer, DoesNotHoldUpACancelOrTheEnd)
{
    const Frozen server(ProcessesOf(Engine()));
    QElapsedTimer timer;
    std::optional<Result<quint32>> value;
    session.Start(
        &session,
        ReadOneNumber,
        [&value](const Result<quint32> &given) { value = given; },
        SessionThread::Patience::Endless);
    QTest::qWait(200);
    timer.start();
    session.Cancel();
    ASSERT_TRUE(QTest::qWaitFor([&value] { return value.has_value(); }, kPatience));
    EXPECT_LT(timer.elapsed(), kLag);
    EXPECT_EQ(value->error().kind, Kind::Cancelled);
    timer.start();
    session.Close(); // while the next connection is being opened
    EXPECT_LT(timer.elapsed(), 1500);
}

// One of PostgreSQL's processes serves each connection.
TEST_P(FrozenServer, NeedNotBeTheWholeServer)
{
    if (Engine() != u"postgresql"_s) {
        return;
    }
    const auto process = Await([] {
        return ReadOne("SELECT pg_backend_pid()", [](const Row &row) { return row.Integer(1); });
    });
    const Frozen connection({static_cast<pid_t>(process.value().value())});
    EXPECT_EQ(Await(ReadOneNumber).error().kind, Kind::NotAnswered);
    EXPECT_EQ(Await(ReadOneNumber).value(), 7U) << "the next connection has a process of its own";
}

// What froze while it wrote comes to its end when nobody waits any more: it is not kept.
TEST_P(FrozenServer, KeepsNothingThatWasGivenUp)
{
    DirectConnection beside;
    ASSERT_TRUE(beside.Open(Engine()) && beside.Run(u"DROP TABLE IF EXISTS rows_of_test"_s)
                && beside.Run(u"CREATE TABLE rows_of_test (number INTEGER)"_s))
        << qPrintable(beside.Error());
    const auto insert = []() -> Result<qint64> {
        return WriteRows("INSERT INTO rows_of_test (number) VALUES ((?))", quint32 {1});
    };
    const auto write = [insert](std::optional<Frozen> *frozen, const QString &engine) {
        return [=]() -> Result<qint64> {
            if (const auto begun = transaction::Begin(); !begun) {
                return tl::unexpected(begun.error());
            }
            (void)insert();
            frozen->emplace(ProcessesOf(engine));
            const auto second = insert();
            (void)transaction::Commit();
            transaction::Rollback();
            return second;
        };
    };
    std::optional<Frozen> frozen;
    EXPECT_EQ(Await(write(&frozen, Engine())).error().kind, Kind::NotAnswered);
    frozen.reset();
    ASSERT_TRUE(IsConnectedInTime());
    EXPECT_TRUE(QTest::qWaitFor([] { return SessionThread::AbandonedCalls() == 0; }, kPatience));
    EXPECT_EQ(beside.Rows(u"SELECT * FROM rows_of_test"_s).value().size(), 0);
    EXPECT_TRUE(beside.Run(u"DROP TABLE rows_of_test"_s)) << "nothing holds it";
}

TEST_P(FrozenServer, IsStartedAnewBetweenTwoStatements)
{
    const QSignalSpy changes(&session, &SessionThread::ConnectionChanged);
    ownServers->Run(u"halt"_s);
    ownServers->Run(u"resume"_s);
    EXPECT_EQ(Await(ReadOneNumber).value(), 7U);
    EXPECT_TRUE(changes.isEmpty()) << "nobody has to know";

    ownServers->Run(u"halt"_s);
    EXPECT_EQ(Await(ReadOneNumber).error().kind, Kind::ConnectionLost);
    EXPECT_FALSE(session.IsConnected());
    ownServers->Run(u"resume"_s);
    ASSERT_TRUE(IsConnectedInTime());
    EXPECT_EQ(Await(ReadOneNumber).value(), 7U);
    EXPECT_EQ(changes.size(), 2);
}

} // namespace
