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
query = '''SELECT name, day, data FROM t'''
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
        {"FROM t'''",
         "FROM t; DROP TABLE users'''",
         "x.rpt:4: the query holds more than one statement"},
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
            + "query = 'SELECT name FROM t'\n[[column]]\n" + columns[kind];
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
    const char *const refused[] = {"",
                                   " ; ",
                                   "UPDATE users SET blocked = 0",
                                   "SELECT 1; SELECT 2",
                                   "SELECT 1 INTO OUTFILE 'x'",
                                   "WITH a AS (DELETE FROM users) SELECT 1",
                                   "SELECT load_extension('x')",
                                   "SELECT pg_sleep(9)",
                                   "SELECT set_config('a','b','c')",
                                   "SELECT 1 -- x",
                                   "SELECT 1 /*! x */",
                                   "SELECT 'a\\' ; x'",
                                   "SELECT $$;$$",
                                   "SELECT @a",
                                   "SELECT ?",
                                   "SELECT (1",
                                   "SELECT 1)",
                                   "SELECT 'open",
                                   "SELECT 1 # x",
                                   "PRAGMA query_only=0",
                                   "SELECT x FROM y FOR UPDATE",
                                   "SELECT ` open"};
    for (const char *query : refused) {
        EXPECT_TRUE(QueryProblem(QString::fromLatin1(query))) << query;
    }
    const char *const taken[] = {
        "SELECT 1",
        "select a from b where c in (1, 2);",
        "SELECT ';' || 'DROP', \"a;b\", `c;d` FROM t",
        "SELECT SUM(a), COUNT(*) FROM (SELECT a FROM b) c WHERE d >= #2026/11/21# AND e = -1",
        "WITH a AS (SELECT 1 x) SELECT x FROM a ORDER BY x LIMIT 3"};
    for (const char *query : taken) {
        EXPECT_FALSE(QueryProblem(QString::fromLatin1(query))) << query;
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
