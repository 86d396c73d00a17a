// Reports as web pages, looked at with a real browser.
#include "reports/output.h"
#include "reports/report_fixture.h"
#include "support/core/database_fixture.h"

#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QStandardPaths>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kDark = qRgb(0x1d, 0x4e, 0x89); // the first value's bars and areas

// Writes into the page what a person would see of it.
constexpr auto kProbe = R"(<script>
const widths = c => [...document.querySelectorAll('svg rect[fill="' + c + '"]')]
  .map(r => r.getBoundingClientRect().width).filter(w => w > 0);
const lines = e => { const r = document.createRange(); r.selectNodeContents(e);
  return new Set([...r.getClientRects()].map(b => Math.round(b.top))).size; };
const seen = {
  dark: widths('#1d4e89'),
  paths: [...document.querySelectorAll('svg path[fill]')].filter(p => p.getBBox().height > 0).length,
  texts: [...document.querySelectorAll('svg text')].map(t => t.textContent),
  broken: [...document.querySelectorAll('td.n, td.d')].filter(c => lines(c) > 1).length,
  cells: document.querySelectorAll('td.n').length,
  label: document.querySelector('svg')?.getAttribute('aria-label') ?? '',
  overflow: document.documentElement.scrollWidth > innerWidth,
};
document.body.dataset.seen = encodeURIComponent(JSON.stringify(seen));
</script>)";

class Browser : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        program = QStandardPaths::findExecutable(u"chromium"_s);
        if (program.isEmpty()) {
            GTEST_SKIP() << "Chromium is not installed: NO report was looked at as a web page";
        }
        FillReportData();
    }

    QString Page(int row)
    {
        QBuffer device;
        device.open(QIODevice::WriteOnly);
        RunControl control;
        EXPECT_TRUE(WriteHtml(*ReportOf(RequestFor(Dsn(), row)), device, control));
        QFile file(folder.filePath(u"%1.html"_s.arg(row)));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(QByteArray(device.data()).replace("</body>", kProbe));
        return file.fileName();
    }

    QByteArray Run(const QStringList &wishes, const QString &page) const
    {
        QProcess browser;
        browser.start(program,
                      QStringList {u"--headless"_s,
                                   u"--no-sandbox"_s,
                                   u"--disable-gpu"_s,
                                   u"--hide-scrollbars"_s,
                                   u"--window-size=900,1400"_s,
                                   u"--user-data-dir="_s + folder.filePath(u"browser"_s)}
                          + wishes + QStringList(u"file://"_s + page));
        EXPECT_TRUE(browser.waitForFinished(60'000));
        EXPECT_EQ(browser.exitCode(), 0) << browser.readAllStandardError().toStdString();
        return browser.readAllStandardOutput();
    }

    QJsonObject Seen(int row)
    {
        const QString dom = QString::fromUtf8(Run({u"--dump-dom"_s}, Page(row)));
        const QString told = dom.section(u"data-seen=\""_s, 1).section(u'"', 0, 0);
        return QJsonDocument::fromJson(QByteArray::fromPercentEncoding(told.toLatin1())).object();
    }

    QImage Picture(int row)
    {
        const QString file = folder.filePath(u"%1.png"_s.arg(row));
        Run({u"--screenshot="_s + file}, Page(row));
        return QImage(file);
    }

    QString program;
};

// How many lines of the picture have a run of so many points of the colour.
int LinesWithRun(const QImage &picture, QRgb colour, int length)
{
    int lines = 0;
    for (int y = 0; y < picture.height(); ++y) {
        int run = 0;
        int longest = 0;
        for (int x = 0; x < picture.width(); ++x) {
            run = picture.pixel(x, y) == colour ? run + 1 : 0;
            longest = std::max(longest, run);
        }
        lines += longest >= length ? 1 : 0;
    }
    return lines;
}

} // namespace

TEST_F(Browser, BarsAreSeenInTheirLengths)
{
    for (const int row : {1, 7, 11, 12, 14}) {
        const QJsonObject seen = Seen(row);
        const auto table = ReportOf(RequestFor(Dsn(), row));
        const auto &values = table->chart.panels.front().series.front();
        QList<double> widths;
        for (const QJsonValue width : seen[u"dark"].toArray()) {
            widths += width.toDouble();
        }
        if (table->chart.seriesNames.size() > 1) {
            widths.removeFirst(); // what the colour means
        }
        ASSERT_EQ(widths.size(), static_cast<qsizetype>(values.size())) << row;
        for (size_t bar = 0; bar < values.size(); ++bar) {
            EXPECT_NEAR(widths[static_cast<qsizetype>(bar)] / widths.front(),
                        values[bar] / values.front(),
                        0.01)
                << row;
        }
        EXPECT_GT(widths.front(), 200) << row;
        EXPECT_EQ(seen[u"label"].toString(), table->chart.title) << row;
        EXPECT_GT(LinesWithRun(Picture(row), kDark, 200), 8) << row;
    }
}

TEST_F(Browser, NumbersOfBarsHaveGroupsAndAUnit)
{
    Execute("UPDATE traffic_use SET data = data * 1000000");
    QStringList texts;
    for (const QJsonValue text : Seen(1)[u"texts"].toArray()) {
        texts += text.toString();
    }
    EXPECT_TRUE(texts.contains(u"426,000,004.50\u00a0MB"_s)) << texts.join(u'|').toStdString();
}

TEST_F(Browser, AreasAreSeen)
{
    for (const int row : {3, 9}) {
        const auto table = ReportOf(RequestFor(Dsn(), row));
        ASSERT_EQ(table->chart.panels.size(), 9U);
        const auto series = table->chart.panels.front().series.size();
        EXPECT_EQ(Seen(row)[u"paths"].toInt(), static_cast<int>(9 * series)) << row;
        EXPECT_GT(LinesWithRun(Picture(row), kDark, 5), 60) << row;
    }
}

TEST_F(Browser, NoFigureIsBroken)
{
    Execute("UPDATE traffic_use SET data = data * 1000000000000");
    Execute("UPDATE billing SET data = data * 1000000000000");
    for (const int row : {0, 2, 5, 11}) {
        const QJsonObject seen = Seen(row);
        EXPECT_GT(seen[u"cells"].toInt(), 20) << row;
        EXPECT_EQ(seen[u"broken"].toInt(-1), 0) << row;
    }
}
