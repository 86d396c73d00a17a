#include "reports/output.h"

#include "reports/catalogue.h"
#include "reports/chart_painter.h"
#include "reports/paper.h"
#include "reports/report_fixture.h"
#include "reports/report_pages.h"
#include "support/core/database_fixture.h"

#include <QBuffer>
#include <QFile>
#include <QProcess>

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

    QString Write(int row, const QString &suffix)
    {
        const auto table = ReportOf(RequestFor(Dsn(), row));
        const QString file = folder.filePath(u"report%1.%2"_s.arg(row).arg(suffix));
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

TEST_F(Written, OddNamesAndNumbersSurviveXlsx)
{
    const QString read = OutputOf(QStringLiteral(TB_PYTHON),
                                  {u"-c"_s,
                                   uR"(
import openpyxl, sys
rows = list(openpyxl.load_workbook(sys.argv[1]).active.iter_rows(values_only=True))
assert all(isinstance(row[2], (int, float)) for row in rows[1:]), rows
print('\0'.join([str(round(sum(row[2] for row in rows[1:-1]) - rows[-1][2], 6))] + [row[0] for row in rows]), end='')
)"_s,
                                   Write(0, u"xlsx"_s)});
    const QStringList names = read.split(QChar(u'\0'));
    EXPECT_EQ(names.front().toDouble(), 0); // the rows less their total
    EXPECT_EQ(names.back(), u"Total"_s);
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
        for (const QString &suffix : {u"csv"_s, u"html"_s, u"xlsx"_s}) {
            EXPECT_GT(QFile(Write(row, suffix)).size(), 100) << row;
        }
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
    for (const QString &suffix : {u"csv"_s, u"pdf"_s, u"html"_s, u"xlsx"_s}) {
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
