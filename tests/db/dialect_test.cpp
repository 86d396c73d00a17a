#include "db/dialect.h"

#include "db/translation.h"

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
    {"SELECT a AS `b\" c`", "select a as \"b\"\" c\"", "select a as `b\" c`"},
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

TEST(Dialects, SpellASearchForTheEngine)
{
    const char *plain =
        "CASE_FOLDED (a PLAIN_CASE) HOLDS CASE_FOLDED ((?) PLAIN_CASE) PLAIN_CASE ESCAPE '!'";
    EXPECT_EQ(Translate(kSqlite, plain), " (a ) LIKE  ((?) )  escape '!'");
    EXPECT_EQ(Translate(kPostgresql, plain),
              "lower (a COLLATE \"C\") COLLATE \"C\" LIKE lower ((?) COLLATE \"C\") COLLATE \"C\" "
              "escape '!'");
    EXPECT_EQ(Translate(kMariadb, plain),
              " (a ) COLLATE utf8mb4_uca1400_nopad_as_ci LIKE  ((?) )  escape '!'");
    const char *letters = "OCTETS_OF (a) EXCEEDING_LETTERS_OF (a) AND a LETTER_CASE";
    EXPECT_EQ(Translate(kSqlite, letters), " (a) IS (a) and a ");
    EXPECT_EQ(Translate(kPostgresql, letters),
              "octet_length (a) > char_length (a) and a COLLATE \"und-x-icu\"");
    EXPECT_EQ(Translate(kMariadb, letters), "length (a) >= length (a) and a ");
    EXPECT_EQ(Translate(kSqlite, "a SCANNED b BY_KEY c"), "a NOT INDEXED b NOT INDEXED c");
    EXPECT_EQ(Translate(kPostgresql, "a BY_KEY b"), "a  b");
}

struct DayParameter
{
    const char *written;
    ParameterKind kind;
    const char *spelled;
    ParameterChange change;
};

// A thousand of them are too many for an engine as they are written.
TEST(Dialects, WriteAColumnsComparisonWithManyNumbersAsAList)
{
    const auto chain = [](const std::string &term, const std::string &joint, int count) {
        std::string text = "x (";
        for (int number = 1; number <= count; ++number) {
            text += (number > 1 ? joint : std::string()) + term + std::to_string(number);
        }
        return text + ") y";
    };
    const auto list = [](int count) {
        std::string text;
        for (int number = 1; number <= count; ++number) {
            text += (number > 1 ? "," : "") + std::to_string(number);
        }
        return text;
    };
    const auto same = [&](const std::string &term, const std::string &joint) {
        return std::pair(chain(term, joint, 20), chain(term, joint, 20));
    };
    const std::pair<std::string, std::string> cases[] = {
        {chain("users.user_id = ", " OR ", 20), "x (users.user_id in (" + list(20) + ")) y"},
        {chain("users.user_id <> ", " AND ", 20), "x (users.user_id not in (" + list(20) + ")) y"},
        {chain("Users.Group_id <> ", " or ", 20),
         "x (users.group_id <> 1 or users.group_id <> 2) y"},
        same("a = ", " and "),
        same("a < ", " or "),
        same("a ", " or "),
        same("", " + "),
        {chain("a = ", " or ", 3), chain("a = ", " or ", 3)},
        {"(a = 1 or b = 2)", "(a = 1 or b = 2)"},
        {"(a = 1 or (?))", "(a = 1 or (?))"},
        {"(a = 1", "(a = 1"},
        {"(", "("},
    };
    for (const auto &[written, wanted] : cases) {
        for (const Dialect *dialect : {&kSqlite, &kPostgresql, &kMariadb}) {
            EXPECT_EQ(Translate(*dialect, written), wanted);
        }
    }
}

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

struct CodeCase
{
    const Dialect &dialect;
    const char *sqlState;
    int native;
    Failure::Kind kind;
};

// Codes as the drivers give them.
TEST(Dialects, KnowWhatAFailureMeans)
{
    using Kind = Failure::Kind;
    const CodeCase cases[] = {
        {kSqlite, "HY000", 1, Kind::Refused}, // an error of the statement
        {kSqlite, "HY000", 19, Kind::NotUnique}, // a constraint
        {kSqlite, "HY000", 10, Kind::Refused}, // the disk
        {kSqlite, "HY000", 5, Kind::Locked},
        {kSqlite, "HY000", 6, Kind::Locked},
        {kSqlite, "HY000", 9, Kind::Cancelled},
        {kSqlite, "00000", 0, Kind::Refused}, // nothing was told
        {kPostgresql, "23505", 1, Kind::NotUnique},
        {kPostgresql, "42703", 1, Kind::Refused},
        {kPostgresql, "25006", 1, Kind::NotWritable}, // a standby
        {kPostgresql, "25P02", 1, Kind::Refused}, // what follows a failure in a transaction
        {kPostgresql, "53300", 101, Kind::Refused},
        {kPostgresql, "40001", 1, Kind::Conflict},
        {kPostgresql, "40P01", 1, Kind::Conflict},
        {kPostgresql, "55P03", 1, Kind::Locked},
        {kPostgresql, "57014", 1, Kind::Cancelled},
        {kPostgresql, "57P01", 35, Kind::ConnectionLost},
        {kPostgresql, "57P02", 1, Kind::ConnectionLost},
        {kPostgresql, "57P02", 8, Kind::ConnectionLost},
        {kPostgresql, "57P03", 1, Kind::ConnectionLost},
        {kPostgresql, "08S01", 35, Kind::ConnectionLost},
        {kPostgresql, "08001", 101, Kind::ConnectionLost},
        {kPostgresql, "25P03", 35, Kind::ConnectionLost}, // idle for too long in a transaction
        {kPostgresql, "HY000", 8, Kind::ConnectionLost}, // "internal SAVEPOINT failed"
        {kPostgresql, "HY000", 1, Kind::Refused},
        {kMariadb, "23000", 1062, Kind::NotUnique},
        {kMariadb, "42S22", 1054, Kind::Refused},
        {kMariadb, "HY018", 1969, Kind::Refused}, // a limit of the server's own
        {kMariadb, "40001", 1213, Kind::Conflict},
        {kMariadb, "HY000", 1213, Kind::Conflict},
        {kMariadb, "HY000", 1205, Kind::Locked},
        {kMariadb, "HY018", 1317, Kind::Cancelled},
        {kMariadb, "08S01", 2006, Kind::ConnectionLost},
        {kMariadb, "HY000", 2006, Kind::ConnectionLost},
        {kMariadb, "HY018", 1927, Kind::ConnectionLost},
        {kMariadb, "08S01", 2013, Kind::ConnectionLost},
        {kMariadb, "HY000", 2002, Kind::ConnectionLost},
        {kMariadb, "HY000", 5014, Kind::ConnectionLost},
        {kMariadb, "08S01", 1053, Kind::ConnectionLost},
        {kMariadb, "08S01", 1047, Kind::NotWritable}, // a cluster's node on its own
        {kMariadb, "HY000", 1180, Kind::ConnectionLost}, // while it lost the others
        {kMariadb, "HY000", 1290, Kind::NotWritable}, // read-only
    };
    for (const auto &[dialect, sqlState, native, kind] : cases) {
        EXPECT_EQ(KindOf(dialect, sqlState, native), kind)
            << dialect.engine << ' ' << sqlState << ' ' << native;
    }
}

TEST(Dialects, AreChosenByTheServersName)
{
    EXPECT_EQ(DialectFor("SQLite"), &kSqlite);
    EXPECT_EQ(DialectFor("PostgreSQL"), &kPostgresql);
    EXPECT_EQ(DialectFor("MariaDB"), &kMariadb);
    EXPECT_EQ(DialectFor("MySQL"), &kMariadb);
    EXPECT_EQ(DialectFor("Something new"), nullptr);
}

} // namespace
