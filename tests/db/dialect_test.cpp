#include "db/dialect.h"

#include <gtest/gtest.h>

namespace {

struct Spelling
{
    const char *written;
    const char *standard; // SQLite and PostgreSQL
    const char *mariadb; // null where it is the same
};

constexpr Spelling kSpellings[] = {
    // Names
    {"UPDATE Groups SET PortAccess = true WHERE Group_id = (?)",
     "update \"groups\" set portaccess = 1 where group_id = (?)",
     "update `groups` set portaccess = 1 where group_id = (?)"},
    {"SELECT data, usage FROM billing",
     "select data, \"usage\" from billing",
     "select data, `usage` from billing"},
    {"SELECT users.virtual FROM users",
     "select users.\"virtual\" from users",
     "select users.`virtual` from users"},
    {"SELECT users.`username` FROM `users` users",
     "select users.\"username\" from \"users\" users",
     "select users.`username` from `users` users"},
    {"SELECT usages, groupsize, current_times FROM x",
     "select usages, groupsize, current_times from x",
     nullptr},
    {"SELECT a  FROM  b ", "select a  from  b ", nullptr},
    // Truth
    {"SET a = TRUE, b=false, trueish = 1", "set a = 1, b=0, trueish = 1", nullptr},
    // Texts stay as they are
    {"SELECT 'True Usage #2026/11/21# (?) `x`'",
     "select 'True Usage #2026/11/21# (?) `x`'",
     nullptr},
    {"SELECT 'It''s Groups' FROM a", "select 'It''s Groups' from a", nullptr},
    {"SELECT 'open Groups", "select 'open Groups", nullptr},
    {"SELECT `open Groups", "select \"open groups\"", "select `open groups`"},
    {"", "", nullptr},
    // Days
    {"WHERE traffic_use.current_time = #2026/11/21#",
     "where traffic_use.\"current_time\" = '2026-11-21'",
     "where traffic_use.`current_time` = '2026-11-21'"},
    {"WHERE billing.date = #2026/12/31#",
     "where billing.date >= '2026-12-31' and billing.date < '2027-01-01'",
     nullptr},
    {"WHERE billing.date >= #2026/11/21# and billing.date <= #2026/11/30#",
     "where billing.date >= '2026-11-21' and billing.date < '2026-12-01'",
     nullptr},
    {"WHERE date > #2026/11/21# OR date < #2026/11/21#",
     "where date >= '2026-11-22' or date < '2026-11-21'",
     nullptr},
    {"WHERE time_use.current_time >= #2026/02/30#",
     "where time_use.\"current_time\" >= '2026-03-01'",
     "where time_use.`current_time` >= '2026-03-01'"},
    {"WHERE a = #1 or b = #2026-11-21#", "where a = #1 or b = #2026-11-21#", nullptr},
    {"SELECT date, updated FROM billing ORDER BY date DESC",
     "select date, updated from billing order by date desc",
     nullptr},
    {"WHERE date < (?)", "where date < (?)", nullptr},
};

TEST(Dialects, SpellAStatementForTheEngine)
{
    for (const auto &[written, standard, mariadb] : kSpellings) {
        EXPECT_EQ(Translate(kSqlite, written), standard);
        EXPECT_EQ(Translate(kPostgresql, written), standard);
        EXPECT_EQ(Translate(kMariadb, written), mariadb == nullptr ? standard : mariadb);
    }
}

struct DayParameter
{
    const char *written;
    ParameterKind kind;
    const char *spelled;
    ParameterChange change;
};

TEST(Dialects, CompareABoundDayWithTheWholeDay)
{
    const DayParameter cases[] = {
        {"date > (?)", ParameterKind::Day, "date >= (?)", ParameterChange::NextDay},
        {"date<=(?)", ParameterKind::Day, "date < (?)", ParameterChange::NextDay},
        {"date < (?)", ParameterKind::Day, "date < (?)", ParameterChange::None},
        {"Date >= (?)", ParameterKind::Day, "date >= (?)", ParameterChange::None},
        {"date >= (?)", ParameterKind::Text, "date >= (?)", ParameterChange::DayToStamp},
        {"current_times > (?)", ParameterKind::Day, "current_times > (?)", ParameterChange::None},
    };
    for (const DayParameter &c : cases) {
        ParameterKinds kinds {ParameterKind::Integer, c.kind};
        ParameterChanges changes {};
        std::string spelled;
        Translate(kSqlite, std::string("a = (?) and ") + c.written, kinds, spelled, changes);
        EXPECT_EQ(spelled, std::string("a = (?) and ") + c.spelled);
        EXPECT_EQ(changes[0], ParameterChange::None) << c.written;
        EXPECT_EQ(changes[1], c.change) << c.written;
    }
}

TEST(Dialects, AreChosenByTheServersName)
{
    EXPECT_EQ(&DialectFor("SQLite"), &kSqlite);
    EXPECT_EQ(&DialectFor("PostgreSQL"), &kPostgresql);
    EXPECT_EQ(&DialectFor("MariaDB"), &kMariadb);
    EXPECT_EQ(&DialectFor("MySQL"), &kMariadb);
    EXPECT_EQ(&DialectFor("Something new"), &kSqlite);
}

} // namespace
