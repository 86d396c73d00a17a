#include "reports/chart_painter.h"
#include "reports/output.h"
#include "reports/page_painter.h"
#include "reports/piece_writer.h"
#include "reports/svg_canvas.h"
#include "reports/wording.h"

#include <QBuffer>
#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportHtml)
};

constexpr auto kStyle =
    u"body{font:15px/1.4 'DejaVu Sans',Verdana,sans-serif;color:#1a1a1a;background:#fff;"
    u"margin:2em auto;max-width:70em;padding:0 1em}h1{color:#1d4e89;margin-bottom:.2em}"
    u"header{display:flex;justify-content:space-between;white-space:pre-line}"
    u"header img{max-height:6em;max-width:40%}svg{display:block;width:100%;margin:1em 0}"
    u"table{border-collapse:collapse}th,td{padding:.25em .8em;text-align:left;"
    u"border-bottom:1px solid #c9ced4}td{overflow-wrap:anywhere}th{background:#e9edf2}"
    u".n{text-align:right;font-variant-numeric:tabular-nums}.n,.d{white-space:nowrap}"
    u".o td{background:#f6f8fa}.g th{background:none;"
    u"color:#1d4e89;padding-top:1em}.s td{font-weight:bold;border-top:1px solid #1a1a1a}"
    u".t td{font-weight:bold;border-top:3px double #1a1a1a}th span,p{color:#666}";

QString Escaped(const QString &text)
{
    return text.toHtmlEscaped().replace(u'\n', u"<br>"_s);
}

class HtmlWriter
{
public:
    HtmlWriter(const ReportTable &ofTable, QIODevice &device, RunControl &runControl)
        : table(ofTable)
        , layout(ofTable.layout)
        , columns(layout.PrintedColumns())
        , out(device)
        , control(runControl)
    { }

    bool Write()
    {
        WriteHead();
        WriteChart();
        if (table.IsEmpty()) {
            out.Write(u"<p><strong>" + Escaped(Words::tr("Nothing to report.")) + u"</strong> "
                      + Escaped(Words::tr("The database holds no data for this period and filter."))
                      + u"</p>\n");
        } else {
            WriteTable();
        }
        out.Write(u"</body></html>\n");
        return out.Flush() && !control.IsCancelled();
    }

private:
    void WriteHead()
    {
        const QString title = Escaped(layout.title);
        const QString filter =
            table.filter.isEmpty() ? Words::tr("all users and groups") : table.filter;
        const QString made = table.made.toString(u"yyyy-MM-dd HH:mm:ss"_s);
        out.Write(u"<!DOCTYPE html>\n<html lang=\"" + LanguageOfTexts()
                  + u"\"><head><meta charset=\"utf-8\"><title>" + title + u"</title><style>"
                  + QStringView(kStyle) + u"</style></head><body>\n");
        WriteOwner();
        out.Write(u"<h1>"_s + title + u"</h1>\n<p>"
                  + Escaped(Words::tr("Period: %1").arg(table.period)) + u"<br>"
                  + Escaped(Words::tr("Filter: %1").arg(filter)) + u"<br>"
                  + Escaped(Words::tr("Made %1").arg(made)) + u"</p>\n");
        if (!layout.note.isEmpty()) {
            out.Write(u"<p>"_s + Escaped(layout.note) + u"</p>\n");
        }
    }

    void WriteChart()
    {
        constexpr double kWidth = paper::kShortSide - 2 * paper::kMargin;
        const double height = ChartHeight(table.chart);
        if (height > 0) {
            SvgCanvas picture;
            PaintReportChart(picture, {0, 0, kWidth, height - 160}, table.chart);
            out.Write(picture.Element({kWidth, height - 120}, table.chart.title));
        }
    }

    // Whose report it is.
    void WriteOwner()
    {
        const PageSetup &setup = table.setup;
        if (!setup.HasHead()) {
            return;
        }
        out.Write(u"<header><div><strong>"_s + setup.organisation.toHtmlEscaped() + u"</strong>\n"
                  + setup.address.toHtmlEscaped() + u"</div>");
        if (!setup.logo.isNull()) {
            QByteArray bytes;
            QBuffer buffer(&bytes);
            setup.logo.save(&buffer, "PNG");
            out.Write(u"<img alt=\"\" src=\"data:image/png;base64,"_s
                      + QString::fromLatin1(bytes.toBase64()) + u"\">");
        }
        out.Write(u"</header>\n");
    }

    void WriteTable()
    {
        out.Write(u"<table>\n<thead><tr>");
        for (const int place : columns) {
            const LayoutColumn &column = layout.columns.at(place);
            const QString unit = column.unit.isEmpty()
                ? QString()
                : u" <span>"_s + Escaped(column.unit) + u"</span>";
            out.Write((column.IsNumber() ? u"<th class=\"n\">"_s : u"<th>"_s)
                      + Escaped(column.heading) + unit + u"</th>");
        }
        out.Write(u"</tr></thead>\n");
        for (const ReportGroup &group : table.groups) {
            out.Write(u"<tr class=\"g\"><th colspan=\"%1\" dir=\"auto\">"_s.arg(columns.size())
                      + Escaped(GroupTitle(table, group)) + u"</th></tr>\n");
            WriteRows(group.first, group.count);
            if (HasSumLine(group)) {
                WriteSums(group.totals, Words::tr("Sum"), u"s");
            }
        }
        if (table.groups.empty()) {
            WriteRows(0, table.rows.Count());
        }
        WriteSums(table.totals, Words::tr("Total"), u"t");
        if (table.IsCut()) {
            WriteSums(table.allTotals, Words::tr("Total of all"), u"s");
        }
        out.Write(u"</table>\n");
    }

    void WriteRows(qint64 first, qint64 count)
    {
        constexpr qint64 kAtOnce = 4096;
        for (qint64 done = 0; done < count && out.IsGood() && !control.IsCancelled();
             done += kAtOnce) {
            bool isOdd = false;
            for (const CellRow &row :
                 table.rows.Read(first + done, std::min(kAtOnce, count - done))) {
                WriteRow(row, isOdd ? u"o" : u"");
                isOdd = !isOdd;
            }
            control.SetProgress(first + done, table.rows.Count());
        }
    }

    // Sums say before the first of them what they are, where there is room for it.
    void WriteSums(const CellRow &sums, const QString &label, QStringView style)
    {
        const auto first = std::ranges::find_if(
            columns, [&](int place) { return sums[static_cast<size_t>(place)].index() != 0; });
        const auto before = first - columns.begin();
        out.Write(u"<tr class=\""_s + style + u"\">");
        if (before > 0) {
            out.Write(u"<td colspan=\"%1\">"_s.arg(before) + Escaped(label) + u"</td>");
        }
        WriteCells(sums, before);
    }

    void WriteRow(const CellRow &row, QStringView style)
    {
        out.Write(style.isEmpty() ? u"<tr>"_s : u"<tr class=\""_s + style + u"\">");
        WriteCells(row, 0);
    }

    // The cells of a line from a column on, and its end.
    void WriteCells(const CellRow &row, qsizetype from)
    {
        for (const int place : columns.sliced(from)) {
            const LayoutColumn &column = layout.columns.at(place);
            out.Write(TagOf(column) + Escaped(DisplayText(column, row[static_cast<size_t>(place)]))
                      + u"</td>");
        }
        out.Write(u"</tr>\n");
    }

    // Numbers and days are never broken; texts are where they must be.
    [[nodiscard]] static QString TagOf(const LayoutColumn &column)
    {
        return column.IsNumber()              ? u"<td class=\"n\">"_s
            : column.type == ColumnType::Text ? u"<td dir=\"auto\">"_s
                                              : u"<td class=\"d\">"_s;
    }

    const ReportTable &table;
    const Layout &layout;
    QList<int> columns;
    PieceWriter out;
    RunControl &control;
};

} // namespace

bool WriteHtml(const ReportTable &table, QIODevice &device, RunControl &control)
{
    return HtmlWriter(table, device, control).Write();
}
