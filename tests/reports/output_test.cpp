#include "reports/output.h"

#include "reports/broken_store.h"
#include "reports/catalogue.h"
#include "reports/chart_painter.h"
#include "reports/csv_text.h"
#include "reports/paper.h"
#include "reports/report_fixture.h"
#include "reports/report_pages.h"
#include "reports/xlsx_text.h"
#include "support/core/database_fixture.h"

#include <QBuffer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QString OutputOf(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(60'000)) << program.toStdString();
    EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
    return QString::fromUtf8(process.readAllStandardOutput());
}

// All rows of a file as a reader of its format finds them: the cells' texts, days as 2026-11-21 08:30:00.
QList<QStringList> RowsIn(const QString &file)
{
    static const QString kReader = uR"(
import csv, datetime, html.parser, json, re, sys
file = sys.argv[1]
class Rows(html.parser.HTMLParser):
    rows, cell = [], False
    def handle_starttag(self, tag, attrs):
        if tag == 'tr': self.rows.append([])
        self.cell = self.cell or tag in ('td', 'th')
        if tag in ('td', 'th') and self.rows: self.rows[-1].append('')
        if tag == 'br' and self.cell: self.rows[-1][-1] += '\n'
    def handle_endtag(self, tag):
        if tag in ('td', 'th'): self.cell = False
    def handle_data(self, data):
        if self.cell: self.rows[-1][-1] += data
def text(value):
    if value is None: return ''
    if isinstance(value, datetime.datetime): return value.isoformat(' ', 'seconds')
    if isinstance(value, str): return re.sub('_x([0-9A-Fa-f]{4})_', lambda code: chr(int(code[1], 16)), value)
    return repr(value)
if file.endswith('.csv'):
    rows = list(csv.reader(open(file, newline='', encoding='utf-8')))
elif file.endswith('.html'):
    Rows().feed(open(file, encoding='utf-8').read())
    rows = Rows.rows
else:
    import openpyxl
    sheet = openpyxl.load_workbook(file).active
    rows = [[text(value) for value in row] for row in sheet.iter_rows(values_only=True)]
    rows.append([sheet.title, str(sheet.freeze_panes)])
print(json.dumps(rows))
)"_s;
    const QString read = OutputOf(QStringLiteral(TB_PYTHON), {u"-c"_s, kReader, file});
    QList<QStringList> rows;
    for (const auto &row : QJsonDocument::fromJson(read.toUtf8()).array()) {
        rows += row.toVariant().toStringList();
    }
    return rows;
}

// The cells of a row in some columns, each as `text` writes it.
template <typename Text>
QStringList
CellsOf(const ReportTable &table, const CellRow &row, const QList<int> &columns, Text text)
{
    QStringList cells;
    for (const int place : columns) {
        cells += text(table.layout.columns.at(place), row[static_cast<size_t>(place)]);
    }
    return cells;
}

QStringList HeadingsOf(const ReportTable &table)
{
    QStringList headings;
    for (const int place : table.layout.DataColumns()) {
        const LayoutColumn &column = table.layout.columns.at(place);
        headings +=
            column.heading + (column.unit.isEmpty() ? QString() : u" (%1)"_s.arg(column.unit));
    }
    return headings;
}

// As a CSV file holds a cell, before quotation marks.
QString CsvText(const LayoutColumn &column, const Cell &cell)
{
    const QString text = PlainText(column, cell);
    const bool guarded = !column.IsNumber() && u"=+-@"_s.contains(text.trimmed().left(1))
        && !text.trimmed().isEmpty();
    return guarded ? u'\'' + text : text;
}

// As the reader above gives a spreadsheet's cell: numbers and days are no texts there.
QString SheetCell(const LayoutColumn &column, const Cell &cell)
{
    const QString text = PlainText(column, cell);
    if (column.type == ColumnType::Day && !text.isEmpty()) {
        return text + u" 00:00:00";
    }
    return column.IsNumber() && cell.index() != 0 ? QString::number(text.toDouble(), 'g', 15)
                                                  : text;
}

QString SheetNumberText(const QString &read)
{
    bool isNumber = false;
    const double number = read.toDouble(&isNumber);
    return isNumber ? QString::number(number, 'g', 15) : read;
}

QString WithoutBlanks(QString text)
{
    text.removeIf([](QChar c) { return c.isSpace() || c.category() == QChar::Other_Format; });
    return text;
}

class Written : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        FillReportData();
    }

    QString Write(int row, const QString &suffix) { return Write(RequestFor(Dsn(), row), suffix); }

    QString Write(const ReportRequest &request, const QString &suffix = u"xlsx"_s)
    {
        const auto table = ReportOf(request);
        const QString file = folder.filePath(u"report.%1"_s.arg(suffix));
        RunControl control;
        ReportProblem problem;
        EXPECT_TRUE(WriteReport(table, file, control, problem)) << problem.text.toStdString();
        return file;
    }
};

} // namespace

// Names come back from a real reader of each format as they were put in.
TEST_F(Written, OddNamesSurviveCsv)
{
    const QString read = OutputOf(QStringLiteral(TB_PYTHON),
                                  {u"-c"_s,
                                   uR"(
import csv, json, sys
rows = list(csv.reader(open(sys.argv[1], newline='', encoding='utf-8')))
assert len({len(row) for row in rows}) == 1
print('\0'.join(row[0] for row in rows), end='')
)"_s,
                                   Write(0, u"csv"_s)});
    const QStringList names = read.split(QChar(u'\0'));
    EXPECT_EQ(names.front(), u"User"_s);
    for (const QString &name : OddNames()) {
        const bool guarded = u"=+-@"_s.contains(name.trimmed().front());
        EXPECT_TRUE(names.contains(guarded ? u'\'' + name : name)) << name.toStdString();
    }
}

TEST_F(Written, ACsvFileBeginsWithTheMarkWhenItIsAskedFor)
{
    const auto table = ReportOf(RequestFor(Dsn(), 0));
    QByteArray texts[2];
    for (const bool marked : {false, true}) {
        QBuffer device(&texts[marked ? 1 : 0]);
        device.open(QIODevice::WriteOnly);
        RunControl control;
        EXPECT_TRUE(WriteCsv(*table, device, control, {.csvBom = marked}));
    }
    EXPECT_TRUE(texts[0].startsWith("User,"));
    EXPECT_EQ(texts[1], "\xef\xbb\xbf" + texts[0]);
}

TEST_F(Written, OddNamesSurviveXlsx)
{
    QStringList names;
    for (const QStringList &row : RowsIn(Write(0, u"xlsx"_s))) {
        names += row.front();
    }
    for (const QString &name : OddNames()) {
        EXPECT_TRUE(names.contains(name)) << name.toStdString();
    }
}

TEST_F(Written, OddNamesSurviveHtml)
{
    const QString read = OutputOf(QStringLiteral(TB_PYTHON),
                                  {u"-c"_s,
                                   uR"(
import html.parser, sys
class Cells(html.parser.HTMLParser):
    cells = []
    def handle_starttag(self, tag, attrs):
        if tag in ('td', 'th'): self.cells.append('')
        if tag == 'br' and self.cells: self.cells[-1] += '\n'
    def handle_data(self, data):
        if self.cells: self.cells[-1] += data
Cells().feed(open(sys.argv[1], encoding='utf-8').read())
print('\0'.join(Cells.cells), end='')
)"_s,
                                   Write(0, u"html"_s)});
    const QStringList cells = read.split(QChar(u'\0'));
    for (const QString &name : OddNames()) {
        EXPECT_TRUE(cells.contains(name)) << name.toStdString();
    }
}

TEST_F(Written, OddNamesSurvivePdf)
{
    for (const int row : {0, 2}) { // in rows, and as headings of groups
        const QString text =
            WithoutBlanks(OutputOf(u"pdftotext"_s, {u"-raw"_s, Write(row, u"pdf"_s), u"-"_s}));
        for (const QString &name : OddNames()) {
            EXPECT_TRUE(text.contains(WithoutBlanks(name))) << name.toStdString();
        }
    }
}

TEST_F(Written, EveryReportIsPagesInEveryFormat)
{
    for (int row = 0; row < kReportCount; ++row) {
        const QString text = OutputOf(u"pdftotext"_s, {Write(row, u"pdf"_s), u"-"_s});
        EXPECT_TRUE(text.contains(u"Page 1 of ")) << row;
        EXPECT_TRUE(text.contains(TitleOf(ReportCatalogue()[static_cast<size_t>(row)]).trimmed()))
            << row;
        EXPECT_TRUE(text.contains(u"Made 2026-11-21 09:30:00")) << row;
    }
}

TEST_F(Written, EveryReportIsReadBackFromCsv)
{
    for (int row = 0; row < kReportCount; ++row) {
        const auto table = ReportOf(RequestFor(Dsn(), row));
        QList<QStringList> wanted {HeadingsOf(*table)};
        for (const CellRow &cells : table->rows.Read(0, table->rows.Count())) {
            wanted += CellsOf(*table, cells, table->layout.DataColumns(), CsvText);
        }
        EXPECT_GT(wanted.size(), 1) << row;
        EXPECT_EQ(RowsIn(Write(row, u"csv"_s)), wanted) << row;
    }
}

TEST_F(Written, EveryReportIsReadBackFromHtml)
{
    for (int row = 0; row < kReportCount; ++row) {
        const auto table = ReportOf(RequestFor(Dsn(), row));
        QList<QStringList> read = RowsIn(Write(row, u"html"_s));
        for (const CellRow &cells : table->rows.Read(0, table->rows.Count())) {
            const QStringList wanted =
                CellsOf(*table, cells, table->layout.PrintedColumns(), DisplayText);
            EXPECT_TRUE(read.removeOne(wanted)) << row << ": " << wanted.join(u'|').toStdString();
        }
    }
}

TEST_F(Written, EveryReportIsReadBackFromXlsx)
{
    for (int row = 0; row < kReportCount; ++row) {
        auto request = RequestFor(Dsn(), row);
        request.filter = u"users _x0041_"_s;
        const auto table = ReportOf(request);
        const auto columns = table->layout.DataColumns();
        QList<QStringList> read = RowsIn(Write(request));
        for (QStringList &cells : read) {
            std::ranges::transform(cells, cells.begin(), SheetNumberText);
        }
        EXPECT_EQ(read.takeLast(), QStringList({table->layout.title, u"A7"_s}));
        const QStringList above {table->layout.title,
                                 u"Period: all available"_s,
                                 u"Filter: users _x0041_"_s,
                                 u"Made 2026-11-21 09:30:00"_s,
                                 QString()};
        for (const QString &line : above) {
            EXPECT_EQ(read.takeFirst().front(), line) << row;
        }
        EXPECT_EQ(read.takeFirst(), HeadingsOf(*table)) << row;
        for (const CellRow &cells : table->rows.Read(0, table->rows.Count())) {
            EXPECT_EQ(read.takeFirst(), CellsOf(*table, cells, columns, SheetCell)) << row;
        }
        const auto sums = [&](const CellRow &cells, const QString &label) {
            QStringList texts = CellsOf(*table, cells, columns, SheetCell);
            texts.front() = texts.front().isEmpty() ? label : texts.front();
            EXPECT_EQ(read.takeFirst(), texts) << row;
        };
        if (table->HasTotals()) {
            sums(table->totals,
                 table->IsCut() ? u"Total of these %1"_s.arg(table->rows.Count()) : u"Total"_s);
        }
        if (table->HasTotals() && table->IsCut()) {
            sums(table->allTotals, u"Total of all %1"_s.arg(table->allCount));
        }
        EXPECT_EQ(read, QList<QStringList>()) << row;
    }
}

TEST_F(Written, AnEmptyReportSaysSoOnItsPage)
{
    const ReportPeriod nothing {PeriodChoice::Custom, {2001, 1, 1}, {2001, 1, 2}};
    for (int row = 0; row < kReportCount; ++row) {
        const ReportPages pages(ReportOf(RequestFor(Dsn(), row, nothing)));
        EXPECT_EQ(pages.Count(), 1);
        QBuffer device;
        device.open(QIODevice::WriteOnly);
        RunControl control;
        EXPECT_TRUE(WriteHtml(pages.Table(), device, control));
        EXPECT_TRUE(device.data().contains("Nothing to report")) << row;
    }
}

TEST_F(Written, AFailureLeavesTheFormerFile)
{
    const auto table = ReportOf(RequestFor(Dsn(), 0));
    const QString file = folder.filePath(u"kept.csv"_s);
    QFile former(file);
    ASSERT_TRUE(former.open(QIODevice::WriteOnly) && former.write("former") == 6);
    former.close();
    for (const FormatEntry &entry : OutputFormats()) {
        const QString suffix = entry.ending.toString();
        RunControl cancelled;
        cancelled.Cancel();
        ReportProblem problem;
        const QString name = folder.filePath(u"kept."_s + suffix);
        EXPECT_FALSE(WriteReport(table, name, cancelled, problem)) << suffix.toStdString();
        EXPECT_EQ(problem.kind, ReportProblem::Kind::Cancelled);
        EXPECT_EQ(QFile::exists(name), suffix == u"csv");

        RunControl control;
        EXPECT_FALSE(WriteReport(table, folder.filePath(u"none/x."_s + suffix), control, problem));
        EXPECT_EQ(problem.kind, ReportProblem::Kind::Output);
        EXPECT_TRUE(problem.text.contains(u"does not exist")) << problem.text.toStdString();
    }
    ASSERT_TRUE(former.open(QIODevice::ReadOnly));
    EXPECT_EQ(former.readAll(), "former");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden),
              QStringList(u"kept.csv"_s));
}

TEST_F(Written, AFileIsItsWritersAloneInEveryFormat)
{
    for (const FormatEntry &entry : OutputFormats()) {
        const QFile file(Write(0, entry.ending.toString()));
        const auto rights = file.permissions();
        EXPECT_FALSE(rights.testAnyFlags(QFile::ReadGroup | QFile::ReadOther | QFile::WriteGroup
                                         | QFile::WriteOther))
            << file.fileName().toStdString();
    }
}

TEST_F(Written, RowsThatCannotBeReadMakeNoFile)
{
    LayoutError error;
    const auto table = std::make_shared<ReportTable>();
    table->layout = ParseLayout("title = 'T'\nquery = 'SELECT name FROM groups'\n"
                                "[[column]]\nname = 'name'\n",
                                u"t"_s,
                                error)
                        .value();
    FillAndBreak(table->rows);
    table->allCount = table->rows.Count();
    table->totals = CellRow(1);
    for (const FormatEntry &entry : OutputFormats()) {
        const QString file = folder.filePath(u"broken."_s + entry.ending);
        RunControl control;
        ReportProblem problem;
        EXPECT_FALSE(WriteReport(table, file, control, problem));
        EXPECT_EQ(problem.kind, ReportProblem::Kind::Output);
        EXPECT_TRUE(problem.text.contains(u"cannot be read"_s)) << problem.text.toStdString();
        EXPECT_FALSE(QFile::exists(file));
    }
}

TEST_F(Written, AFullDiskIsTold)
{
    const auto table = ReportOf(RequestFor(Dsn(), 2));
    QFile full(u"/dev/full"_s);
    ASSERT_TRUE(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    RunControl control;
    EXPECT_FALSE(WriteCsv(*table, full, control));
    EXPECT_FALSE(WriteHtml(*table, full, control));
    EXPECT_FALSE(WritePdf(table, full, control));
}

TEST(Xlsx, EveryTextIsOneThatTheFormatMayHold)
{
    const QString pair = u"\U0001F600"_s;
    struct Case
    {
        QString text;
        QString written;
    };
    const Case cases[] = {
        {u"anna"_s, u"anna"_s},
        {u"a\tb\nc"_s, u"a\tb\nc"_s},
        {u"_x0041_"_s, u"_x005F_x0041_"_s},
        {u"__x00aF_x_x12_"_s, u"__x005F_x00aF_x_x12_"_s},
        {u"a\ufffe\uffff"_s, u"a\ufffd\ufffd"_s},
        {u"a"_s + QChar(u'\0') + u"b", u"a\ufffd"_s + u"b"},
        {pair, pair},
        {pair.left(1) + u"x", u"\ufffdx"_s},
        {u"x"_s + pair.right(1), u"x\ufffd"_s},
        {QString(40'000, u'x'), QString(32'767, u'x')},
        {QString(32'766, u'x') + pair, QString(32'766, u'x')},
        {QString(32'766, u'x') + u"_x0041_", QString(32'766, u'x')},
    };
    for (const auto &[text, written] : cases) {
        EXPECT_EQ(QString::fromUtf8(SheetText(text)), written) << text.left(20).toStdString();
    }
}

TEST(Xlsx, SheetsAreNamedAsTheFormatAllows)
{
    const std::tuple<QString, int, QString> cases[] = {
        {u"Traffic (Summary)"_s, 1, u"Traffic (Summary)"_s},
        {u"Traffic (Summary)"_s, 2, u"Traffic (Summary) (2)"_s},
        {u"a/b\\c?d*e[f]g:h"_s, 1, u"a-b-c-d-e-f-g-h"_s},
        {u"''quoted''"_s, 1, u"quoted"_s},
        {QString(40, u'x'), 1, QString(31, u'x')},
        {QString(40, u'x'), 12, QString(26, u'x') + u" (12)"},
        {QString(30, u'x') + u"\U0001F600", 1, QString(30, u'x')},
        {u"History"_s, 1, u"Report"_s},
        {u" "_s, 1, u"Report"_s},
    };
    for (const auto &[title, number, name] : cases) {
        EXPECT_EQ(QString::fromUtf8(SheetName(title, number)), name);
    }
}

TEST(Xlsx, DaysAreCountedAsTheFormatCounts)
{
    EXPECT_EQ(SheetMoment(u"1900-03-01"_s), 61);
    EXPECT_EQ(SheetMoment(u"2026-11-21"_s), 46347);
    EXPECT_EQ(SheetMoment(u"2026-11-21 12:00:00"_s), 46347.5);
    for (const char *other :
         {"", "never", "1900-02-28", "2026-02-30", "2026-11-21 25:00:00", "Total"}) {
        EXPECT_EQ(SheetMoment(QString::fromLatin1(other)), std::nullopt) << other;
    }
}

// Whoever opens it finds these names, whatever the library thinks of them.
TEST_F(Written, NamesThatNoXmlMayHoldMakeAFileAllTheSame)
{
    Execute("UPDATE users SET username = (?) WHERE username = 'anna'", u"a\ufffe\u0001_x0041_"_s);
    QStringList names;
    for (const QStringList &row : RowsIn(Write(0, u"xlsx"_s))) {
        names += row.front();
    }
    EXPECT_TRUE(names.contains(u"a\ufffd\u0001_x0041_"_s)) << names.join(u'|').toStdString();
}

TEST(Csv, FormulasAreGuardedAndFieldsQuoted)
{
    struct Case
    {
        const char16_t *text;
        bool isText;
        const char16_t *field;
    };
    const Case cases[] = {
        {u"anna", true, u"anna"},
        {u"=1+1", true, u"'=1+1"},
        {u"+49", true, u"'+49"},
        {u"-x", true, u"'-x"},
        {u"@x", true, u"'@x"},
        {u" =1", true, u"' =1"},
        {u"-12.50", false, u"-12.50"},
        {u"a,b", true, u"\"a,b\""},
        {u"a\"b", true, u"\"a\"\"b\""},
        {u"a\nb", true, u"\"a\nb\""},
        {u" a", true, u"\" a\""},
        {u"", true, u""},
    };
    for (const auto &[text, isText, field] : cases) {
        EXPECT_EQ(CsvField(QString::fromUtf16(text), isText), QString::fromUtf16(field));
    }
}

TEST(Pages, LongTextsAreWrappedWithoutLosingALetter)
{
    const QString text = QString(61, u'w') + QString(194, u'i');
    const auto lines = paper::Wrapped(text, paper::Style::Text, 1500, 12);
    EXPECT_GT(lines.size(), 2);
    EXPECT_EQ(lines.join(QString()), text);
    EXPECT_EQ(paper::Wrapped(text, paper::Style::Text, 1500, 2).size(), 2);
    EXPECT_TRUE(paper::Wrapped(text, paper::Style::Text, 1500, 2).back().endsWith(u'\u2026'));
    EXPECT_EQ(paper::Wrapped({}, paper::Style::Text, 1500, 2), QStringList(QString()));
    const auto words = paper::Wrapped(u"alpha beta gamma delta"_s, paper::Style::Text, 600, 12);
    EXPECT_EQ(words, QStringList({u"alpha beta "_s, u"gamma delta"_s}));
}

TEST(Chart, TicksAreRoundAndReachTheTop)
{
    const std::pair<double, std::vector<double>> cases[] = {
        {9.5, {0, 2, 4, 6, 8, 10}},
        {1000, {0, 200, 400, 600, 800, 1000}},
        {0.5, {0, 0.1, 0.2, 0.3, 0.4, 0.5}},
        {12, {0, 2.5, 5, 7.5, 10, 12.5}},
        {0, {0, 1}},
        {-1, {0, 1}},
        {qInf(), {0, 1}},
        {qQNaN(), {0, 1}},
    };
    for (const auto &[most, wanted] : cases) {
        const auto ticks = AxisTicks(most, 5);
        ASSERT_EQ(ticks.size(), wanted.size()) << most;
        for (size_t tick = 0; tick < ticks.size(); ++tick) {
            EXPECT_DOUBLE_EQ(ticks[tick], wanted[tick]) << most;
        }
    }
}
