#include "reports/report_table.h"

#include <QCoreApplication>

#include <array>
#include <string_view>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportTable)
};

struct LetterClass
{
    std::string_view letters;
    double ems;
};

// Letters of the pages' font in classes of like width, each by its widest.
constexpr LetterClass kLetterClasses[] = {
    {"ijlI.,:;'| ", 0.35},
    {"frt()[]/\\-!", 0.42},
    {"ABCDEGHJKNOPQRSTUVXYZ&+<=>~^#w_", 0.85},
    {"MWm@%", 1.01},
};

constexpr auto kAsciiEms = [] {
    std::array<double, 0x80> ems {};
    ems.fill(0.65);
    for (const LetterClass &each : kLetterClasses) {
        for (const char letter : each.letters) {
            ems[static_cast<unsigned char>(letter)] = each.ems;
        }
    }
    return ems;
}();

double EmsOfLetter(QChar letter)
{
    const char16_t code = letter.unicode();
    if (code < kAsciiEms.size()) {
        return kAsciiEms[code];
    }
    return code < 0x250 ? 0.85 : 1.1;
}

QString Line(const Layout &layout, const CellRow &row)
{
    QStringList texts;
    for (size_t place = 0; place < row.size(); ++place) {
        texts += OneLine(DisplayText(layout.columns.at(static_cast<qsizetype>(place)), row[place]));
    }
    return texts.join(u" | "_s);
}

QString ChartText(const ReportChart &chart)
{
    QString text =
        u"chart: %1 [%2] %3\n"_s.arg(chart.title, chart.unit, chart.seriesNames.join(u", "_s));
    for (const ChartPanel &panel : chart.panels) {
        text += panel.title.isEmpty() ? QString() : u"  panel: "_s + OneLine(panel.title) + u'\n';
        const size_t points = panel.series.empty() ? 0 : panel.series.front().size();
        for (size_t point = 0; point < points; ++point) {
            QString label = chart.kind == ChartKind::Bars
                ? OneLine(chart.labels.at(static_cast<qsizetype>(point)))
                : chart.steps[point].toString(Qt::ISODate);
            for (const auto &values : panel.series) {
                label += u" | "_s + QString::number(values[point], 'f', chart.decimals);
            }
            text += u"  "_s + label + u'\n';
        }
    }
    return text;
}

} // namespace

double EmsOf(QStringView text)
{
    double ems = 0;
    for (const QChar letter : text) {
        ems += EmsOfLetter(letter);
    }
    return ems;
}

double LeastEms(const Layout &layout, int column)
{
    constexpr double kEmsOfPage =
        60; // between the margins of a portrait page, in the size of its texts
    constexpr double kLeastShare = 0.5; // the rest may go to numbers
    double whole = 0;
    for (const int place : layout.PrintedColumns()) {
        whole += layout.columns.at(place).width;
    }
    const double share = kLeastShare * layout.columns.at(column).width / whole;
    return std::max(2.0, share * kEmsOfPage * (layout.landscape ? 1.4 : 1) - 1);
}

bool ReportTable::HasTotals() const
{
    return std::any_of(layout.columns.begin(), layout.columns.end(), [](const auto &column) {
        return column.total;
    });
}

QString GroupTitle(const ReportTable &table, const ReportGroup &group)
{
    QStringList texts;
    for (const int place : table.layout.group) {
        const QString text = OneLine(
            DisplayText(table.layout.columns.at(place), group.keys[static_cast<size_t>(place)]));
        if (!text.isEmpty()) {
            texts += text;
        }
    }
    return texts.isEmpty() ? Words::tr("(no name)") : texts.join(u", "_s);
}

QString AsText(const ReportTable &table)
{
    QStringList headings;
    for (const LayoutColumn &column : table.layout.columns) {
        headings += column.unit.isEmpty() ? column.heading : column.heading + u", "_s + column.unit;
    }
    QString text = table.layout.title + u"\nperiod: " + table.period + u"\nfilter: " + table.filter
        + u"\ncolumns: " + headings.join(u" | "_s) + u'\n';
    const auto rows = [&](qint64 first, qint64 count) {
        for (const CellRow &row : table.rows.Read(first, count)) {
            text += Line(table.layout, row) + u'\n';
        }
    };
    for (const ReportGroup &group : table.groups) {
        text += u"group: "_s + GroupTitle(table, group) + u'\n';
        rows(group.first, group.count);
        text += u"sum: "_s + Line(table.layout, group.totals) + u'\n';
    }
    if (table.groups.empty()) {
        rows(0, table.rows.Count());
    }
    text += u"total of %1: "_s.arg(table.rows.Count()) + Line(table.layout, table.totals) + u'\n';
    if (table.IsCut()) {
        text += u"all %1: "_s.arg(table.allCount) + Line(table.layout, table.allTotals) + u'\n';
    }
    return table.chart.kind == ChartKind::None ? text : text + ChartText(table.chart);
}
