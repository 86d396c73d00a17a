// Every fixed statement runs on every engine and gives the same rows on each.
#include "base/day.h"
#include "db/demo_data.h"
#include "db/failure_log.h"
#include "db/session.h"
#include "support/core/engine_fixture.h"

#include <QFile>
#include <QHash>

#include <algorithm>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct Statement
{
    QByteArray kinds;
    QByteArray text;
};

QList<Statement> FixedStatements()
{
    QFile file(QStringLiteral(TB_SOURCE_DIR "/tests/db/fixed_statements.txt"));
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    QList<Statement> statements;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (const auto tab = line.indexOf('\t'); tab >= 0) {
            statements << Statement {line.left(tab), line.mid(tab + 1)};
        }
    }
    return statements;
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

TEST_P(Statements, RunOnTheDemonstrationDataWithTheSameRows)
{
    static QHash<QByteArray, QStringList> rowsOfFirstEngine;
    const QList<Statement> statements = FixedStatements();
    ASSERT_GT(statements.size(), 200);
    qsizetype withRows = 0;
    for (const Statement &statement : statements) {
        const auto before = FailureLog::Instance().Count();
        const QStringList rows = Rows(statement);
        EXPECT_EQ(FailureLog::Instance().Count(), before) << statement.text.constData();
        if (NamesNumberedRows(statement)) {
            continue;
        }
        withRows += rows.isEmpty() ? 0 : 1;
        const auto known = rowsOfFirstEngine.constFind(statement.text);
        if (known == rowsOfFirstEngine.cend()) {
            rowsOfFirstEngine.insert(statement.text, rows);
        } else {
            EXPECT_EQ(rows.join(u'\n').toStdString(), known->join(u'\n').toStdString())
                << statement.text.constData();
        }
    }
    EXPECT_GT(withRows, 80); // or the comparison would say little
}

} // namespace
