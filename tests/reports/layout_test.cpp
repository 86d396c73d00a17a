#include "reports/layout.h"

#include "reports/catalogue.h"
#include "reports/query_check.h"
#include "reports/selection.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

QString LayoutFile(int row)
{
    const auto name = FileNameOf(ReportCatalogue()[static_cast<size_t>(row)].layoutFile.toString());
    return QStringLiteral(TB_SOURCE_DIR "/src/reports/layouts/") + name.section(u'/', 1);
}

// A small layout that is right, with one text in it exchanged.
QByteArray With(const char *from, const char *to)
{
    QByteArray text = R"(title = "T"
rows = "summed"
order = ["-data"]
query = '''SELECT name, day, data FROM (SELECT username AS name, current_time AS day, data FROM users, traffic_use) t'''
[[column]]
name = "name"
[[column]]
name = "day"
type = "day"
hidden = true
[[column]]
name = "data"
type = "amount"
total = true
[chart]
kind = "days"
day = "day"
values = ["data"]
)";
    EXPECT_TRUE(text.contains(from)) << from;
    return text.replace(from, to);
}

} // namespace

TEST(Layouts, EachRowsFileStoresTheRowsQuery)
{
    for (int row = 0; row < kReportCount; ++row) {
        LayoutError error;
        const auto layout = ReadLayout(LayoutFile(row), error);
        ASSERT_TRUE(layout) << qPrintable(error.Message());
        EXPECT_EQ(layout->query, StoredQuery(row)) << row;
        EXPECT_EQ(layout->title, TitleOf(ReportCatalogue()[static_cast<size_t>(row)]).trimmed())
            << row;
    }
}

TEST(Layouts, WhatALayoutCannotSayIsRefusedWithItsLine)
{
    struct Case
    {
        const char *from;
        const char *to;
        const char *message;
    };
    const Case cases[] = {
        {"order = ",
         "ordre = ",
         "x.rpt:3: unknown key \"ordre\"; the nearest known one is \"order\""},
        {"hidden", "hiden", "x.rpt:10: unknown key \"hiden\"; the nearest known one is \"hidden\""},
        {"kind", "knd", "x.rpt:16: unknown key \"knd\"; the nearest known one is \"kind\""},
        {"\"-data\"",
         "\"-dato\"",
         "x.rpt:3: \"order\" names no column \"dato\"; the nearest is \"data\""},
        {"\"summed\"",
         "\"sumed\"",
         "x.rpt:2: \"rows\" cannot be \"sumed\"; the nearest known is \"summed\""},
        {"title = \"T\"", "title = 7", "x.rpt:1: \"title\" is not a text"},
        {"title = \"T\"", "title = ", "x.rpt:1: Error while parsing key-value pair"},
        {"hidden = true", "hidden = 1", "x.rpt:10: \"hidden\" is neither true nor false"},
        {"total = true", "decimals = 2.5\ntotal = true", "\"decimals\" is not a whole number"},
        {"total = true", "decimals = 7\ntotal = true", "\"decimals\" is not a number from 0 to 6"},
        {"total = true", "width = nan\ntotal = true", "\"width\" is not a number from"},
        {"name = \"day\"", "name = \"name\"", "x.rpt:8: \"name\" is no name, or a second one"},
        {"name = \"day\"", "name = \"a`b\"", "x.rpt:8: \"a`b\" is no name"},
        // It would end between the quotes of one engine and go on as a part of the statement.
        {"name = \"day\"", "name = 'a\", b'", "x.rpt:8: \"a\", b\" is no name"},
        {"type = \"amount\"\n", "", "only numbers have a total"},
        {"type = \"day\"", "type = \"text\"", "\"day\" is not a column of days"},
        {"rows = \"summed\"", "rows = \"each\"\ntop = 10", "\"top\" needs rows = \"summed\""},
        {"rows = \"summed\"",
         "group = [\"name\"]\nrows = \"summed\"",
         "\"group\" needs rows = \"each\""},
        {"values = [\"data\"]",
         "values = [\"name\"]",
         "a chart draws read or counted columns with a total"},
        {"SELECT name",
         "DELETE",
         "x.rpt:4: a report's query begins with SELECT, not with \"DELETE\""},
        {" t'''", " t; DROP TABLE users'''", "x.rpt:4: the query holds more than one statement"},
    };
    for (const auto &[from, to, message] : cases) {
        LayoutError error;
        EXPECT_FALSE(ParseLayout(With(from, to), u"x.rpt"_s, error)) << to;
        EXPECT_NE(error.Message().toStdString().find(message), std::string::npos)
            << error.Message().toStdString() << "\nwanted: " << message;
    }
    LayoutError error;
    EXPECT_TRUE(ParseLayout(With("\"T\"", "\"U\""), u"x.rpt"_s, error))
        << error.Message().toStdString();
}

TEST(Layouts, OneOfWhichNothingWouldBePrintedIsRefused)
{
    const char *const columns[] = {"name = \"name\"\nhidden = true\n", "name = \"name\"\n"};
    const char *const groups[] = {"", "group = [\"name\"]\n"};
    for (const int kind : {0, 1}) {
        LayoutError error;
        const QByteArray text = QByteArray("title = \"T\"\n") + groups[kind]
            + "query = 'SELECT name FROM groups'\n[[column]]\n" + columns[kind];
        EXPECT_FALSE(ParseLayout(text, u"x.rpt"_s, error)) << text.constData();
        EXPECT_TRUE(error.text.contains(u"no column is left to be printed"));
    }
}

TEST(Layouts, HostileFilesAreRefused)
{
    const QTemporaryDir folder;
    const auto refusal = [&](const QByteArray &text) {
        QFile file(folder.filePath(u"x.rpt"_s));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
        file.close();
        LayoutError error;
        EXPECT_FALSE(ReadLayout(folder.path() + u"\\x.rpt", error));
        return error.text.toStdString();
    };
    EXPECT_NE(refusal(QByteArray(10'000'000, '#')).find("larger than a layout can be"),
              std::string::npos);
    EXPECT_FALSE(refusal("a = " + QByteArray(100'000, '[')).empty());
    EXPECT_FALSE(refusal("a" + QByteArray(".a").repeated(20'000) + " = 1").empty());
    EXPECT_FALSE(refusal("a" + QByteArray(".a").repeated(100'000) + " = 1").empty());
    EXPECT_FALSE(refusal(QByteArray("title = \"\xff\xfe\"")).empty());
    EXPECT_FALSE(refusal("").empty());
    EXPECT_FALSE(refusal("column = 1\nchart = 2\n").empty());
    EXPECT_FALSE(refusal("column = [{name=\"a\",adds=[\"b\"]}]\n").empty());
    LayoutError error;
    EXPECT_FALSE(ReadLayout(folder.filePath(u"none.rpt"_s), error));
    EXPECT_TRUE(error.text.contains(u"no such layout file"));
    EXPECT_FALSE(ReadLayout(folder.path(), error));
}

TEST(Queries, OnlyOneReadingStatementIsRun)
{
    const char *const refused[] = {
        "",
        " ; ",
        "UPDATE users SET blocked = 0",
        "SELECT 1; SELECT 2",
        "SELECT 1 INTO OUTFILE 'x'",
        "SELECT username FROM users INTO DUMPFILE 'x'",
        "WITH a AS (DELETE FROM users) SELECT 1",
        "WITH a AS (INSERT INTO users VALUES (1) RETURNING user_id) SELECT user_id FROM a",
        "SELECT 1 -- x",
        "SELECT 1 --x\nFROM logins",
        "SELECT 1 /*! x */",
        "SELECT 1 /* x */ FROM users",
        "SELECT 'a\\' ; x'",
        "SELECT \"a\\\" ; x\"",
        "SELECT $$;$$",
        "SELECT $a$;$a$",
        "SELECT @a",
        "SELECT @@version",
        "SELECT ?",
        "SELECT :a",
        "SELECT $1",
        "SELECT {fn user()}",
        "SELECT (1",
        "SELECT 1)",
        "SELECT 'open",
        "SELECT ` open",
        "SELECT 1 # x",
        "SELECT #2026/99/99# FROM users",
        "SELECT #0000/01/01# FROM users",
        "PRAGMA query_only=0",
        "SELECT username FROM users FOR UPDATE",
        "SELECT username FROM users PROCEDURE ANALYSE()",
        "VALUES (1)",
        "TABLE logins",
    };
    for (const char *query : refused) {
        EXPECT_TRUE(QueryProblem(QString::fromLatin1(query))) << query;
    }
    EXPECT_TRUE(QueryProblem(u"SELECT username FROM\u00a0users"_s));
    EXPECT_TRUE(QueryProblem(u"SELECT \u0430bs(1)"_s)); // the first letter is a Cyrillic one
    EXPECT_TRUE(QueryProblem(u"SELECT "_s + QString(2000, u'(') + u'1' + QString(2000, u')')));
}

TEST(Queries, FunctionsAreCalledByTheirListOnly)
{
    const char *const refused[] = {
        "load_extension('x')",
        "\"load_extension\"('x')",
        "`load_extension`('x')",
        "[load_extension]('x')",
        "load_extension ('x')",
        "\"load_extension\"\n('x')",
        "\"Load_Extension\"('x')",
        "pg_sleep(9)",
        "\"pg_read_file\"('/etc/passwd')",
        "pg_catalog.pg_read_file('/etc/passwd')",
        "\"pg_catalog\".\"pg_read_file\"('/etc/passwd')",
        "U&\"pg\\005fread_file\"('/etc/passwd')",
        "U&\"pg!005fread_file\" UESCAPE '!' ('/etc/passwd')",
        "set_config('a', 'b', 'c')",
        "query_to_xml('SELECT pwd FROM logins', true, false, '')",
        "`load_file`('/etc/passwd')",
        "`test`.`load_file`('/etc/passwd')",
        "sum(load_file('/etc/passwd'))",
        "coalesce(1, \"load_file\"('/etc/passwd'))",
        "CASE WHEN 1 = 1 THEN `load_file`('/etc/passwd') END",
        "CAST(\"pg_read_file\"('/etc/passwd') AS text)",
        "(SELECT \"pg_read_file\"('/etc/passwd'))",
        "users.to_json",
        "(users).to_json",
        "users",
        "username::regclass",
        "'logins'::regclass",
        "regclass 'logins'",
        "CAST('logins' AS regclass)",
        "E'\\x27'",
        "E'a'",
        "X'61'",
        "N'a'",
        "B'1'",
        "_utf8'a'",
        "_utf8 'a'",
        "current_user",
        "session_user",
        "username COLLATE x",
        "sum(data) OVER ()",
        "sum(data) OVER (PARTITION BY username)",
        "sum(data) FILTER (WHERE 1 = 1)",
        "ARRAY(SELECT 1)",
        "ROW(username)",
        "EXTRACT(day FROM username)",
        "username ~ 'a'",
        "username -> 'a'",
        "1 & 2",
    };
    for (const char *expression : refused) {
        const QString part = QString::fromLatin1(expression);
        for (const QString &query :
             {u"SELECT %1 AS username FROM users"_s.arg(part),
              u"SELECT username FROM users WHERE %1 = 'x'"_s.arg(part),
              u"SELECT username FROM users ORDER BY %1"_s.arg(part),
              u"SELECT username FROM users GROUP BY username, %1"_s.arg(part),
              u"SELECT username FROM users UNION SELECT %1"_s.arg(part)}) {
            EXPECT_TRUE(QueryProblem(query)) << query.toStdString();
        }
    }
}

TEST(Queries, OnlyTheTablesOfReportsAreRead)
{
    const char *const refused[] = {
        "SELECT pwd FROM logins",
        "SELECT login FROM logins",
        "SELECT \"Pwd\" FROM \"Logins\"",
        "SELECT `pwd` FROM `logins`",
        "SELECT l.pwd FROM users u INNER JOIN logins l ON u.user_id = l.userid",
        "SELECT username, (SELECT pwd FROM logins) FROM users",
        "SELECT username FROM users WHERE username IN (SELECT pwd FROM logins)",
        "SELECT username FROM users WHERE EXISTS (SELECT 1 FROM logins WHERE login = 'x')",
        "SELECT username FROM users UNION SELECT pwd FROM logins",
        "SELECT username FROM users UNION ALL SELECT name FROM sqlite_master",
        "WITH l AS (SELECT pwd FROM logins) SELECT pwd FROM l",
        "SELECT username FROM users, logins",
        "SELECT x FROM (SELECT pwd AS x FROM logins) y",
        "SELECT username FROM (users INNER JOIN logins ON 1 = 1)",
        "SELECT * FROM users",
        "SELECT users.* FROM users",
        "SELECT username FROM public.users",
        "SELECT rolpassword FROM pg_authid",
        "SELECT table_name FROM information_schema.tables",
        "SELECT table_name FROM PRESENT_TABLES",
        "WITH `present_tables` AS (SELECT 1 AS table_name) SELECT table_name FROM present_tables",
        "SELECT 1 FROM data_mark",
        "SELECT name FROM pragma_database_list",
        "SELECT a FROM pg_ls_dir('/') a",
        "SELECT a FROM \"pg_ls_dir\"('/') a",
        "SELECT a FROM users, LATERAL pg_ls_dir('/') a",
        "SELECT a FROM ROWS FROM (pg_ls_dir('/')) a",
        "SELECT k FROM JSON_TABLE('[]', '$' COLUMNS (k INT PATH '$')) t",
        "SELECT username FROM users TABLESAMPLE SYSTEM (1)",
        "SELECT secret FROM users",
        "SELECT users.secret FROM users",
        "SELECT nobody.username FROM users",
        "SELECT oid FROM users",
        "SELECT a AS users FROM users",
        "SELECT 1 AS secret FROM users WHERE secret = 1",
        "SELECT 1 AS secret UNION SELECT secret",
        "SELECT `a\" , pg_read_file('x') AS \"b` FROM users",
        "SELECT user_id AS `a\" , pg_read_file('x') AS \"b` FROM users",
        "SELECT user_id AS holds FROM users",
        "SELECT 1 AS regclass FROM users WHERE regclass 'logins' = 1",
    };
    for (const char *query : refused) {
        EXPECT_TRUE(QueryProblem(QString::fromLatin1(query))) << query;
    }
}

TEST(Queries, WhatReportsNeedIsTaken)
{
    const char *const taken[] = {
        "SELECT 1",
        "select username from users where user_id in (1, 2);",
        "SELECT ';' || 'DROP' AS \"a;b\", 'O''Hara' AS `c;d` FROM users",
        "SELECT SUM(a), COUNT(*) FROM (SELECT data AS a, date FROM billing) c "
        "WHERE date >= #2026/11/21# AND a = -1 AND c.date < #2026/02/30#",
        "WITH a AS (SELECT 1 x) SELECT x FROM a ORDER BY x LIMIT 3",
        "WITH a AS (SELECT user_id FROM users), b AS (SELECT user_id FROM a) SELECT b.user_id FROM b",
        "SELECT DISTINCT u.`username` AS who, COUNT(DISTINCT t.data) AS count FROM users u "
        "LEFT OUTER JOIN traffic_use AS t ON u.user_id = t.user_id AND t.period = 0 "
        "GROUP BY u.`username` HAVING COUNT(*) > 1 ORDER BY count DESC, who LIMIT 5 OFFSET 2",
        "SELECT CASE mode WHEN 1 THEN 'a' ELSE NULL END AS kind, CAST(data AS decimal(10, 2)) AS data "
        "FROM billing WHERE expiredday IS NOT NULL AND NOT (closed = 1 OR unlimited <> 0) "
        "AND usage NOT BETWEEN 1 AND 2.5 AND expiredday NOT LIKE '%x' ESCAPE '!'",
        "SELECT username FROM users u WHERE EXISTS (SELECT 1 FROM time_use t WHERE t.user_id = "
        "u.user_id AND t.current_time <= current_date) AND u.user_id NOT IN (SELECT user_id FROM time_use)",
        "SELECT name FROM groups UNION ALL SELECT username FROM users ORDER BY name",
        "SELECT sitename FROM sites INNER JOIN siteaccess USING (site_id) CROSS JOIN protocols",
    };
    for (const char *query : taken) {
        EXPECT_EQ(QueryProblem(QString::fromLatin1(query)), std::nullopt) << query;
    }
    for (int row = 0; row < kReportCount; ++row) {
        EXPECT_EQ(QueryProblem(StoredQuery(row)), std::nullopt) << row;
    }
}

TEST(Queries, OnlyTheOuterOrderIsCut)
{
    const std::pair<const char *, const char *> cases[] = {
        {"SELECT a FROM b ORDER BY a DESC, c;", "SELECT a FROM b"},
        {"SELECT a FROM b ; ", "SELECT a FROM b"},
        {"SELECT a FROM (SELECT a FROM b ORDER BY a) c",
         "SELECT a FROM (SELECT a FROM b ORDER BY a) c"},
        {"SELECT a FROM b ORDER BY a LIMIT 5", "SELECT a FROM b ORDER BY a LIMIT 5"},
        {"SELECT 'ORDER BY' FROM b", "SELECT 'ORDER BY' FROM b"},
    };
    for (const auto &[query, wanted] : cases) {
        EXPECT_EQ(WithoutOrder(QString::fromLatin1(query)), QString::fromLatin1(wanted));
    }
}
