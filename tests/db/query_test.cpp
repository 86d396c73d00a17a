// That there is no row and that it could not be read are two things.
#include "db/query.h"

#include "db/failure_log.h"
#include "db/session.h"
#include "db/user_names.h"
#include "support/core/engine_fixture.h"
#include "support/core/faulty_driver.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using Kind = Failure::Kind;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Queries : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO users (username) VALUES ('anna')");
        Execute("INSERT INTO users (username) VALUES ('ben')");
        Execute("INSERT INTO users (username) VALUES ('clara')");
    }
};
TB_ON_EVERY_ENGINE(Queries);

TEST_P(Queries, GiveWhatThereIs)
{
    EXPECT_EQ(ReadOne(kNames, Name).value(), u"anna"_s);
    EXPECT_EQ(ReadLast(kNames, Name).value(), u"clara"_s);
    EXPECT_THAT(ReadAll(kNames, Name).value(), ElementsAre(u"anna"_s, u"ben"_s, u"clara"_s));
    EXPECT_THAT(ReadUpTo(2, kNames, Name).value(), ElementsAre(u"anna"_s, u"ben"_s));
    EXPECT_THAT(ReadUpTo(9, kNames, Name).value(), testing::SizeIs(3));
    EXPECT_THAT(ReadAll(kNames, Name).value(), testing::SizeIs(3)) << "a bound holds once";
    EXPECT_EQ(ReadOne(kNameOf, Name, UserId(2)).value(), u"ben"_s);
    EXPECT_TRUE(Exists(kNameOf, UserId(2)).value());
}

TEST_P(Queries, GiveNothingWhereThereIsNone)
{
    EXPECT_EQ(ReadOne(kNameOf, Name, UserId(99)).value(), std::nullopt);
    EXPECT_EQ(ReadLast(kNameOf, Name, UserId(99)).value(), std::nullopt);
    EXPECT_THAT(ReadAll(kNameOf, Name, UserId(99)).value(), IsEmpty());
    EXPECT_THAT(ReadUpTo(5, kNameOf, Name, UserId(99)).value(), IsEmpty());
    EXPECT_FALSE(Exists(kNameOf, UserId(99)).value());
    EXPECT_EQ(FailureLog::Instance().Count(), 0);
}

TEST_P(Queries, TellWhyTheyCouldNotBeRead)
{
    FaultyDriver driver(Dsn());
    const auto failure = [&driver](auto &&read) {
        driver.Refuse(1);
        const auto result = read();
        EXPECT_FALSE(result);
        return result ? Failure() : result.error();
    };
    const Failure failures[] = {
        failure(
            [] { return ReadOne(kNameOf, Name, UserId(1)).map([](const auto &) { return 0; }); }),
        failure(
            [] { return ReadLast(kNameOf, Name, UserId(1)).map([](const auto &) { return 0; }); }),
        failure(
            [] { return ReadAll(kNameOf, Name, UserId(1)).map([](const auto &) { return 0; }); }),
        failure([] {
            return ReadUpTo(1, kNameOf, Name, UserId(1)).map([](const auto &) { return 0; });
        }),
        failure([] { return Exists(kNameOf, UserId(1)).map([](const auto &) { return 0; }); }),
    };
    for (const Failure &each : failures) {
        EXPECT_EQ(each.kind, Kind::Refused) << qPrintable(each.text);
        EXPECT_EQ(each.statement, QLatin1StringView(kNameOf));
        EXPECT_FALSE(each.text.isEmpty());
        EXPECT_EQ(each.sqlState.size(), 5);
    }
    EXPECT_EQ(FailureLog::Instance().Count(), 5) << "asked once each";
    EXPECT_EQ(ReadOne(kNameOf, Name, UserId(1)).value(), u"anna"_s);
}

// The engine finds out only at the second row that it cannot go on.
TEST_P(Queries, TellOfAFailureBetweenTheRows)
{
    const char *const query = Engine() == u"sqlite"_s
        ? "SELECT CASE user_id WHEN 3 THEN json('{') ELSE '{}' END FROM users ORDER BY user_id"
        : Engine() == u"postgresql"_s
        ? "SELECT CASE user_id WHEN 3 THEN username ELSE '1' END::integer FROM users ORDER BY user_id"
        : "SELECT CASE user_id WHEN 3 THEN (SELECT 1 UNION SELECT 2) ELSE 1 END FROM users";
    const auto rows = ReadAll(query, Name);
    ASSERT_FALSE(rows);
    EXPECT_EQ(rows.error().kind, Kind::Refused) << qPrintable(rows.error().text);
    EXPECT_EQ(rows.error().statement, QLatin1StringView(query));
}

TEST_P(Queries, AskAgainOnceAfterAConflictOutsideATransaction)
{
    if (Engine() == u"sqlite"_s) {
        return; // there is no such failure
    }
    FaultyDriver driver(Dsn());
    driver.Conflict(1);
    EXPECT_THAT(ReadAll(kNames, Name).value(), testing::SizeIs(3));
    EXPECT_EQ(driver.Take().size(), 2);
    ASSERT_TRUE(BeginTransaction());
    (void)driver.Take();
    driver.Conflict(1);
    EXPECT_EQ(ReadAll(kNames, Name).error().kind, Kind::Conflict);
    EXPECT_EQ(driver.Take().size(), 1);
    RollbackTransaction();
}

TEST_P(Queries, FailOnASessionThatIsNotOpen)
{
    EXPECT_TRUE(IsSessionOpen().value());
    DisconnectDatabase();
    EXPECT_EQ(IsSessionOpen().error().kind, Kind::ConnectionLost);
    EXPECT_EQ(ReadAll(kNames, Name).error().kind, Kind::ConnectionLost);
    EXPECT_FALSE(Exists(kNames));
}

} // namespace
