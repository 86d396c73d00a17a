// Transactions: all of it or nothing, whatever an engine would make of what follows a failure.
#include "db/direct_connection.h"
#include "db/failure_log.h"
#include "db/session.h"
#include "support/core/engine_fixture.h"
#include "support/core/faulty_driver.h"
#include "support/core/test_data_source.h"
#include "support/servers/server_section.h"

#include <gmock/gmock.h>
#include <thread>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kAdd[] = "INSERT INTO users (username) VALUES (?)";
constexpr char kNames[] = "SELECT username FROM users ORDER BY username";

class Transactions : public EngineFixture
{
protected:
    static void Add(const QString &name) { Execute(kAdd, name); }

    // What the engines do with a second row of the same key.
    static void FailByItself()
    {
        Execute("INSERT INTO users (user_id, username) VALUES (1, 'twice')");
        Execute("INSERT INTO users (user_id, username) VALUES (1, 'twice')");
    }
};
TB_ON_EVERY_ENGINE(Transactions);

TEST_P(Transactions, AreKeptByTheCommitAlone)
{
    ASSERT_TRUE(BeginTransaction());
    EXPECT_TRUE(IsInTransaction());
    Add(u"anna"_s);
    EXPECT_THAT(RowsOf(kNames), IsEmpty());
    EXPECT_TRUE(CommitTransaction());
    EXPECT_FALSE(IsInTransaction());
    EXPECT_THAT(RowsOf(kNames), ElementsAre(u"anna"_s));

    ASSERT_TRUE(BeginTransaction());
    Add(u"ben"_s);
    RollbackTransaction();
    EXPECT_FALSE(IsInTransaction());
    EXPECT_THAT(RowsOf(kNames), ElementsAre(u"anna"_s));
    EXPECT_EQ(FailureLog::Instance().Count(), 0);
}

TEST_P(Transactions, TakeNothingMoreAfterAFailure)
{
    FaultyDriver driver(Dsn());
    ASSERT_TRUE(BeginTransaction());
    FailByItself();
    const Failure first = LastFailure().value();
    EXPECT_EQ(first.kind, Failure::Kind::NotUnique);
    EXPECT_EQ(driver.Take().size(), 3);

    Add(u"anna"_s);
    EXPECT_EQ(LastFailure(), first);
    RunQuery(kNames, FetchMode::One);
    EXPECT_EQ(LastFailure(), first);
    EXPECT_FALSE(CommitTransaction());
    EXPECT_EQ(LastFailure(), first);
    EXPECT_THAT(driver.Take(), IsEmpty());
    EXPECT_TRUE(IsInTransaction());

    RollbackTransaction();
    EXPECT_THAT(driver.Take(), ElementsAre(u"ROLLBACK"_s));
    EXPECT_THAT(RowsOf(kNames), IsEmpty());
    Add(u"ben"_s);
    EXPECT_THAT(RowsOf(kNames), ElementsAre(u"ben"_s));
    EXPECT_EQ(FailureLog::Instance().Count(), 1);
}

TEST_P(Transactions, KeepNothingWhenTheCommitIsRefused)
{
    FaultyDriver driver(Dsn());
    ASSERT_TRUE(BeginTransaction());
    Add(u"anna"_s);
    driver.Refuse(1);
    EXPECT_FALSE(CommitTransaction());
    EXPECT_EQ(LastFailure()->kind, Failure::Kind::Refused);
    EXPECT_EQ(LastFailure()->statement, u"COMMIT"_s);
    RollbackTransaction();
    EXPECT_THAT(RowsOf(kNames), IsEmpty());
}

TEST_P(Transactions, RollBackWhatSomebodyForgot)
{
    ASSERT_TRUE(BeginTransaction());
    Add(u"forgotten"_s);
    ASSERT_TRUE(BeginTransaction());
    Add(u"anna"_s);
    EXPECT_TRUE(CommitTransaction());
    EXPECT_THAT(RowsOf(kNames), ElementsAre(u"anna"_s));
    EXPECT_EQ(FailureLog::Instance().Count(), 0);
}

TEST_P(Transactions, EndWithTheirSession)
{
    ASSERT_TRUE(BeginTransaction());
    Add(u"anna"_s);
    DisconnectDatabase();
    EXPECT_FALSE(IsInTransaction());
    EXPECT_THAT(RowsOf(kNames), IsEmpty());
    EXPECT_FALSE(BeginTransaction());
    EXPECT_FALSE(CommitTransaction());
    EXPECT_EQ(ConnectDatabase(Dsn().toUtf8().constData()), 1);
}

// What one of the drivers makes of a failure within a transaction depends on its data source.
TEST_P(Transactions, KeepNothingHoweverTheDriverGoesOn)
{
    if (Engine() != u"postgresql"_s) {
        return; // the one engine whose data source can say so
    }
    const QString section = u"Database=%1\n"_s.arg(RowsOf("SELECT current_database()").first())
        + ServerSection(Engine()).value();
    for (const auto &protocol : {u"7.4-0"_s, u"7.4-1"_s, u"7.4-2"_s}) {
        const QString dsn = u"protocol"_s + protocol.back();
        test_data_source::Define(dsn, section + u"\nProtocol="_s + protocol);
        test_data_source::CloseSession();
        test_data_source::OpenSession(dsn);
        ASSERT_TRUE(BeginTransaction());
        FailByItself();
        Add(u"anna"_s);
        EXPECT_FALSE(CommitTransaction()) << qPrintable(protocol);
        RollbackTransaction();
        EXPECT_THAT(RowsOf(kNames), IsEmpty()) << qPrintable(protocol);
    }
}

// Two wait for each other, and the engine lets the session lose: PostgreSQL the one that looks for such
// a circle first, MariaDB the one that has changed less.
TEST_P(Transactions, TellThatTheyLostAgainstAnotherOne)
{
    if (Engine() == u"sqlite"_s) {
        return; // one transaction writes at a time, so that none can lose
    }
    for (const auto &name : {u"anna"_s, u"ben"_s, u"clara"_s, u"dora"_s}) {
        Add(name);
    }
    if (Engine() == u"postgresql"_s) {
        Execute("SET deadlock_timeout = '10ms'");
    }
    DirectConnection other;
    ASSERT_TRUE(other.Open(Dsn()) && other.Begin());
    ASSERT_TRUE(BeginTransaction());
    Execute("UPDATE users SET mode = 1 WHERE user_id = 1");
    ASSERT_TRUE(other.Run(u"UPDATE users SET mode = 2 WHERE user_id > 1"_s));
    std::thread waits([&other] {
        EXPECT_TRUE(other.Run(u"UPDATE users SET mode = 2 WHERE user_id = 1"_s) && other.Commit())
            << qPrintable(other.Error());
    });
    AwaitLockWait();
    Execute("UPDATE users SET mode = 1 WHERE user_id = 2");
    ASSERT_TRUE(LastFailure());
    EXPECT_EQ(LastFailure()->kind, Failure::Kind::Conflict) << qPrintable(LastFailure()->text);
    Execute("UPDATE users SET mode = 1 WHERE user_id = 3"); // one of the engines would keep this
    RollbackTransaction();
    waits.join();
    EXPECT_THAT(RowsOf("SELECT mode FROM users"), testing::Each(u"2"_s));
}

} // namespace
