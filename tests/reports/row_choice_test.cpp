// The rows of a report's table against what the database itself finds and sums.
#include "reports/row_choice.h"

#include "base/ipv4.h"
#include "reports/catalogue.h"
#include "reports/report_fixture.h"
#include "support/core/engine_fixture.h"

using namespace Qt::StringLiterals;

namespace {

class RowChoice : public EngineFixture
{
protected:
    void SetUp() override
    {
        EngineFixture::SetUp();
        FillReportData();
    }
};

TB_ON_EVERY_ENGINE(RowChoice);

int ColumnOf(const ReportTable &table, const QString &name)
{
    for (int place = 0; place < table.layout.columns.size(); ++place) {
        if (table.layout.columns.at(place).name == name) {
            return place;
        }
    }
    ADD_FAILURE() << "no column " << name.toStdString();
    return 0;
}

std::vector<CellRow> RowsOf(const ReportTable &table, const ChosenRows &chosen)
{
    std::vector<CellRow> rows;
    for (const quint32 row : chosen.rows) {
        rows.push_back(table.rows.Read(row, 1).at(0));
    }
    return rows;
}

ChosenRows Choose(const ReportTable &table, const RowWish &wish)
{
    RunControl control;
    auto chosen = ChooseRows(table, wish, control);
    EXPECT_TRUE(chosen);
    return *std::move(chosen);
}

// As pages and files put cells in order, but for addresses.
int Order(const Cell &one, const Cell &other)
{
    const auto addressIn = [](const Cell &cell) {
        const auto *text = std::get_if<QString>(&cell);
        return text == nullptr ? std::nullopt : Ipv4From(*text);
    };
    const auto a = addressIn(one);
    const auto b = addressIn(other);
    if (a && b) {
        return *a < *b ? -1 : int {*a > *b};
    }
    return a ? -1 : b ? 1 : Compare(one, other);
}

} // namespace

TEST_P(RowChoice, TotalsFollowTheFilter)
{
    const auto table = ReportOf(RequestFor(DsnOf("reports"), 2));
    const int name = ColumnOf(*table, u"username"_s);
    struct Case
    {
        RowWish wish;
        const char *condition;
    };
    const Case cases[] = {
        {{}, ""},
        {{.text = u"ANNA"_s}, " AND u.username = 'anna'"},
        {{.text = u"ANNA"_s, .column = ColumnOf(*table, u"ip_addr"_s)}, " AND 1 = 0"},
        {{.text = u"10.0.0.3"_s}, " AND u.ip_addr = '10.0.0.3'"},
        {{.text = u"2026-11-15"_s}, " AND t.current_time = '2026-11-15'"},
        {{.text = u"2026-11-15"_s, .column = name}, " AND 1 = 0"},
        {{.text = u"nobody"_s}, " AND 1 = 0"},
    };
    for (const auto &[wish, condition] : cases) {
        const ChosenRows chosen = Choose(*table, wish);
        const QString sql =
            u"SELECT COUNT(*), COALESCE(SUM(t.data), 0), COALESCE(SUM(t.senddata), 0) "
            "FROM traffic_use t INNER JOIN users u ON t.user_id = u.user_id WHERE "
            "t.period = 0 AND (t.data <> 0 OR t.senddata <> 0)%1"_s.arg(
                QLatin1StringView(condition));
        RunQuery(sql.toUtf8().constData(), FetchMode::One);
        EXPECT_EQ(static_cast<int>(chosen.rows.size()), queryResult.Integer(1)) << condition;
        const auto total = [&](const QString &column) {
            return NumberIn(chosen.totals[static_cast<size_t>(ColumnOf(*table, column))]);
        };
        EXPECT_NEAR(total(u"data"_s), queryResult.Amount(2), 1e-9) << condition;
        EXPECT_NEAR(total(u"senddata"_s), queryResult.Amount(3), 1e-9) << condition;
    }
    EXPECT_EQ(Choose(*table, {}).totals, table->totals);
}

TEST_P(RowChoice, EveryColumnOfEveryReportSortsBothWays)
{
    for (int row = 0; row < kReportCount; ++row) {
        const auto table = ReportOf(RequestFor(DsnOf("reports"), row));
        for (const int column : table->layout.DataColumns()) {
            const auto place = static_cast<size_t>(column);
            for (const bool descending : {false, true}) {
                const auto chosen = Choose(*table, {.orderBy = column, .descending = descending});
                ASSERT_EQ(static_cast<qint64>(chosen.rows.size()), table->rows.Count());
                const auto rows = RowsOf(*table, chosen);
                for (size_t next = 1; next < rows.size(); ++next) {
                    const int order = Order(rows[next - 1][place], rows[next][place]);
                    EXPECT_TRUE(descending ? order >= 0 : order <= 0) << row << ' ' << column;
                    // Rows that are equal stay as they were.
                    EXPECT_TRUE(order != 0 || chosen.rows[next - 1] < chosen.rows[next])
                        << row << ' ' << column;
                }
            }
        }
    }
}

TEST_P(RowChoice, AddressesSortByTheirNumbersBeforeOtherTexts)
{
    Execute("UPDATE users SET ip_addr = '10.0.0.10' WHERE user_id = 1");
    Execute("UPDATE users SET ip_addr = '9.200.0.1' WHERE user_id = 3");
    Execute("UPDATE users SET ip_addr = 'at home' WHERE user_id = 2");
    const auto table = ReportOf(RequestFor(DsnOf("reports"), 0));
    const int address = ColumnOf(*table, u"ip_addr"_s);
    QStringList sorted;
    for (const CellRow &row : RowsOf(*table, Choose(*table, {.orderBy = address}))) {
        sorted += std::get<QString>(row[static_cast<size_t>(address)]);
    }
    ASSERT_GT(sorted.size(), 4);
    EXPECT_EQ(sorted.constFirst(), u"9.200.0.1"_s);
    EXPECT_EQ(sorted.constLast(), u"at home"_s);
    EXPECT_GT(sorted.indexOf(u"10.0.0.10"_s), sorted.indexOf(u"10.0.0.4"_s));
}

TEST_P(RowChoice, EndsWhenItIsCancelled)
{
    const auto table = ReportOf(RequestFor(DsnOf("reports"), 2));
    RunControl control;
    control.Cancel();
    EXPECT_FALSE(ChooseRows(*table, {}, control));
}

TEST_P(RowChoice, SaysWhatTheTotalsAreOf)
{
    const auto table = ReportOf(RequestFor(DsnOf("reports"), 0));
    const QString words = TotalsInWords(table->layout, Choose(*table, {.text = u"anna"_s}).totals);
    EXPECT_EQ(words, u"Received: 98.00 MB; Sent: 0.50 MB; Total: 98.50 MB"_s);
    const auto payers = ReportOf(RequestFor(DsnOf("reports"), 13));
    EXPECT_EQ(HeadingOf(payers->layout.columns.at(0)), payers->layout.columns.at(0).heading);
}
