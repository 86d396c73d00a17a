#include "db/session.h"

#include "base/text.h"
#include "db/failure_log.h"
#include "support/core/engine_fixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class Session : public EngineFixture
{
protected:
    static qsizetype Failures() { return FailureLog::Instance().Count(); }

    static void AddUsers(std::initializer_list<QString> names)
    {
        for (const QString &name : names) {
            Execute("INSERT INTO users (username) VALUES (?)", name);
        }
    }
};
TB_ON_EVERY_ENGINE(Session);

TEST_P(Session, FillsFifteenOfTwentyColumns)
{
    EXPECT_EQ(
        RunQuery("SELECT 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20",
                 FetchMode::One),
        kQuerySuccess);
    for (int column = 1; column <= QueryResult::kColumns; ++column) {
        EXPECT_EQ(queryResult.Integer(column), static_cast<quint32>(column));
    }
    EXPECT_EQ(Failures(), 0);
}

struct ReturnCase
{
    const char *statement;
    FetchMode mode;
    int code;
    const char *left; // in column 1
};

TEST_P(Session, ReturnsTheCodeOfTheLastStep)
{
    AddUsers({u"anna"_s, u"ben"_s, u"clara"_s});
    const ReturnCase cases[] = {
        {"SELECT username FROM users ORDER BY username", FetchMode::All, kQueryNoData, "clara"},
        {"SELECT username FROM users ORDER BY username", FetchMode::One, kQuerySuccess, "anna"},
        {"SELECT username FROM users WHERE user_id = 99", FetchMode::All, kQueryNoData, ""},
        {"SELECT username FROM users WHERE user_id = 99", FetchMode::One, kQueryNoData, ""},
        {"UPDATE users SET mode = 0", FetchMode::All, kQueryNoData, ""},
        {"UPDATE users SET mode = 0 WHERE user_id = 99", FetchMode::One, kQueryNoData, ""},
        {"UPDATE nowhere SET mode = 0", FetchMode::All, kQueryNoData, ""},
        {"SELECT nothing FROM users", FetchMode::One, kQueryNoData, ""},
    };
    for (const ReturnCase &c : cases) {
        EXPECT_EQ(RunQuery(c.statement, c.mode), c.code) << c.statement;
        EXPECT_STREQ(queryResult.Bytes(1), c.left) << c.statement;
    }
    EXPECT_EQ(RunQuery("SELECT username FROM users", FetchMode::Open), kQuerySuccess);
    RowCursor closes("SELECT 1");
}

TEST_P(Session, KeepsAFailedStatementInTheLogAndGoesOn)
{
    Execute("UPDATE nowhere SET pwd = (?) WHERE userid = (?)", u"hush"_s, quint32 {7});
    const RowCursor failing("SELECT username, FROM users");
    RunQuery("SELECT username FROM users WHERE", FetchMode::All);
    ASSERT_EQ(Failures(), 3);
    const StatementFailure first = FailureLog::Instance().Recent().constFirst();
    EXPECT_EQ(first.statement, u"UPDATE nowhere SET pwd = (?) WHERE userid = (?)"_s);
    EXPECT_EQ(first.sqlState.size(), 5);
    EXPECT_TRUE(first.text.contains(u"nowhere"_s)) << qPrintable(first.text);
    for (const StatementFailure &failure : FailureLog::Instance().Recent()) {
        EXPECT_FALSE(failure.text.contains(u"hush"_s)) << qPrintable(failure.text);
        EXPECT_NE(failure.sqlState, u"24000"_s) << qPrintable(failure.statement);
    }
    AddUsers({u"anna"_s});
    EXPECT_EQ(RowsOf("SELECT username FROM users"), QStringList {u"anna"_s});
    EXPECT_EQ(Failures(), 3);
}

TEST_P(Session, LeavesNoCursorOpenBehindAnyStatement)
{
    AddUsers({u"anna"_s, u"ben"_s});
    for (const FetchMode mode : {FetchMode::All, FetchMode::One}) {
        RunQuery("SELECT username FROM users", mode);
        Execute("UPDATE users SET blocked = true");
    }
    {
        RowCursor left("SELECT username FROM users"); // with a row not fetched
        EXPECT_TRUE(left.Next());
    }
    Execute("UPDATE users SET blocked = false WHERE user_id = (?)", quint32 {1});
    EXPECT_EQ(Failures(), 0);
    EXPECT_EQ(RowsOf("SELECT blocked FROM users ORDER BY user_id"), (QStringList {u"0"_s, u"1"_s}));
}

TEST_P(Session, ReadsNullAsEmptyAlsoBehindAValue)
{
    Execute("INSERT INTO billing (mode, object_id, data) VALUES (2, (?), (?))", quint32 {1}, 5.0);
    Execute("INSERT INTO billing (mode, object_id, unlimited) VALUES (2, (?), 1)", quint32 {2});
    RowCursor rows("SELECT data, moneydata, object_id FROM billing ORDER BY object_id");
    ASSERT_TRUE(rows.Next());
    EXPECT_EQ(queryResult.Amount(1), 5.0);
    ASSERT_TRUE(rows.Next());
    EXPECT_TRUE(queryResult.IsEmpty(1));
    EXPECT_EQ(queryResult.Amount(1), 0.0);
    EXPECT_TRUE(queryResult.IsEmpty(2));
    EXPECT_FALSE(rows.Next());
}

TEST_P(Session, KeepsEveryTextAsItIs)
{
    const QString texts[] = {u"O'Neil"_s,
                             u"\"Quoted\" `name` #1# -- ; (?) %s \\ \\' '' /* */"_s,
                             u"Zo\u00eb \u0141ukasz \u4e2d\u6587 \U0001F600"_s,
                             u" blanks around  "_s,
                             u"1f5 c 30 9 a1 b2 c3 d4 e5 f6 07 "_s,
                             u"tab\tand\nline"_s};
    for (const QString &text : texts) {
        Execute("DELETE FROM logins");
        Execute("INSERT INTO Logins (login, Pwd) VALUES ((?), (?))", text, text);
        RunQuery("SELECT login, pwd FROM logins WHERE login=(?)", FetchMode::One, text);
        EXPECT_EQ(queryResult.Text(1), text);
        EXPECT_EQ(queryResult.Text(2), text);
    }
    EXPECT_EQ(Failures(), 0);
}

struct CutCase
{
    QString character;
    qsizetype fit; // whole characters in 254 bytes
};

TEST_P(Session, CutsALongTextBeforeTheCharacterThatDoesNotFit)
{
    const CutCase cases[] = {
        {u"x"_s, 254}, {u"\u00e9"_s, 127}, {u"\u20ac"_s, 84}, {u"\U0001F600"_s, 63}};
    for (const auto &[character, fit] : cases) {
        const QString longText = character.repeated(255);
        Execute("DELETE FROM users");
        Execute("INSERT INTO users (username) VALUES (?)", longText);
        RunBeside("INSERT INTO users (username) VALUES (?)", {longText.toUtf8()});
        RowCursor rows("SELECT username FROM users ORDER BY user_id");
        for (int row = 0; row < 2; ++row) {
            ASSERT_TRUE(rows.Next());
            EXPECT_EQ(queryResult.Text(1), character.repeated(fit)) << row;
        }
        EXPECT_FALSE(rows.Next());
    }
    EXPECT_EQ(Failures(), 0);
}

TEST_P(Session, KeepsIntegersOfAll32Bits)
{
    for (const quint32 value : {0U, 1U, 80U, 2147483647U, 2147483648U, 3000000000U, 4294967295U}) {
        Execute("DELETE FROM logins");
        Execute("INSERT INTO Logins (login, userid) VALUES ((?), (?))", u"anna"_s, value);
        RunQuery("SELECT userid FROM logins WHERE userid = (?)", FetchMode::One, value);
        EXPECT_EQ(queryResult.Integer(1), value) << queryResult.Bytes(1);
    }
    EXPECT_EQ(Failures(), 0);
}

TEST_P(Session, LosesNoDigitOfAnAmount)
{
    for (const double amount : {0.1, 123456.789, 12345678.91, 0.0001, 1e-9, 98765432109.25, -3.5}) {
        Execute("DELETE FROM billing");
        Execute("INSERT INTO billing (mode, object_id, data) VALUES (2, (?), (?))", 1U, amount);
        RunQuery("SELECT data FROM billing WHERE object_id = (?)", FetchMode::One, 1U);
        EXPECT_EQ(queryResult.Amount(1), amount) << queryResult.Bytes(1);
    }
    EXPECT_EQ(Failures(), 0);
}

TEST_P(Session, LimitsTheRowsOfTheNextStatementOnly)
{
    AddUsers({u"anna"_s, u"ben"_s, u"clara"_s});
    const auto count = [] {
        int rows = 0;
        for (RowCursor cursor("SELECT username FROM users ORDER BY username"); cursor.Next();) {
            ++rows;
        }
        return rows;
    };
    LimitRows(2);
    EXPECT_EQ(count(), 2);
    EXPECT_EQ(count(), 3);
}

TEST_P(Session, FindsAndOrdersNamesWithoutRegardToCase)
{
    AddUsers({u"Zoe"_s, u"anna"_s, u"Ben"_s});
    EXPECT_EQ(RowsOf("SELECT username FROM users ORDER BY username ASC"),
              (QStringList {u"anna"_s, u"Ben"_s, u"Zoe"_s}));
    RunQuery("SELECT username FROM users WHERE username=(?)", FetchMode::One, u"ANNA"_s);
    EXPECT_EQ(queryResult.Text(1), u"anna"_s);
}

class NoSession : public testing::Test
{ };

TEST_F(NoSession, DoesNotOpenOnAnEmptyOrUnknownName)
{
    for (const char *dsn :
         {"", "no such source", "a name that is longer than any data source's may be"}) {
        FailureLog::Instance().Clear();
        EXPECT_EQ(ConnectDatabase(dsn), 0) << dsn;
        EXPECT_FALSE(IsDatabaseOpen());
        ASSERT_EQ(FailureLog::Instance().Count(), 1) << dsn;
        EXPECT_TRUE(FailureLog::Instance().Recent().constFirst().statement.isEmpty());
        EXPECT_EQ(RunQuery("SELECT 1", FetchMode::One), kQueryNoData);
        EXPECT_TRUE(queryResult.IsEmpty(1));
        EXPECT_FALSE(RowCursor("SELECT 1").Next());
        EXPECT_EQ(FailureLog::Instance().Count(), 3) << dsn;
        DisconnectDatabase();
    }
}

} // namespace
