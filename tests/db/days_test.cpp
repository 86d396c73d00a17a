// Days as the fixed statements name them: bound, written between #, and as text.
#include "db/failure_log.h"
#include "db/session.h"
#include "support/core/engine_fixture.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Around one day: the ends of the day before, of the day itself, and of the next.
constexpr const char *kMoments[] = {"2026-11-19 12:00:00",
                                    "2026-11-20 23:59:59",
                                    "2026-11-21 00:00:00",
                                    "2026-11-21 15:30:00",
                                    "2026-11-21 23:59:59",
                                    "2026-11-22 00:00:00",
                                    "2026-11-23 08:00:00"};

class Days : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        for (const char *moment : kMoments) {
            const std::string insert =
                std::string("INSERT INTO billing (mode, date) VALUES (2, '") + moment + "')";
            Execute(insert.c_str());
        }
        for (const char *day : {"2026-02-27", "2026-02-28", "2026-03-01", "2026-03-02"}) {
            const std::string insert =
                std::string("INSERT INTO traffic_use (user_id, current_time) VALUES (1, '") + day
                + "')";
            Execute(insert.c_str());
        }
        ASSERT_EQ(FailureLog::Instance().Count(), 0);
    }

    // The bill_ids 1 to 7 stand for the moments above.
    static std::string Bills()
    {
        std::string ids;
        for (const QString &id : RowsOf("SELECT bill_id FROM billing ORDER BY bill_id")) {
            ids += id.toStdString();
        }
        return ids;
    }

    template <typename Value>
    static std::string Found(const char *sqlText, const Value &value)
    {
        std::string ids;
        for (RowCursor rows(sqlText, value); rows.Next();) {
            ids += queryResult.Bytes(1);
        }
        return ids;
    }
};
TB_ON_EVERY_ENGINE(Days);

TEST_P(Days, CompareADateAndTimeByDay)
{
    constexpr Day day {2026, 11, 21};
    EXPECT_EQ(Found("SELECT bill_id FROM billing WHERE date > (?) ORDER BY bill_id", day), "67");
    EXPECT_EQ(Found("SELECT bill_id FROM billing WHERE date < (?) ORDER BY bill_id", day), "12");
    EXPECT_EQ(Found("SELECT bill_id FROM billing WHERE date >= (?) ORDER BY bill_id", day),
              "34567");
    EXPECT_EQ(Found("SELECT bill_id FROM billing WHERE date <= (?) ORDER BY bill_id", day),
              "12345");
    Execute("DELETE FROM billing WHERE date < (?)", day);
    Execute("DELETE FROM billing WHERE date > (?)", day);
    EXPECT_EQ(Bills(), "345");
}

TEST_P(Days, ReadTheTextOfADayWithItsTime)
{
    const char *const statement = "SELECT bill_id FROM billing WHERE mode = 2 AND date >= (?) "
                                  "ORDER BY bill_id";
    EXPECT_EQ(Found(statement, u"21.11.2026 00:00:00"_s), "34567");
    EXPECT_EQ(Found(statement, u"31.11.2026 00:00:00"_s), "");
    EXPECT_EQ(Found(statement, u"01.11.2026 00:00:00"_s), "1234567");
}

TEST_P(Days, ReadDaysBetweenSigns)
{
    const std::pair<const char *, const char *> cases[] = {
        {" and billing.date = #2026/11/21#", "345"},
        {" and billing.date >= #2026/11/21#", "34567"},
        {" and billing.date <= #2026/11/21#", "12345"},
        {" and billing.date >= #2026/11/20# and billing.date <= #2026/11/21#", "2345"},
        {" and billing.date = #2026/11/31#", ""},
    };
    for (const auto &[condition, ids] : cases) {
        const std::string statement = std::string("SELECT billing.`bill_id` FROM `billing` billing "
                                                  "WHERE billing.mode = 2")
            + condition + " ORDER BY billing.`bill_id` ASC";
        std::string found;
        for (RowCursor rows(statement.c_str()); rows.Next();) {
            found += queryResult.Bytes(1);
        }
        EXPECT_EQ(found, ids) << condition;
    }
    EXPECT_EQ(
        RowsOf("SELECT traf_id FROM traffic_use WHERE traffic_use.current_time >= #2026/02/28# "
               "and traffic_use.current_time <= #2026/03/01#"),
        (QStringList {u"2"_s, u"3"_s}));
    EXPECT_EQ(
        RowsOf("SELECT traf_id FROM traffic_use WHERE traffic_use.current_time = #2026/02/30#"),
        QStringList {u"3"_s});
}

TEST_P(Days, TakeTheNextDayForOneThatDoesNotExist)
{
    EXPECT_EQ(Found("SELECT traf_id FROM traffic_use WHERE current_time = (?)", Day {2026, 2, 30}),
              "3");
    Execute("DELETE FROM traffic_use WHERE current_time < (?)", Day {2026, 2, 30});
    EXPECT_EQ(RowsOf("SELECT traf_id FROM traffic_use ORDER BY traf_id"),
              (QStringList {u"3"_s, u"4"_s}));
    Execute("DELETE FROM traffic_use WHERE current_time > (?)", Day {2026, 3, 1});
    EXPECT_EQ(RowsOf("SELECT traf_id FROM traffic_use"), QStringList {u"3"_s});
    EXPECT_EQ(FailureLog::Instance().Count(), 0);
}

TEST_P(Days, AreReadAsYearMonthDay)
{
    EXPECT_EQ(RowsOf("SELECT date FROM billing WHERE bill_id = 4"),
              QStringList {u"2026-11-21 15:30:00"_s});
    EXPECT_EQ(RowsOf("SELECT current_time FROM traffic_use WHERE traf_id = 1"),
              QStringList {u"2026-02-27"_s});
}

TEST_P(Days, StartWithNowInABillingRecord)
{
    const auto before = QDateTime::currentDateTime().addSecs(-2);
    Execute("INSERT INTO billing (mode, object_id) VALUES (2, (?))", 5U);
    RunQuery("SELECT date FROM billing WHERE object_id = (?)", FetchMode::One, 5U);
    const auto made = QDateTime::fromString(queryResult.Text(1), u"yyyy-MM-dd HH:mm:ss"_s);
    EXPECT_GE(made, before) << queryResult.Bytes(1);
    EXPECT_LE(made, QDateTime::currentDateTime().addSecs(2)) << queryResult.Bytes(1);
}

} // namespace
