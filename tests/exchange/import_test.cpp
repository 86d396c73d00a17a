// Imports on every engine: what is written, what is not, and that an export is read back.
#include "access/limits.h"
#include "base/day.h"
#include "db/session.h"
#include "exchange/user_export.h"
#include "importing.h"
#include "support/core/engine_fixture.h"
#include "support/core/faulty_driver.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using State = Outcome::State;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class Imports : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO groups (name) VALUES ('Office')");
        Execute("INSERT INTO users (username, ip_addr, mac_addr, group_id) VALUES "
                "('anna', '10.0.0.1', '0000000000AA', 81)");
        Execute("INSERT INTO users (username, ip_addr, group_id, mode) VALUES "
                "('bert', '10.0.0.2', 80, 2)");
        Execute("INSERT INTO logins (login, pwd, userid) VALUES ('anna', 'd1', 1)");
    }

    static QStringList Users(const char *columns)
    {
        const QByteArray query = "SELECT " + QByteArray(columns) + " FROM users ORDER BY user_id";
        return RowsOf(query.constData());
    }
};

QString ExportedText()
{
    return QString::fromUtf8(ExportedUsers(1.0).value());
}

const QString kMixed =
    u"Name,Full name,IP,MAC,Group,Create group,Access,Traffic limit,Period,Blocked,Login,Password,"
    "Traffic credit,Credit expires\n"
    "anna,Anna \U0001F600,10.0.0.2,,Sales,yes,Traffic,100,day,yes,,,,\n"
    "bert,,10.0.0.1,00:00:00:00:00:AA,,,,,,,bert,secret,5,2030-01-31\n"
    "dora,Dora,10.0.0.3,,sales,yes,Provider,,,no,dora,pw,unlimited,\n"
    "emil,,999.1.1.1,,,,,,,,,,,\n"_s;

} // namespace

TB_ON_EVERY_ENGINE(Imports);

TEST_P(Imports, WriteWhatIsNewAndChangedAndLeaveTheRest)
{
    const TodayOverride today(QDate(2026, 11, 22));
    const ImportJob job = JobOf(kMixed);
    EXPECT_EQ(job.plan.newGroups, QStringList(u"Sales"_s));
    EXPECT_EQ(job.plan.Count(ImportState::Refused), 1);
    const Outcome outcome = RunImport(job);
    ASSERT_EQ(outcome.state, State::Done) << qPrintable(InWords(ActionId::ImportUsers, outcome));
    EXPECT_THAT(Users("username, fullname, ip_addr, mac_addr, mode, traflim, trafperiod, blocked, "
                      "blockreason"),
                ElementsAre(u"anna|Anna \U0001F600|10.0.0.2||1|100|1|1|3"_s,
                            u"bert||10.0.0.1|0000000000AA|2|0|2|0|0"_s,
                            u"dora|Dora|10.0.0.3||2|0|2|0|0"_s));
    EXPECT_THAT(
        RowsOf("SELECT users.username, groups.name FROM users, groups WHERE users.group_id = "
               "groups.group_id ORDER BY user_id"),
        ElementsAre(u"anna|Sales"_s, u"bert|Everybody"_s, u"dora|Sales"_s));
    EXPECT_THAT(
        RowsOf("SELECT username, login, allowstats FROM logins, users WHERE userid = user_id "
               "ORDER BY user_id"),
        ElementsAre(u"anna|anna|0"_s, u"bert|bert|0"_s, u"dora|dora|0"_s));
    EXPECT_THAT(
        RowsOf(
            "SELECT username, billing.mode, CASE WHEN data = 5 THEN 'five' ELSE '' END, unlimited, expiredday FROM billing, users "
            "WHERE object_id = user_id ORDER BY user_id"),
        ElementsAre(u"bert|2|five|0|2030.01.31"_s, u"dora|2||1|"_s));
    // The same file once more finds it all done.
    const ImportJob again = JobOf(kMixed);
    EXPECT_EQ(again.plan.Count(ImportState::Unchanged), 3)
        << qPrintable(Shown(again.plan).join(u'\n'));
    EXPECT_FALSE(again.plan.ChangesAnything());
}

TEST_P(Imports, ARaisedLimitLiftsTheServicesBlock)
{
    Execute(
        "UPDATE users SET mode = 1, traflim = 10, trafperiod = 2, blocked = true, blockreason = 1 "
        "WHERE user_id = 1");
    Execute("INSERT INTO traffic_use (user_id, period, data, blocked) VALUES (1, 2, 15, 1)");
    Execute("UPDATE users SET blocked = true, blockreason = 1 WHERE user_id = 2");
    ASSERT_TRUE(
        RunImport(JobOf(u"Name,Traffic limit,Traffic credit\nanna,12,\nbert,,5\n"_s)).IsDone());
    EXPECT_THAT(Users("username, traflim, blocked"), ElementsAre(u"anna|12|1"_s, u"bert|0|0"_s));
    ASSERT_TRUE(RunImport(JobOf(u"Name,Traffic limit\nanna,20\n"_s)).IsDone());
    EXPECT_THAT(Users("username, traflim, blocked"), ElementsAre(u"anna|20|0"_s, u"bert|0|0"_s));
    EXPECT_THAT(RowsOf("SELECT blocked FROM traffic_use"), ElementsAre(u"0"_s));
}

TEST_P(Imports, ARowThatChangedMeanwhileRefusesTheWholeByName)
{
    const ImportJob job = JobOf(u"Name,Full name\nanna,Anna Berg\nbert,Bert Berg\ndora,\n"_s);
    const char *const meanwhile[] {"UPDATE users SET fullname = 'B.' WHERE user_id = 2",
                                   "UPDATE users SET monitored = false WHERE user_id = 2",
                                   "DELETE FROM users WHERE user_id = 2"};
    for (const char *statement : meanwhile) {
        RunBeside(statement);
        const QStringList before = EveryRow();
        const Outcome outcome = RunImport(job);
        EXPECT_EQ(outcome.state, State::Refused) << statement;
        EXPECT_EQ(outcome.refusal,
                  u"The user \"bert\", or what it is to get, was changed meanwhile. Nothing was "
                  "written. Please look again."_s);
        EXPECT_EQ(EveryRow(), before);
    }
}

// What the service does meanwhile, and what concerns nobody of the file, does no harm.
TEST_P(Imports, OthersMayBeChangedMeanwhile)
{
    const ImportJob job = JobOf(u"Name,Full name\nanna,Anna Berg\n"_s);
    RunBeside("UPDATE users SET blocked = true, blockreason = 1 WHERE user_id = 1");
    RunBeside("UPDATE users SET fullname = 'B.' WHERE user_id = 2");
    EXPECT_TRUE(RunImport(job).IsDone());
    EXPECT_THAT(Users("username, fullname, blocked"),
                ElementsAre(u"anna|Anna Berg|1"_s, u"bert|B.|0"_s));
}

TEST_P(Imports, AnyFailureLeavesNothingWritten)
{
    const ImportJob job = JobOf(kMixed);
    const QStringList before = EveryRow();
    FaultyDriver driver(Dsn());
    const int count = [&] {
        EXPECT_TRUE(RunImport(job).IsDone());
        return static_cast<int>(driver.Take().size());
    }();
    EXPECT_GT(count, 10);
    TearDown();
    SetUp();
    for (int number = 1; number < count; ++number) {
        (void)driver.Take();
        driver.Refuse(number);
        const Outcome outcome = RunImport(job);
        EXPECT_EQ(outcome.state, State::NotDone) << number;
        ASSERT_EQ(EveryRow(), before) << number;
    }
}

TEST_P(Imports, AnExportIsReadBackWithoutADifference)
{
    Execute("UPDATE users SET fullname = '=cmd()', descrip = '''+1', stationname = 'a;\"b\", c' "
            "WHERE user_id = 1");
    Execute(
        "UPDATE users SET own_price = true, trafprice = 0.12345, mac_addr = 'odd' WHERE user_id = 2");
    Execute("INSERT INTO users (username, mode, traflim, timelim, trafperiod, timeperiod, blocked, "
            "blockreason, group_id) VALUES ('-both', 5, 10, 20, 1, 1, 1, 1, 80)");
    Execute("INSERT INTO users (username, mode, group_id) VALUES ('lost', 77, 4711)");
    Execute(
        "INSERT INTO billing (mode, object_id, data, currencydata, unlimited) VALUES (2, 2, 7, 1, 1)");
    const QStringList before = EveryRow();
    const QString text = ExportedText();
    const ImportJob same = JobOf(text);
    EXPECT_EQ(same.plan.Count(ImportState::Unchanged), 4)
        << qPrintable(Shown(same.plan).join(u'\n'));

    // Once the users are gone it makes them anew, but for what no file may bring.
    Execute("DELETE FROM users");
    Execute("DELETE FROM billing");
    Execute("DELETE FROM groups WHERE group_id = 81");
    Execute("DELETE FROM logins");
    QString withoutOdd = text;
    withoutOdd.replace(u",odd,"_s, u",,"_s).replace(u"0.12345"_s, u"0.12"_s);
    withoutOdd.replace(u",anna,"_s, u",,"_s);
    ASSERT_TRUE(RunImport(JobOf(withoutOdd)).IsDone());
    withoutOdd.replace(u"lost,,,,,,,,,,,,,"_s, u"lost,,,,,,Everybody,yes,No control,,,,,"_s);
    EXPECT_EQ(ExportedText(), withoutOdd);
}

TEST_P(Imports, TenThousandRowsAreImportedInTime)
{
    QString text =
        u"Name,Full name,IP,MAC,Group,Create group,Access,Traffic limit,Traffic credit\n"_s;
    for (int i = 0; i < 10'000; ++i) {
        const bool provider = i % 4 == 0;
        text += u"user%1,User %1,10.1.%2.%3,0001%4,Group %5,yes,%6,%7,%8\n"_s.arg(i)
                    .arg(i >> 8)
                    .arg(i & 255)
                    .arg(i, 8, 16, QLatin1Char('0'))
                    .arg(i % 50)
                    .arg(provider ? u"Provider"_s : u"Traffic"_s,
                         provider ? QString() : u"500"_s,
                         provider ? u"100"_s : QString());
    }
    const ImportJob job = JobOf(text);
    ASSERT_EQ(job.plan.Count(ImportState::New), 10'000);
    ASSERT_TRUE(RunImport(job).IsDone());
    EXPECT_THAT(RowsOf("SELECT COUNT(*), SUM(traflim) FROM users"),
                ElementsAre(u"10002|3750000"_s));
    EXPECT_THAT(RowsOf("SELECT COUNT(*) FROM billing"), ElementsAre(u"2500"_s));
    const ImportJob changed =
        JobOf(text.replace(u",User "_s, u",Person "_s).replace(u",500,"_s, u",600,"_s));
    ASSERT_EQ(changed.plan.Count(ImportState::Changed), 10'000);
    ASSERT_TRUE(RunImport(changed).IsDone());
    EXPECT_THAT(RowsOf("SELECT SUM(traflim) FROM users WHERE fullname <> ''"),
                ElementsAre(u"4500000"_s));
    EXPECT_THAT(RowsOf("SELECT fullname FROM users WHERE username = 'user9999'"),
                ElementsAre(u"Person 9999"_s));
}
