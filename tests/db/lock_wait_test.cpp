// Somebody else holds the rows or the database: the session waits as long as it should, no longer than
// it must, and says what it waited for in vain.
#include "db/query.h"
#include "db/session.h"
#include "support/core/engine_fixture.h"
#include "support/core/limits_scope.h"
#include "support/core/test_data_source.h"

#include <gmock/gmock.h>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using Kind = Failure::Kind;
using testing::ElementsAre;

namespace {

constexpr char kBlock[] = "UPDATE users SET blocked = true WHERE user_id = (?)";
constexpr char kBlocked[] = "SELECT blocked FROM users";
constexpr auto kLag = 3s; // of a machine that has other things to do

class LockWait : public EngineFixture
{
protected:
    // One of the servers counts in whole seconds.
    void SetUp() override
    {
        limits.emplace(SessionLimits {.lock = Engine() == u"mariadb"_s ? 1000ms : 400ms});
        EngineFixture::SetUp();
        Execute("INSERT INTO users (user_id, username) VALUES (1, 'anna')");
        ASSERT_TRUE(holder.Open(Dsn())) << qPrintable(holder.Error());
    }

    void TearDown() override
    {
        holder.Close();
        EngineFixture::TearDown();
        limits.reset();
    }

    // Somebody else writes the row of the one user, and does not come to an end.
    void HoldRow()
    {
        ASSERT_TRUE(Run(Engine() == u"sqlite"_s ? "BEGIN IMMEDIATE" : "BEGIN"));
        ASSERT_TRUE(Run("UPDATE users SET mode = 1 WHERE user_id = 1"));
    }

    [[nodiscard]] bool Run(const char *text)
    {
        const bool done = holder.Run(QString::fromLatin1(text));
        EXPECT_TRUE(done) << text << qPrintable(holder.Error());
        return done;
    }

    // An embedded database whose readers and writers keep each other out.
    void OpenWithoutLog()
    {
        test_data_source::CloseSession();
        holder.Close();
        const QString dsn = u"without_log"_s;
        test_data_source::Define(dsn,
                                 u"Driver=SQLite3\nDatabase=%1\nStepAPI=1\nJournalMode=DELETE\n"
                                 "Timeout=5000"_s.arg(test_data_source::SqliteFile(Dsn())));
        test_data_source::OpenSession(dsn);
        ASSERT_TRUE(holder.Open(dsn));
    }

    static Clock::duration TimeOf(const std::function<void()> &act)
    {
        const auto start = Clock::now();
        act();
        return Clock::now() - start;
    }

    static void ExpectLocked(Clock::duration waited)
    {
        ASSERT_TRUE(LastFailure());
        EXPECT_EQ(LastFailure()->kind, Kind::Locked) << qPrintable(LastFailure()->text);
        EXPECT_GE(waited, Limits().lock - 1ms);
        EXPECT_LE(waited, Limits().lock + kLag);
    }

    std::optional<LimitsScope> limits;
    DirectConnection holder;
};
TB_ON_EVERY_ENGINE(LockWait);

TEST_P(LockWait, OfAWriteEndsAtItsLimit)
{
    HoldRow();
    ExpectLocked(TimeOf([] { Execute(kBlock, 1U); }));
    ASSERT_TRUE(Run("ROLLBACK"));
    Execute(kBlock, 1U);
    EXPECT_FALSE(LastFailure());
    EXPECT_THAT(RowsOf(kBlocked), ElementsAre(u"1"_s));
}

TEST_P(LockWait, OfATransactionEndsAtItsLimit)
{
    HoldRow();
    ExpectLocked(TimeOf([] {
        if (BeginTransaction()) {
            Execute(kBlock, 1U);
        }
    }));
    RollbackTransaction();
    ASSERT_TRUE(Run("ROLLBACK"));
    EXPECT_THAT(RowsOf(kBlocked), ElementsAre(u"0"_s));
    EXPECT_TRUE(BeginTransaction());
    Execute(kBlock, 1U);
    EXPECT_TRUE(CommitTransaction());
    EXPECT_THAT(RowsOf(kBlocked), ElementsAre(u"1"_s));
}

TEST_P(LockWait, EndsWithTheLock)
{
    limits.reset(); // the session may wait longer than this takes
    test_data_source::CloseSession();
    test_data_source::OpenSession(Dsn());
    HoldRow();
    std::thread later([this] {
        std::this_thread::sleep_for(120ms);
        (void)Run("COMMIT");
    });
    const auto waited = TimeOf([] { Execute(kBlock, 1U); });
    later.join();
    EXPECT_FALSE(LastFailure());
    EXPECT_GE(waited, 110ms);
    EXPECT_LE(waited, kLag);
    EXPECT_THAT(RowsOf("SELECT mode, blocked FROM users"), ElementsAre(u"1|1"_s));
}

TEST_P(LockWait, IsNoneForReaders)
{
    HoldRow();
    EXPECT_LE(TimeOf([] {
                  EXPECT_EQ(ReadOne("SELECT mode FROM users",
                                    [](const Row &row) { return row.Integer(1); })
                                .value(),
                            0U);
              }),
              Limits().lock);
}

TEST_P(LockWait, OfAReaderEndsAtItsLimitOrWithTheLock)
{
    if (Engine() != u"sqlite"_s) {
        return; // readers wait for nobody there
    }
    OpenWithoutLog();
    ASSERT_TRUE(Run("BEGIN EXCLUSIVE"));
    const auto read = [] {
        return ReadAll("SELECT username FROM users", [](const Row &row) { return row.Text(1); });
    };
    const auto start = Clock::now();
    const auto locked = read();
    ASSERT_FALSE(locked);
    EXPECT_EQ(locked.error().kind, Kind::Locked) << qPrintable(locked.error().text);
    EXPECT_GE(Clock::now() - start, Limits().lock);
    EXPECT_LE(Clock::now() - start, Limits().lock + kLag);
    std::thread later([this] {
        std::this_thread::sleep_for(120ms);
        (void)Run("COMMIT");
    });
    EXPECT_THAT(read().value(), ElementsAre(u"anna"_s));
    later.join();
}

TEST_P(LockWait, IsNoneForWhatWasReadInPart)
{
    if (Engine() != u"sqlite"_s) {
        return; // readers lock nothing there
    }
    OpenWithoutLog();
    Execute("INSERT INTO users (user_id, username) VALUES (2, 'berta')");
    const auto name = [](const Row &row) { return row.Text(1); };
    const auto isFree = [this] {
        EndWork();
        return Run("BEGIN EXCLUSIVE") && Run("COMMIT");
    };
    EXPECT_EQ(ReadOne("SELECT username FROM users", name).value(), u"anna"_s);
    EXPECT_TRUE(isFree());
    EXPECT_TRUE(Exists("SELECT username FROM users").value());
    EXPECT_TRUE(isFree());
    EXPECT_EQ(ReadUpTo(1, "SELECT username FROM users", name).value().size(), 1U);
    EXPECT_TRUE(isFree());
    EXPECT_EQ(ReadAll("SELECT username FROM users", name).value().size(), 2U); // it works on
}

TEST_P(LockWait, OfACommitEndsWithItsReaders)
{
    if (Engine() != u"sqlite"_s) {
        return; // a commit waits for nobody there
    }
    OpenWithoutLog();
    ASSERT_TRUE(Run("BEGIN") && holder.Rows(u"SELECT username FROM users"_s));
    ASSERT_TRUE(BeginTransaction());
    Execute(kBlock, 1U);
    std::thread later([this] {
        std::this_thread::sleep_for(200ms);
        (void)Run("COMMIT");
    });
    EXPECT_TRUE(CommitTransaction());
    later.join();
    EXPECT_THAT(RowsOf(kBlocked), ElementsAre(u"1"_s));

    ASSERT_TRUE(Run("BEGIN") && holder.Rows(u"SELECT username FROM users"_s));
    ASSERT_TRUE(BeginTransaction());
    Execute("UPDATE users SET blocked = false WHERE user_id = 1");
    ExpectLocked(TimeOf([] { EXPECT_FALSE(CommitTransaction()); }));
    RollbackTransaction();
    ASSERT_TRUE(Run("COMMIT"));
    EXPECT_THAT(RowsOf(kBlocked), ElementsAre(u"1"_s));
}

// What is read behind a lock is what the one who held it has left.
TEST_P(LockWait, IsFollowedByWhatTheOtherOneWrote)
{
    if (Engine() == u"sqlite"_s) {
        return; // the lock is the transaction's beginning
    }
    Execute("INSERT INTO users (user_id, username) VALUES (2, 'ben')");
    HoldRow();
    ASSERT_TRUE(BeginTransaction());
    RunQuery("SELECT mode FROM users WHERE user_id = 2 FOR UPDATE", FetchMode::One);
    RunQuery("SELECT mode FROM users WHERE user_id = 2", FetchMode::One);
    std::thread later([this] {
        AwaitLockWait();
        (void)Run("COMMIT");
    });
    RunQuery("SELECT mode FROM users WHERE user_id = 1 FOR UPDATE", FetchMode::One);
    EXPECT_EQ(queryResult.Integer(1), 1U);
    RunQuery("SELECT mode FROM users WHERE user_id = 1", FetchMode::One);
    EXPECT_EQ(queryResult.Integer(1), 1U);
    later.join();
    RollbackTransaction();
}

} // namespace
