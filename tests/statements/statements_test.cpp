// Every fixed statement is sent by a test, runs on every engine and gives the same rows on each. What
// the fixed statements are is read from the sources and from what the other test programs sent.
#include "base/day.h"
#include "db/demo_data.h"
#include "db/failure_log.h"
#include "db/session.h"
#include "reports/catalogue.h"
#include "reports/selection.h"
#include "support/core/engine_fixture.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <compare>
#include <gtest/gtest.h>
#include <map>
#include <set>
#include <tuple>

using namespace Qt::StringLiterals;

namespace {

struct Statement
{
    QByteArray kinds; // as support/core/statement_log.h has them
    QByteArray text;

    // Queries first: what changes rows would leave them little.
    auto operator<=>(const Statement &other) const
    {
        const auto key = [](const Statement &statement) {
            return std::tuple(!statement.text.toUpper().startsWith("SELECT"),
                              statement.text.toStdString(),
                              statement.kinds.toStdString());
        };
        return key(*this) <=> key(other);
    }
};

// The literals of a source file, those that stand next to each other put together. A wide one is no
// text of the session's.
QList<QByteArray> LiteralsOf(const QString &source)
{
    static const QRegularExpression token(
        uR"re(//[^\n]*|'(?:[^'\\\n]|\\.)+'|u?"(?:[^"\\\n]|\\.)*"(?:\s*u?"(?:[^"\\\n]|\\.)*")*)re"_s);
    static const QRegularExpression seam(u"\"\\s*\""_s);
    QList<QByteArray> literals;
    for (const auto &match : token.globalMatch(source)) {
        const QString literal = match.captured();
        if (literal.startsWith(u'"')) {
            literals << literal.sliced(1, literal.size() - 2).remove(seam).toUtf8();
        }
    }
    return literals;
}

// The statements that the sources send on the session: db/ and upkeep/ have those of connections of
// their own, and ui/ holds none, but texts for people that may begin alike.
std::set<QByteArray> WrittenTexts()
{
    static const QRegularExpression begin(u"^(SELECT|INSERT|UPDATE|DELETE)\\s"_s);
    std::set<QByteArray> texts;
    QDirIterator files(QStringLiteral(TB_SOURCE_DIR "/src"),
                       {u"*.cpp"_s, u"*.h"_s},
                       QDir::Files,
                       QDirIterator::Subdirectories);
    while (files.hasNext()) {
        QFile file(files.next());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(file.fileName());
        static const QRegularExpression others(u"/src/(db|upkeep|ui)/"_s);
        if (others.match(file.fileName()).hasMatch()) {
            continue;
        }
        for (const QByteArray &literal : LiteralsOf(QString::fromUtf8(file.readAll()))) {
            if (begin.match(QString::fromUtf8(literal)).hasMatch()) {
                texts.insert(literal);
            }
        }
    }
    return texts;
}

// What the other test programs sent, the tests' own texts too.
std::set<Statement> SentStatements()
{
    std::set<Statement> statements;
    for (const QByteArray &program : QByteArray(TB_TEST_PROGRAMS).split(' ')) {
        QFile file(
            u"%1/%2.txt"_s.arg(QStringLiteral(TB_STATEMENTS_DIR), QString::fromLatin1(program)));
        EXPECT_TRUE(file.open(QIODevice::ReadOnly))
            << qPrintable(file.fileName()) << ": ctest without a filter has the tests write it";
        for (const QByteArray &line : file.readAll().split('\n')) {
            if (const auto tab = line.indexOf('\t'); tab >= 0) {
                statements.insert({line.left(tab), line.mid(tab + 1)});
            }
        }
    }
    return statements;
}

// Whether what was sent is the written text, or a query that goes on behind it with a clause, or rows that
// follow their columns.
bool IsText(const QByteArray &sent, const QByteArray &text, const std::set<QByteArray> &written)
{
    if (!sent.startsWith(text)) {
        return false;
    }
    const QByteArray rest = sent.sliced(text.size());
    const bool goesOn = text.startsWith("SELECT")
        && (rest.startsWith(" AND ") || rest.startsWith(" ORDER BY ")) && !written.contains(sent);
    const bool addsRows = text.endsWith(" VALUES ") && rest.startsWith("((?)");
    return rest.isEmpty() || goesOn || addsRows;
}

// Each report's own query, and those on a period and on users and groups that a filter names or leaves
// out. The period ends with a day that does not exist.
void AddReports(std::set<Statement> &statements)
{
    const ReportPeriod today = PeriodUpTo(Today(), PeriodChoice::Today);
    const ReportPeriod month {PeriodChoice::Custom, {2026, 10, 31}, {2026, 11, 31}};
    const QList users {UserId {1}, UserId {2}};
    const QList others {UserId {3}, UserId {4}, UserId {5}};
    const QString groups = GroupFilterClause(
        {{GroupId {82}, GroupId {83}, GroupId {84}}, {GroupId {80}, GroupId {81}}});
    for (int row = 0; row < kReportCount; ++row) {
        for (const QString &text :
             {StoredQuery(row),
              QueryText(row, today, {}, {}),
              QueryText(row, month, UserFilterClause({users, others}), {}),
              QueryText(row, month, UserFilterClause({others, users}), groups)}) {
            statements.insert({{}, text.toUtf8()});
        }
    }
}

// Of what was sent, the texts of the sources; and the reports', which have a connection of their own.
std::set<Statement> FixedStatements()
{
    const std::set<QByteArray> written = WrittenTexts();
    std::set<Statement> statements;
    for (const Statement &sent : SentStatements()) {
        const auto isSent = [&](const QByteArray &text) {
            return IsText(sent.text, text, written);
        };
        if (std::ranges::any_of(written, isSent)) {
            statements.insert(sent);
        }
    }
    AddReports(statements);
    return statements;
}

// Of ids that the demonstration has, and of one that it has not; the texts differ and are days.
StagedRows SampleRows()
{
    StagedRows rows;
    int day = 20;
    for (const quint32 id : {1U, 2U, 3U, 900'000U}) {
        rows.Add(id, {1, 2'097'152, 0.25, 3}, {u"2026-11-%1"_s.arg(day++), u"1"_s, u"gate"_s});
    }
    return rows;
}

void Bind(const Statement &statement)
{
    int number = 0;
    for (const char kind : statement.kinds) {
        ++number;
        switch (kind) {
        case 'i':
            BindValue(number, 2U);
            break;
        case 'a':
            BindValue(number, 12.5);
            break;
        case 't':
            BindValue(number, u"O'Neil \"\u00e9\U0001F600\""_s);
            break;
        case 'd':
            BindValue(number, Day {2026, 11, 31});
            break; // no such day
        case 'r':
            BindValue(number, SampleRows());
            break;
        case 's':
            BindValue(number, u"31.10.2026 00:00:00"_s);
            break;
        default:
            FAIL() << statement.text.constData();
        }
    }
}

// A value as every engine writes it: sums differ in their last digits.
QString Normal(const QString &value)
{
    bool isNumber = false;
    const double number = value.toDouble(&isNumber);
    return isNumber ? QString::number(number, 'g', 9) : value;
}

// The engines number rows that one statement makes in ways of their own.
bool NamesNumberedRows(const Statement &statement)
{
    const auto names = {"traf_id", "trafid", "time_id", "bill_id", "tb_id"};
    return std::any_of(names.begin(), names.end(), [&](const char *name) {
        return statement.text.contains(name);
    });
}

// The rows of the statement in an order of their own, since most have no ORDER BY.
QStringList Rows(const Statement &statement)
{
    Bind(statement);
    QStringList rows;
    for (RowCursor cursor(statement.text.constData()); cursor.Next();) {
        QStringList values;
        for (int column = 1; column <= QueryResult::kColumns; ++column) {
            values << Normal(queryResult.Text(column));
        }
        rows << values.join(u'|');
    }
    rows.sort();
    return rows;
}

class Statements : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        const auto problem = FillWithDemoData(Dsn(), {60, 6, 40}, [](const QString &) {});
        ASSERT_FALSE(problem) << qPrintable(*problem);
    }

    TodayOverride today {QDate(2026, 11, 21)};
};
TB_ON_EVERY_ENGINE(Statements);

TEST(SentStatements, AreAllThatTheSourcesHold)
{
    const std::set<Statement> sent = SentStatements();
    const std::set<QByteArray> written = WrittenTexts();
    ASSERT_GT(written.size(), 200U);
    for (const QByteArray &text : written) {
        const auto isText = [&](const Statement &statement) {
            return IsText(statement.text, text, written);
        };
        EXPECT_TRUE(std::ranges::any_of(sent, isText)) << "no test sends " << text.constData();
    }
}

TEST_P(Statements, RunOnTheDemonstrationDataWithTheSameRows)
{
    static std::map<Statement, QStringList> rowsOfFirstEngine;
    const std::set<Statement> statements = FixedStatements();
    ASSERT_GT(statements.size(), 200U);
    qsizetype withRows = 0;
    for (const Statement &statement : statements) {
        const auto before = FailureLog::Instance().Count();
        const QStringList rows = Rows(statement);
        EXPECT_EQ(FailureLog::Instance().Count(), before) << statement.text.constData();
        if (NamesNumberedRows(statement)) {
            continue;
        }
        withRows += rows.isEmpty() ? 0 : 1;
        const auto [known, isFirst] = rowsOfFirstEngine.try_emplace(statement, rows);
        if (!isFirst) {
            EXPECT_EQ(rows.join(u'\n').toStdString(), known->second.join(u'\n').toStdString())
                << statement.text.constData();
        }
    }
    EXPECT_GT(withRows, 80); // or the comparison would say little
}

} // namespace
