// What stands on the pages of a report, and where.
#include "reports/catalogue.h"
#include "reports/chart_painter.h"
#include "reports/output.h"
#include "reports/page_painter.h"
#include "reports/report_fixture.h"
#include "reports/row_collector.h"
#include "reports/total.h"
#include "support/core/database_fixture.h"

#include <QBuffer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

struct DrawnLine
{
    QRectF place;
    QString text;
    TextLook look;
};

// Keeps every line as it is drawn, with its ellipsis where it has one.
class LineCanvas : public TextCanvas
{
public:
    void Draw(const QRectF &place, const QString &line, const TextLook &look) override
    {
        lines.push_back({place, line, look});
    }

    std::vector<DrawnLine> lines;
};

std::vector<DrawnLine> LinesOf(const ReportPages &pages, int page)
{
    LineCanvas canvas;
    PagePainter(pages, canvas, page).Paint();
    return std::move(canvas.lines);
}

bool HasDigit(const QString &text)
{
    return std::any_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

// Nothing with a digit is cut, nor wider than its place; nothing stands outside the page.
void ExpectNumbersWhole(const std::vector<DrawnLine> &lines, double width, const char *what)
{
    int numbers = 0;
    for (const auto &[place, text, look] : lines) {
        EXPECT_GE(place.left(), 0) << what;
        EXPECT_LE(place.right(), width) << what << text.toStdString();
        if (!HasDigit(text)) {
            continue;
        }
        ++numbers;
        EXPECT_FALSE(text.contains(u'\u2026')) << what << text.toStdString();
        EXPECT_LE(paper::Metrics(look.style, look.pixels).horizontalAdvance(text),
                  place.width() + 1)
            << what << text.toStdString();
    }
    EXPECT_GT(numbers, 0) << what;
}

std::shared_ptr<ReportTable> TableOf(const Layout &layout, const std::vector<CellRow> &rows)
{
    auto table = std::make_shared<ReportTable>();
    table->layout = layout;
    table->made = QDateTime(QDate(2026, 11, 21), QTime(9, 30));
    RowCollector collector(*table);
    RowTotals totals(table->layout.columns);
    for (const CellRow &row : rows) {
        EXPECT_TRUE(collector.Store(row));
        totals.Add(row);
    }
    table->totals = totals.Cells();
    for (size_t place = 0; place < table->totals.size(); ++place) {
        table->reach[place].Take(NumberIn(table->totals[place]));
    }
    table->allCount = table->rows.Count();
    table->allTotals = table->totals;
    EXPECT_TRUE(table->rows.Finish());
    return table;
}

// A name, an address and so many amounts.
Layout LayoutOf(int amounts)
{
    Layout layout;
    layout.title = u"Test"_s;
    layout.noun = u"users"_s;
    const auto add = [&](const QString &heading, double width) -> LayoutColumn & {
        LayoutColumn &column = layout.columns.emplaceBack();
        column.name = heading;
        column.heading = heading;
        column.width = width;
        return column;
    };
    add(u"User"_s, 30);
    add(u"IP address"_s, 16);
    for (int amount = 0; amount < amounts; ++amount) {
        LayoutColumn &column = add(u"Received"_s, 14);
        column.type = ColumnType::Amount;
        column.unit = u"MB"_s;
        column.total = true;
    }
    return layout;
}

CellRow RowOf(const QString &name, int amounts, double amount)
{
    CellRow row {name, u"255.255.255.255"_s};
    row.insert(row.end(), static_cast<size_t>(amounts), amount);
    return row;
}

QStringList TextsOf(const ReportPages &pages, int page)
{
    QStringList texts;
    for (const PlacedText &text : pages.Texts(page)) {
        texts += text.text;
    }
    return texts;
}

ReportChart AreaFrom(QDate first, int steps, ChartStep step, double most)
{
    ReportChart chart;
    chart.kind = ChartKind::DaysOfEach;
    chart.title = u"Traffic per day"_s;
    chart.unit = u"MB"_s;
    chart.decimals = 2;
    chart.seriesNames = {u"Received"_s, u"Sent"_s};
    chart.step = step;
    ChartPanel panel {u"anna"_s, {{}, {}}};
    for (int place = 0; place < steps; ++place) {
        chart.steps.push_back(step == ChartStep::Month      ? first.addMonths(place)
                                  : step == ChartStep::Week ? first.addDays(qint64 {7} * place)
                                                            : first.addDays(place));
        panel.series[0].push_back(most * (place + 1) / steps);
        panel.series[1].push_back(0);
    }
    chart.panels = {panel, panel};
    return chart;
}

QString OutputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60'000)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

class OnPaper : public DatabaseFixture
{
protected:
    QString PdfOf(const ReportTablePtr &table)
    {
        const QString name = folder.filePath(u"report.pdf"_s);
        RunControl control;
        ReportProblem problem;
        EXPECT_TRUE(WriteReport(table, name, control, problem)) << problem.text.toStdString();
        return name;
    }

    void SetUp() override
    {
        DatabaseFixture::SetUp();
        FillReportData();
    }
};

} // namespace

TEST(Numbers, AreNeverCutWhateverTheirSize)
{
    struct Case
    {
        int amounts;
        double value;
        bool isScaled; // shown in a larger unit
    };
    const Case cases[] = {
        {1, 5, false},
        {3, 1e6, false},
        {3, 1e15, false},
        {3, -1e15, false},
        {6, 1e15, true},
        {13, 1e15, true},
        {13, 1e18, true},
    };
    const QSizeF sheets[] = {{595, 842}, {842, 595}, {420, 595}};
    for (const QLocale &locale : {QLocale::c(), QLocale(QLocale::German)}) {
        QLocale::setDefault(locale);
        for (const auto &[amounts, value, isScaled] : cases) {
            for (const QSizeF sheet : sheets) {
                std::vector<CellRow> rows(70, RowOf(u"anna of the long name"_s, amounts, value));
                const auto table = TableOf(LayoutOf(amounts), rows);
                const ReportPages pages(table, sheet, nullptr);
                const QString what =
                    u"%1 of %2 on %3 "_s.arg(amounts).arg(value).arg(sheet.width());
                for (int page = 0; page < pages.Count(); ++page) {
                    ExpectNumbersWhole(
                        LinesOf(pages, page), pages.Size().width() * 10, qPrintable(what));
                }
                const QStringList first = TextsOf(pages, 0);
                EXPECT_TRUE(first.contains(u"255.255.255.255"_s)) << what.toStdString();
                if (sheet == sheets[0]) {
                    EXPECT_EQ(!first.contains(u"MB"_s), isScaled) << what.toStdString();
                }
            }
        }
    }
    QLocale::setDefault(QLocale::c());
}

TEST(Numbers, OfChartsAreNeverCut)
{
    constexpr double kWidth = 5113;
    for (const double most : {0.004, 1.0, 999'999.0, 1e6, 1e15, 1e18}) {
        for (const ChartKind kind : {ChartKind::Bars, ChartKind::Days, ChartKind::DaysOfEach}) {
            ReportChart chart = AreaFrom({2026, 1, 1}, 60, ChartStep::Day, most);
            chart.kind = kind;
            for (int label = 0; label < 60; ++label) {
                chart.labels += u"user"_s;
            }
            LineCanvas canvas;
            PaintReportChart(canvas, {0, 0, kWidth, 3000}, chart);
            ExpectNumbersWhole(canvas.lines, kWidth, qPrintable(QString::number(most)));
            if (kind == ChartKind::Bars) {
                LayoutColumn amount;
                amount.type = ColumnType::Amount;
                const QString top = DisplayText(amount, most) + QChar(QChar::Nbsp) + u"MB";
                EXPECT_TRUE(std::ranges::any_of(canvas.lines, [&](const DrawnLine &line) {
                    return line.text == top;
                })) << top.toStdString();
            } else {
                EXPECT_EQ(canvas.texts.front().text.contains(u"MB"), most < 1e6) << most;
            }
        }
    }
}

TEST(Axis, StandsUprightWhereTheSheetIsLow)
{
    ReportChart chart = AreaFrom({2026, 1, 1}, 30, ChartStep::Day, 50);
    chart.panels.resize(10, chart.panels.front());
    for (const double height : {4000.0, 2500.0, 1500.0}) {
        LineCanvas canvas;
        PaintReportChart(canvas, {0, 0, 5113, height}, chart);
        double top = 0; // of the highest number of the axis that was drawn last
        for (const DrawnLine &line : canvas.lines) {
            top = line.text == u"60" ? line.place.top() : top;
            EXPECT_TRUE(line.text != u"2026-01-01" || line.place.top() > top + 200) << height;
            EXPECT_LE(line.place.bottom(), height);
        }
        EXPECT_GT(top, 0);
    }
}

TEST(Axis, HasEvenMarksOverTheWholePeriod)
{
    struct Case
    {
        QDate first;
        int steps;
        ChartStep step;
        int room;
        std::vector<size_t> marks;
    };
    const Case cases[] = {
        {{2026, 11, 1}, 5, ChartStep::Day, 5, {0, 1, 2, 3, 4}},
        {{2026, 11, 1}, 31, ChartStep::Day, 5, {0, 7, 14, 21, 28}},
        {{2026, 11, 1}, 31, ChartStep::Day, 4, {0, 14, 28}},
        {{2026, 8, 31}, 14, ChartStep::Week, 4, {0, 4, 8, 12}},
        {{2025, 11, 1}, 14, ChartStep::Month, 5, {2, 5, 8, 11}}, // January, April, July, October
        {{2020, 2, 1}, 70, ChartStep::Month, 6, {11, 23, 35, 47, 59}},
        {{2026, 11, 1}, 1, ChartStep::Day, 0, {0}},
    };
    for (const auto &[first, steps, step, room, marks] : cases) {
        EXPECT_EQ(MarkedSteps(AreaFrom(first, steps, step, 1), room), marks)
            << steps << " in " << room;
    }
}

TEST_F(OnPaper, LongPeriodsAreSummedByWeekAndMonth)
{
    struct Case
    {
        Day from;
        ChartStep step;
        size_t steps;
    };
    const Case cases[] = {
        {{2026, 8, 23}, ChartStep::Day, 90},
        {{2026, 8, 22}, ChartStep::Week, 14}, // the first of them from Saturday to Sunday
        {{2025, 11, 20}, ChartStep::Week, 53},
        {{2025, 11, 19}, ChartStep::Month, 13},
    };
    for (const auto &[from, step, steps] : cases) {
        const ReportPeriod period {PeriodChoice::Custom, from, {2026, 11, 20}};
        const auto table = ReportOf(RequestFor(Dsn(), 3, period));
        const ReportChart &chart = table->chart;
        EXPECT_EQ(chart.step, step);
        ASSERT_EQ(chart.steps.size(), steps) << from.year << from.month << from.day;
        EXPECT_EQ(chart.steps.front(), ExistingDate(from));
        double drawn = 0;
        for (const ChartPanel &panel : chart.panels) {
            for (const auto &values : panel.series) {
                ASSERT_EQ(values.size(), steps);
                drawn += std::accumulate(values.begin(), values.end(), 0.0);
            }
        }
        EXPECT_NEAR(drawn, NumberIn(table->totals[5]), 1e-6); // "Total" of the rows
    }
}

TEST_F(OnPaper, AChartThatWouldBeAllZeroIsLeftOut)
{
    Execute("UPDATE traffic_use SET data = 0, senddata = 0");
    Execute("UPDATE time_use SET data = 0");
    Execute("UPDATE traffic_use SET data = 5 WHERE user_id = 1 AND period = 0");
    EXPECT_EQ(ReportOf(RequestFor(Dsn(), 3))->chart.panels.size(), 1U); // that of one user
    for (const int row : {7, 9}) {
        const auto table = ReportOf(RequestFor(Dsn(), row));
        EXPECT_TRUE(table->chart.panels.empty()) << row;
        EXPECT_EQ(ChartHeight(table->chart), 0) << row;
        EXPECT_FALSE(table->IsEmpty()) << row;
    }
}

TEST_F(OnPaper, ATableOfTwoColumnsIsAsWideAsItNeeds)
{
    Execute("UPDATE users SET username = 'u' || user_id");
    const ReportPages pages(ReportOf(RequestFor(Dsn(), 4)));
    const ReportPages times(ReportOf(RequestFor(Dsn(), 6)));
    for (const ReportPages *shown : {&pages, &times}) {
        double end = 0;
        for (const DrawnLine &line : LinesOf(*shown, 0)) {
            if (line.text == u"MB" || line.text == u"hours") {
                end = std::max(end, line.place.right());
            }
        }
        EXPECT_GT(end, 0);
        EXPECT_LT(end, shown->Size().width() * 10 * 0.8);
    }
}

TEST_F(OnPaper, TheFirstTenHaveARankAndAShareOfAll)
{
    for (int user = 10; user < 15; ++user) {
        Execute(
            "INSERT INTO users (username, ip_addr, group_id, mode, monitored) VALUES ((?), '', 80, 1, 1)",
            u"more%1"_s.arg(user));
        Execute(
            "INSERT INTO time_use (user_id, period, current_time, data) VALUES ((?), 0, (?), 11)",
            static_cast<quint32>(user),
            Day {2026, 11, 21});
    }
    const auto table = ReportOf(RequestFor(Dsn(), 7));
    const auto rows = table->rows.Read(0, 20);
    ASSERT_EQ(rows.size(), 10U);
    double shares = 0;
    for (size_t place = 0; place < rows.size(); ++place) {
        EXPECT_EQ(rows[place][0], Cell(static_cast<qint64>(place + 1)));
        const double share = 100 * NumberIn(rows[place][2]) / NumberIn(table->allTotals[2]);
        EXPECT_DOUBLE_EQ(NumberIn(rows[place][3]), share);
        shares += share;
    }
    EXPECT_LT(shares, 100);
    EXPECT_NEAR(NumberIn(table->totals[3]), shares, 1e-9);
    EXPECT_DOUBLE_EQ(NumberIn(table->allTotals[3]), 100);
    EXPECT_EQ(table->totals[0].index(), 0U); // a sum has no rank
    Execute("UPDATE time_use SET data = 0");
    EXPECT_EQ(ReportOf(RequestFor(Dsn(), 7))->rows.Read(0, 1)[0][3].index(), 0U);
}

TEST_F(OnPaper, AWebPageNamesItsSumsBesideARank)
{
    for (const int row : {0, 1, 7, 12, 14}) {
        QBuffer device;
        device.open(QIODevice::WriteOnly);
        RunControl control;
        const auto table = ReportOf(RequestFor(Dsn(), row));
        EXPECT_TRUE(WriteHtml(*table, device, control));
        EXPECT_EQ(device.data().count(">Total</td>"), 1) << row;
        EXPECT_EQ(device.data().count(">Total of all</td>"), table->IsCut() ? 1 : 0) << row;
    }
}

TEST_F(OnPaper, AGroupOfOneHasNoSumLine)
{
    const ReportPeriod day {PeriodChoice::Today, {2026, 11, 21}, {2026, 11, 21}};
    const ReportPages one(ReportOf(RequestFor(Dsn(), 2, day)));
    EXPECT_EQ(TextsOf(one, 0).filter(u"1 day"_s).size(), 0);
    EXPECT_EQ(TextsOf(one, 0).filter(u"Grand total, 9 days"_s).size(), 1);
    const ReportPages all(ReportOf(RequestFor(Dsn(), 2)));
    EXPECT_GT(TextsOf(all, 0).filter(u"4 days"_s).size(), 2);
}

TEST_F(OnPaper, MoneyIsInTheCurrencyInUse)
{
    auto request = RequestFor(Dsn(), 12);
    const double units = NumberIn(ReportOf(request)->totals[4]);
    request.currency = {1.25, u"Euro"_s};
    const auto table = ReportOf(request);
    EXPECT_NEAR(NumberIn(table->totals[4]), units * 1.25, 1e-9);
    EXPECT_NEAR(
        table->chart.panels.front().series[0][0], NumberIn(table->rows.Read(0, 1)[0][4]), 1e-9);
    const QStringList texts = TextsOf(ReportPages(table), 0);
    EXPECT_TRUE(texts.contains(u"Euro"_s));
    EXPECT_TRUE(texts.filter(u"base units"_s).isEmpty());
}

TEST_F(OnPaper, CreditsTellTheirTimeAndThatTheyNeverExpire)
{
    Execute("UPDATE billing SET expiredday = '' WHERE usage > 30");
    const QStringList provider = TextsOf(ReportPages(ReportOf(RequestFor(Dsn(), 11))), 0);
    EXPECT_EQ(provider.filter(QRegularExpression(u"^never$"_s)).size(), 2);
    for (const int row : {5, 10, 11}) {
        const QStringList texts = TextsOf(ReportPages(ReportOf(RequestFor(Dsn(), row))), 0);
        EXPECT_FALSE(texts.filter(u"2026-10-02 23:59:59"_s).isEmpty()) << row;
    }
}

TEST_F(OnPaper, WhereReportsDifferALineSaysWhy)
{
    for (int row = 0; row < kReportCount; ++row) {
        const auto table = ReportOf(RequestFor(Dsn(), row));
        EXPECT_EQ(!table->layout.note.isEmpty(), row == 4 || row == 5 || row == 10) << row;
        EXPECT_EQ(TextsOf(ReportPages(table), 0).contains(table->layout.note),
                  !table->layout.note.isEmpty())
            << row;
    }
}

TEST_F(OnPaper, ALongReportBeginsWithASummary)
{
    for (int copies = 0; copies < 6; ++copies) {
        Execute(
            "INSERT INTO SiteAccess (user_id, site_id, access_time) SELECT user_id, site_id, access_time "
            "FROM SiteAccess");
    }
    const auto table = ReportOf(RequestFor(Dsn(), 15));
    const ReportPages pages(table);
    ASSERT_GT(pages.Count(), 20);
    EXPECT_TRUE(pages.HasSummary());
    const QStringList texts = TextsOf(pages, 0);
    EXPECT_TRUE(texts.contains(u"Summary"_s));
    EXPECT_EQ(texts.filter(u"Grand total, 5,760 visits"_s).size(), 1);
    for (size_t group = 0; group < table->groups.size(); ++group) {
        const QString name = GroupTitle(*table, table->groups[group]);
        const int page = pages.PageOfGroup(group);
        EXPECT_GT(page, 0);
        EXPECT_EQ(texts.filter(u"page %1: %2"_s.arg(page + 1).arg(name)).size(), 1)
            << name.toStdString();
        EXPECT_TRUE(TextsOf(pages, page).contains(name)) << name.toStdString();
    }
    EXPECT_FALSE(ReportPages(ReportOf(RequestFor(Dsn(), 2))).HasSummary());
}

TEST(Summary, OfRowsWithoutGroupsNamesTheLargest)
{
    constexpr int kRows = 1200;
    std::vector<CellRow> rows;
    rows.reserve(kRows);
    for (int row = 0; row < kRows; ++row) {
        rows.push_back(RowOf(u"user %1"_s.arg(row), 1, (row * 7919) % 1201));
    }
    const ReportPages pages(TableOf(LayoutOf(1), rows));
    ASSERT_TRUE(pages.HasSummary());
    const QStringList texts = TextsOf(pages, 0);
    QStringList wanted;
    for (int amount = 1200; amount > 1190; --amount) {
        wanted += amount == 1200 ? u"1,200.00"_s : u"1,%1.00"_s.arg(amount - 1000);
    }
    EXPECT_EQ(texts.filter(QRegularExpression(u"^1,(200|19\\d)\\.00$"_s)), wanted);
    EXPECT_TRUE(texts.contains(u"These are the largest of 1,200."_s));
    EXPECT_EQ(texts.filter(u"Total, 1,200 users"_s).size(), 1);
}

// The names of groups are longer than the narrow column before the sums; a very long one is cut.
TEST(Summary, NamesItsGroupsWhole)
{
    Layout layout = LayoutOf(1);
    LayoutColumn day;
    day.heading = u"Day"_s;
    layout.columns.insert(2, day);
    layout.group = {0, 1};
    constexpr int kGroups = 30;
    constexpr int kRows = 40;
    std::vector<CellRow> rows;
    std::vector<ReportGroup> groups;
    for (int group = 0; group < kGroups; ++group) {
        const CellRow row {group == 25 ? QString(250, u'x') : u"some.longer.name%1"_s.arg(group),
                           u"255.255.255.%1"_s.arg(group),
                           u"2026-11-21"_s,
                           double(group)};
        const CellRow totals {Cell(), Cell(), Cell(), kRows * double(group)};
        rows.insert(rows.end(), kRows, row);
        groups.push_back({row, qint64 {group} * kRows, kRows, totals});
    }
    const auto table = TableOf(layout, rows);
    table->groups = groups;
    const ReportPages pages(table);
    ASSERT_TRUE(pages.HasSummary());
    QStringList cut;
    int named = 0;
    for (const DrawnLine &line : LinesOf(pages, 0)) {
        named += line.text.startsWith(u"page "_s) ? 1 : 0;
        if (line.text.contains(u'\u2026')) {
            cut << line.text.left(12);
        }
    }
    EXPECT_EQ(named, 10);
    ASSERT_EQ(cut.size(), 1) << cut.join(u'\n').toStdString();
    EXPECT_TRUE(cut.front().contains(u": x"_s)) << cut.front().toStdString();
}

TEST(Headings, OfAShortWordAreNeverCut)
{
    Layout layout = LayoutOf(9);
    for (qsizetype place = 2; place < layout.columns.size(); ++place) {
        layout.columns[place].heading = u"Used"_s;
    }
    std::vector<CellRow> rows {RowOf(u"anna"_s, 9, 0)};
    rows.front()[2] = 1e15;
    rows.front()[3] = 1e15;
    const ReportPages pages(TableOf(layout, rows));
    int whole = 0;
    for (const DrawnLine &line : LinesOf(pages, 0)) {
        whole += line.text == u"Used"_s ? 1 : 0;
    }
    EXPECT_EQ(whole, 9);
}

TEST_F(OnPaper, EveryPlaceOfATextIsFound)
{
    auto request = RequestFor(Dsn(), 15);
    request.setup.organisation = u"Harbour Net"_s;
    const ReportPages pages(ReportOf(request));
    ASSERT_GT(pages.Count(), 1);
    const char16_t *const wanted[] = {u"harbour NET",
                                      u"user site", // the title
                                      u"ip ADDRESS", // a column's heading
                                      u"grand TOTAL", // of the last page
                                      u"page 2 of",
                                      u"O'hara"};
    for (const char16_t *text : wanted) {
        const QString words = QString::fromUtf16(text);
        int there = 0;
        for (int page = 0; page < pages.Count(); ++page) {
            for (const QString &line : TextsOf(pages, page)) {
                there += static_cast<int>(line.count(words, Qt::CaseInsensitive));
            }
        }
        EXPECT_GT(there, 0) << words.toStdString();
        const auto first = pages.FindText(words, 0);
        ASSERT_TRUE(first) << words.toStdString();
        auto hit = first;
        int found = 0;
        do {
            const QRectF page(QPointF(0, 0), pages.Size());
            EXPECT_TRUE(page.contains(hit->place)) << words.toStdString();
            ++found;
            hit = pages.FindText(words, hit->page, hit);
        } while (hit && *hit != *first && found <= there);
        EXPECT_EQ(found, there) << words.toStdString();
    }
    EXPECT_FALSE(pages.FindText(u"nowhere at all"_s, 1));
    EXPECT_EQ(pages.FindText(u"User Site Access"_s, 1)->page, 1); // from the page that shows on
}

// The sheet that is drawn is the one that was asked for.
TEST_F(OnPaper, TheSetUpDecidesPaperAndHead)
{
    struct Case
    {
        QPageSize::PageSizeId paper;
        PageSetup::Turn turn;
        QSize points;
    };
    const Case cases[] = {
        {QPageSize::A4, PageSetup::Turn::AsReport, {595, 842}},
        {QPageSize::A4, PageSetup::Turn::Landscape, {842, 595}},
        {QPageSize::A3, PageSetup::Turn::Portrait, {842, 1191}},
        {QPageSize::Letter, PageSetup::Turn::AsReport, {612, 792}},
    };
    auto request = RequestFor(Dsn(), 0);
    request.setup.organisation = u"Harbour Net"_s;
    request.setup.address = u"Quay 4\n24103 Kiel"_s;
    for (const auto &[paper, turn, points] : cases) {
        request.setup.paper = paper;
        request.setup.turn = turn;
        const ReportPages pages(ReportOf(request));
        EXPECT_EQ(pages.Size().toSize(), points);
        EXPECT_EQ(
            TextsOf(pages, 0).mid(0, 4),
            QStringList({u"Harbour Net"_s, u"Quay 4"_s, u"24103 Kiel"_s, u"Traffic (Summary)"_s}));
    }
}

TEST_F(OnPaper, NothingReachesIntoTheFooterOfALowSheet)
{
    for (const int row : {1, 3, 7, 9, 10, 11}) {
        for (const auto paper : {QPageSize::A4, QPageSize::A5}) {
            auto request = RequestFor(Dsn(), row);
            request.setup.paper = paper;
            request.setup.turn = PageSetup::Turn::Landscape;
            request.setup.organisation = u"Harbour Net"_s;
            request.setup.address = u"1\n2\n3\n4\n5"_s;
            const ReportPages pages(ReportOf(request));
            const double footer = pages.Size().height() * 10 - paper::kMargin - 150;
            for (int page = 0; page < pages.Count(); ++page) {
                auto lines = LinesOf(pages, page);
                ASSERT_GT(lines.size(), 2U) << row;
                lines.resize(lines.size() - 2); // the footer's own
                for (const DrawnLine &line : lines) {
                    EXPECT_LE(line.place.bottom(), footer) << row << line.text.toStdString();
                }
            }
        }
    }
}

TEST_F(OnPaper, APdfHasABookmarkForEachGroup)
{
    for (const int row : {2, 15}) {
        const auto table = ReportOf(RequestFor(Dsn(), row));
        const ReportPages pages(table);
        const QString file = PdfOf(table);
        QString outline = OutputOf(u"pdftohtml"_s, {u"-xml"_s, u"-stdout"_s, u"-i"_s, file});
        outline.replace(u"&#39;"_s, u"'"_s).replace(u"&#34;"_s, u"&quot;"_s);
        for (size_t group = 0; group < table->groups.size(); ++group) {
            const QString item = u"<item page=\"%1\">%2</item>"_s.arg(pages.PageOfGroup(group) + 1)
                                     .arg(GroupTitle(*table, table->groups[group]).toHtmlEscaped());
            EXPECT_TRUE(outline.contains(item)) << item.toStdString();
        }
        EXPECT_EQ(outline.count(u"<item "_s), static_cast<qsizetype>(table->groups.size()));
    }
    EXPECT_FALSE(OutputOf(u"pdftohtml"_s,
                          {u"-xml"_s, u"-stdout"_s, u"-i"_s, PdfOf(ReportOf(RequestFor(Dsn(), 0)))})
                     .contains(u"<item "));
}

// The heading of each group stands where its bookmark leads.
TEST_F(OnPaper, ABookmarkLeadsToItsHeading)
{
    const ReportPages pages(ReportOf(RequestFor(Dsn(), 11))); // below a chart
    const ReportPages visits(ReportOf(RequestFor(Dsn(), 15)));
    for (const ReportPages *shown : {&pages, &visits}) {
        const ReportTable &table = shown->Table();
        for (size_t group = 0; group < table.groups.size(); ++group) {
            const auto texts = shown->Texts(shown->PageOfGroup(group));
            const double top = shown->TopOfGroup(group);
            EXPECT_TRUE(std::ranges::any_of(texts, [&](const PlacedText &text) {
                return text.text == GroupTitle(table, table.groups[group])
                    && std::abs(text.place.top() / 10 - top) < 0.1;
            })) << group;
        }
    }
}

TEST_F(OnPaper, APdfIsTitledAndOnTheChosenPaper)
{
    auto request = RequestFor(Dsn(), 0, {PeriodChoice::Custom, {2026, 11, 1}, {2026, 11, 20}});
    request.setup.paper = QPageSize::A5;
    request.setup.turn = PageSetup::Turn::Landscape; // lower than a table needs: made smaller
    const QString file = PdfOf(ReportOf(request));
    const QString told = OutputOf(u"pdfinfo"_s, {file});
    EXPECT_TRUE(told.contains(u"Traffic (Summary), 2026-11-01 to 2026-11-20"_s));
    EXPECT_TRUE(told.contains(u"595 x 420 pts"_s)) << told.toStdString();
    EXPECT_TRUE(OutputOf(u"pdftotext"_s, {file, u"-"_s}).contains(u"Page 1 of "_s));
    QFile bytes(file);
    ASSERT_TRUE(bytes.open(QIODevice::ReadOnly));
    EXPECT_TRUE(bytes.readAll().contains("/Lang (en)"));
}
