// The report behind a line against the line itself.
#include "reports/drill_down.h"

#include "reports/catalogue.h"
#include "reports/report_fixture.h"
#include "support/core/engine_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class DrillDown : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        FillReportData();
    }

    [[nodiscard]] ReportTablePtr Made(const ReportSelection &selection) const
    {
        ReportRequest request = RequestFor(DsnOf("reports"), selection.row, selection.period);
        request.query = QueryOf(selection);
        return ReportOf(request);
    }

    // The detailed report behind a row of the summary; fails the test when there is none.
    ReportSelection Behind(const ReportSelection &summary, const ReportTable &table, qint64 row)
    {
        const auto behind = DetailBehind(summary, table.layout, table.rows.Read(row, 1).at(0));
        EXPECT_TRUE(behind && *behind) << summary.row << ' ' << row;
        return behind && *behind ? **behind : summary;
    }
};

TB_ON_EVERY_ENGINE(DrillDown);

// The first column with a total, which the summary and what stands behind it have in common.
double SumIn(const ReportTable &table, const CellRow &cells, const QString &name)
{
    for (qsizetype place = 0; place < table.layout.columns.size(); ++place) {
        if (table.layout.columns.at(place).name == name) {
            return NumberIn(cells[static_cast<size_t>(place)]);
        }
    }
    ADD_FAILURE() << "no column " << name.toStdString();
    return 0;
}

} // namespace

TEST_P(DrillDown, TheDetailsOfALineComeToTheLine)
{
    struct Case
    {
        int row;
        const char16_t *sum;
    };
    const ReportPeriod periods[] = {{}, {PeriodChoice::Custom, {2026, 11, 1}, {2026, 11, 20}}};
    for (const auto &[row, sum] : {Case {0, u"data"},
                                   Case {1, u"data"},
                                   Case {6, u"data"},
                                   Case {7, u"data"},
                                   Case {12, u"moneyusage"}}) {
        ASSERT_TRUE(HasDetails(row));
        for (const ReportPeriod &period : periods) {
            const ReportSelection summary {row, period};
            const auto table = Made(summary);
            ASSERT_GT(table->rows.Count(), 0) << row;
            for (qint64 line = 0; line < table->rows.Count(); ++line) {
                const ReportSelection behind = Behind(summary, *table, line);
                EXPECT_NE(behind.row, row);
                const auto details = Made(behind);
                const QString name = QString::fromUtf16(sum);
                EXPECT_NEAR(SumIn(*details, details->totals, name),
                            SumIn(*table, table->rows.Read(line, 1).at(0), name),
                            1e-6)
                    << row << ' ' << line;
                EXPECT_LE(details->groups.size(), 1U);
            }
        }
    }
}

TEST_P(DrillDown, AGroupLeadsToItsUsersAndAUserToHisDays)
{
    const ReportSelection groups {4, {PeriodChoice::Custom, {2026, 11, 1}, {2026, 11, 30}}};
    const auto table = Made(groups);
    ASSERT_EQ(table->rows.Count(), 2);
    const ReportSelection ofGroup = Behind(groups, *table, 1);
    EXPECT_EQ(ofGroup.row, 0);
    EXPECT_EQ(FilterWordsOf(ofGroup), u"groups Workshop"_s);
    const auto users = Made(ofGroup);
    EXPECT_EQ(users->rows.Count(), 5); // those with odd numbers
    const ReportSelection ofUser = Behind(ofGroup, *users, 0);
    EXPECT_EQ(ofUser.row, 2);
    EXPECT_TRUE(FilterWordsOf(ofUser).endsWith(u"; groups Workshop"_s));
    EXPECT_EQ(Made(ofUser)->rows.Count(), 4);
}

TEST_P(DrillDown, StaysWithinTheFilterOfTheSummary)
{
    Execute("UPDATE users SET username = 'anna', ip_addr = '10.0.0.1' WHERE user_id = 3");
    ReportSelection summary {1, {PeriodChoice::Custom, {2026, 11, 1}, {2026, 11, 30}}};
    summary.users = {FilterEffect::AllBut, {UserId {3}}};
    const auto table = Made(summary);
    CellRow anna;
    for (const CellRow &row : table->rows.Read(0, table->rows.Count())) {
        anna = row[1] == Cell(u"anna"_s) ? row : anna;
    }
    ASSERT_FALSE(anna.empty());
    const auto behind = DetailBehind(summary, table->layout, anna);
    ASSERT_TRUE(behind && *behind);
    EXPECT_EQ((*behind)->users, (KeptFilter<UserId> {FilterEffect::Only, {UserId {1}}}));
    Execute("DELETE FROM users WHERE user_id = 1");
    const auto gone = DetailBehind(summary, table->layout, anna);
    ASSERT_TRUE(gone);
    EXPECT_FALSE(*gone); // to go on would be a report on everybody
    Execute("ALTER TABLE users RENAME COLUMN username TO away");
    EXPECT_FALSE(DetailBehind(summary, table->layout, anna));
    Execute(
        "ALTER TABLE users RENAME COLUMN away TO username"); // the tables serve the next test, too
    for (const int row : {2, 5, 8, 11, 13, 14, 15, kStatementRow, -1}) {
        EXPECT_FALSE(HasDetails(row)) << row;
    }
}
