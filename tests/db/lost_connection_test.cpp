// The session's connection is lost: what was to be read is read on a new one, and of what was to be
// written nobody says more than is known.
#include "db/failure_log.h"
#include "db/query.h"
#include "db/session.h"
#include "db/user_names.h"
#include "support/core/engine_fixture.h"
#include "support/core/faulty_driver.h"
#include "support/core/limits_scope.h"

#include <gmock/gmock.h>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Kind = Failure::Kind;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr char kBlock[] = "UPDATE users SET blocked = true WHERE user_id = (?)";
constexpr char kBlocked[] = "SELECT user_id FROM users WHERE blocked = 1";

class LostConnection : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        AddAnnaAndBen();
        driver.emplace(Dsn());
    }

    void TearDown() override
    {
        driver.reset();
        EngineFixture::TearDown();
    }

    [[nodiscard]] static Kind LastKind() { return LastFailure().value_or(Failure()).kind; }

    std::optional<FaultyDriver> driver;
};
TB_ON_EVERY_SERVER(LostConnection);

TEST_P(LostConnection, DoesNotKeepAQueryFromItsRows)
{
    driver->LoseBefore(1);
    EXPECT_THAT(ReadAll(kNames, Name).value(), ElementsAre(u"anna"_s, u"ben"_s));
    EXPECT_EQ(FaultyDriver::Connects(), 1);
    driver->LoseBefore(1);
    EXPECT_EQ(ReadOne(kNameOf, Name, UserId(2)).value(), u"ben"_s);
    driver->LoseBefore(1);
    EXPECT_EQ(ReadLast(kNames, Name).value(), u"ben"_s);
    EXPECT_EQ(FaultyDriver::Connects(), 3);
    ASSERT_EQ(FailureLog::Instance().Count(), 3);
    for (const auto &failure : FailureLog::Instance().Recent()) {
        EXPECT_EQ(failure.kind, Kind::ConnectionLost) << qPrintable(failure.text);
    }
}

// More rows than one driver fetches at a time: those that came are not given twice.
TEST_P(LostConnection, BetweenRowsLetsThemComeOnceFromTheBeginning)
{
    Execute("DELETE FROM users");
    constexpr int kRows = 2500;
    for (int i = 0; i < kRows; i += 500) {
        QStringList names;
        for (int n = i; n < i + 500; ++n) {
            names << u"('user %1')"_s.arg(n, 4, 10, QLatin1Char('0'));
        }
        RunBeside(
            ("INSERT INTO users (username) VALUES " + names.join(u',').toStdString()).c_str());
    }
    int read = 0;
    const auto rows = ReadAll(kNames, [&](const Row &row) {
        if (++read == 500) {
            driver->Lose();
        }
        return row.Text(1);
    });
    ASSERT_EQ(rows.value().size(), static_cast<size_t>(kRows));
    EXPECT_EQ(rows->front(), u"user 0000"_s);
    EXPECT_EQ(rows->back(), u"user 2499"_s);
}

TEST_P(LostConnection, LeavesOpenWhetherAWriteWasKept)
{
    driver->LoseBefore(1);
    Execute(kBlock, 1U);
    EXPECT_EQ(LastKind(), Kind::OutcomeUnknown);
    EXPECT_EQ(AffectedRows(), 0);
    EXPECT_THAT(RowsOf(kBlocked), IsEmpty());
    driver->LoseAfter(1);
    Execute(kBlock, 2U);
    EXPECT_EQ(LastKind(), Kind::OutcomeUnknown);
    EXPECT_THAT(RowsOf(kBlocked), ElementsAre(u"2"_s));
    Execute(kBlock, 1U);
    EXPECT_FALSE(LastFailure());
    EXPECT_EQ(AffectedRows(), 1);
}

TEST_P(LostConnection, TakesTheTransactionWithIt)
{
    const auto steps = [] {
        RunQuery("SELECT username FROM users WHERE user_id = 1 FOR UPDATE", FetchMode::One);
        Execute("UPDATE users SET blocked = true WHERE user_id = 1");
        RunQuery(kNameOf, FetchMode::One, 2U);
        Execute(kBlock, 2U);
    };
    for (int number = 1; number <= 4; ++number) {
        ASSERT_TRUE(BeginTransaction());
        (void)driver->Take();
        driver->LoseBefore(number);
        steps();
        EXPECT_EQ(LastKind(), Kind::ConnectionLost) << number;
        EXPECT_EQ(driver->Take().filter(u"users"_s).size(), number) << "nothing follows";
        EXPECT_FALSE(CommitTransaction());
        EXPECT_EQ(LastKind(), Kind::ConnectionLost) << number;
        RollbackTransaction();
        EXPECT_THAT(driver->Take(), IsEmpty()) << number;
        EXPECT_TRUE(IsDatabaseOpen());
        EXPECT_THAT(RowsOf(kBlocked), IsEmpty()) << number;
    }
}

TEST_P(LostConnection, AtTheCommitLeavesOpenWhetherItWasKept)
{
    for (const bool kept : {false, true}) {
        ASSERT_TRUE(BeginTransaction());
        Execute(kBlock, 1U);
        kept ? driver->LoseAfter(1) : driver->LoseBefore(1);
        EXPECT_FALSE(CommitTransaction());
        EXPECT_EQ(LastKind(), Kind::OutcomeUnknown);
        EXPECT_TRUE(IsDatabaseOpen());
        RollbackTransaction();
        EXPECT_EQ(RowsOf(kBlocked).size(), kept ? 1 : 0);
    }
}

TEST_P(LostConnection, DoesNotKeepATransactionFromItsBeginning)
{
    driver->LoseBefore(1);
    ASSERT_TRUE(BeginTransaction());
    Execute(kBlock, 1U);
    EXPECT_TRUE(CommitTransaction());
    EXPECT_THAT(RowsOf(kBlocked), ElementsAre(u"1"_s));
    EXPECT_EQ(FaultyDriver::Connects(), 1);
}

TEST_P(LostConnection, IsTriedAgainAfterPausesThatGrow)
{
    const LimitsScope limits({.firstPause = 40ms, .longestPause = 100ms});
    DisconnectDatabase();
    driver->RefuseConnects(true);
    EXPECT_EQ(ConnectDatabase(Dsn().toUtf8().constData()), 0);
    const QString why = LastFailure()->text;
    EXPECT_FALSE(why.isEmpty());

    // The times at which a try was made, by somebody who asks all the time.
    QList<std::chrono::milliseconds> tries;
    const auto start = std::chrono::steady_clock::now();
    int connects = FaultyDriver::Connects();
    while (tries.size() < 8) {
        RunQuery("SELECT 1", FetchMode::One);
        EXPECT_EQ(LastKind(), Kind::ConnectionLost);
        EXPECT_EQ(LastFailure()->text, why);
        EXPECT_EQ(LastFailure()->statement, u"SELECT 1"_s);
        if (const int now = FaultyDriver::Connects(); now != connects) {
            connects = now;
            tries << std::chrono::duration_cast<std::chrono::milliseconds>(
                std::chrono::steady_clock::now() - start);
        }
        std::this_thread::sleep_for(5ms);
    }
    EXPECT_GE(tries[0], 39ms);
    EXPECT_GE(tries[1] - tries[0], 79ms);
    EXPECT_GE(tries[2] - tries[1], 99ms);
    EXPECT_GE(tries[7] - tries[6], 99ms);
    EXPECT_LE(tries[7], 5s) << "ten seconds, if the pauses went on to grow";

    driver->RefuseConnects(false);
    EXPECT_TRUE(ReopenDatabase()) << "asked for, it waits for no pause";
    EXPECT_THAT(ReadAll(kNames, Name).value(), testing::SizeIs(2));
}

// A transaction is what somebody waits for.
TEST_P(LostConnection, IsTriedAtOnceForATransaction)
{
    driver->RefuseConnects(true);
    driver->LoseBefore(1);
    EXPECT_FALSE(BeginTransaction());
    EXPECT_EQ(LastKind(), Kind::ConnectionLost);
    EXPECT_FALSE(IsDatabaseOpen());
    EXPECT_FALSE(BeginTransaction());
    EXPECT_EQ(LastKind(), Kind::ConnectionLost);
    driver->RefuseConnects(false);
    EXPECT_TRUE(BeginTransaction());
    RollbackTransaction();
}

TEST_P(LostConnection, IsOpenedAsTheFirstOneWas)
{
    driver->LoseBefore(1);
    EXPECT_TRUE(Exists(kNames).value());
    const QStringList sent = driver->Take();
    ASSERT_EQ(sent.size(), 6);
    EXPECT_EQ(sent.first(), sent.last());
    EXPECT_TRUE(sent[1].startsWith(u"SELECT"_s)) << "whether it may be written";
    EXPECT_TRUE(sent[2].startsWith(u"SET"_s)) << "how long to wait for locks";
    EXPECT_TRUE(sent[3].contains(u"'schema_version'"_s))
        << "whether there is a version of the schema";
    EXPECT_TRUE(sent[4].contains(u"FROM schema_version"_s, Qt::CaseInsensitive)) << "which it is";
}

} // namespace
