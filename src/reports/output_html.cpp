#include "base/amount_text.h"
#include "reports/output.h"
#include "reports/piece_writer.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportHtml)
};

constexpr auto kStyle =
    u"body{font:15px/1.4 'DejaVu Sans',Verdana,sans-serif;color:#1a1a1a;margin:2em auto;"
    u"max-width:70em;padding:0 1em}h1{color:#1d4e89;margin-bottom:.2em}"
    u"table{border-collapse:collapse;width:100%}th,td{padding:.25em .6em;text-align:left;"
    u"border-bottom:1px solid #c9ced4;overflow-wrap:anywhere}th{background:#e9edf2}"
    u".n{text-align:right;font-variant-numeric:tabular-nums}.g th{background:none;"
    u"color:#1d4e89;padding-top:1em}.s td{font-weight:bold;border-top:1px solid #1a1a1a}"
    u".t td{font-weight:bold;border-top:3px double #1a1a1a}th span,p{color:#666}"
    u".bar{display:inline-block;height:1em;vertical-align:middle}"
    u".a{background:#1d4e89}.b{background:#f4a24c}";

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
        if (table.chart.kind == ChartKind::Bars && !table.chart.panels.empty()) {
            WriteBars();
        }
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
        //: The two letters that stand for the language of these texts
        const QString language = Words::tr("en");
        out.Write(u"<!DOCTYPE html>\n<html lang=\"" + language
                  + u"\"><head><meta charset=\"utf-8\"><title>" + title + u"</title><style>"
                  + QStringView(kStyle) + u"</style></head><body>\n<h1>" + title + u"</h1>\n<p>"
                  + Escaped(Words::tr("Period: %1").arg(table.period)) + u"<br>"
                  + Escaped(Words::tr("Filter: %1").arg(filter)) + u"<br>"
                  + Escaped(Words::tr("Made %1").arg(made)) + u"</p>\n");
    }

    void WriteBars()
    {
        const ChartPanel &panel = table.chart.panels.front();
        double most = 0;
        const auto sumAt = [&](size_t bar) {
            double sum = 0;
            for (const auto &values : panel.series) {
                sum += std::max(values[bar], 0.0);
            }
            return sum;
        };
        const auto bars = static_cast<size_t>(table.chart.labels.size());
        for (size_t bar = 0; bar < bars; ++bar) {
            most = std::max(most, sumAt(bar));
        }
        out.Write(u"<h2>" + Escaped(table.chart.title) + u"</h2>\n<table>\n");
        for (size_t bar = 0; bar < bars; ++bar) {
            out.Write(u"<tr><td dir=\"auto\">"
                      + Escaped(table.chart.labels.at(static_cast<qsizetype>(bar)))
                      + u"</td><td style=\"width:60%\">");
            for (size_t series = 0; series < panel.series.size(); ++series) {
                const double share =
                    most > 0 ? 100 * std::max(panel.series[series][bar], 0.0) / most : 0;
                out.Write(u"<span class=\"bar %1\" style=\"width:%2%\"></span>"_s
                              .arg(series == 0 ? u'a' : u'b')
                              .arg(share, 0, 'f', 2));
            }
            out.Write(u"</td><td class=\"n\">"_s + DecimalText(sumAt(bar), table.chart.decimals)
                      + u"</td></tr>\n");
        }
        out.Write(u"</table>\n");
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
            WriteSums(group.totals, Words::tr("Sum"), u"s");
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
            for (const CellRow &row :
                 table.rows.Read(first + done, std::min(kAtOnce, count - done))) {
                WriteRow(row, {});
            }
            control.SetProgress(first + done, table.rows.Count());
        }
    }

    // Sums say in the first column what they are, where that has no sum itself.
    void WriteSums(CellRow sums, const QString &label, QStringView style)
    {
        Cell &first = sums[static_cast<size_t>(columns.front())];
        first = first.index() == 0 ? Cell(label) : first;
        WriteRow(sums, style);
    }

    void WriteRow(const CellRow &row, QStringView style)
    {
        out.Write(style.isEmpty() ? u"<tr>"_s : u"<tr class=\""_s + style + u"\">");
        for (const int place : columns) {
            const LayoutColumn &column = layout.columns.at(place);
            out.Write((column.IsNumber() ? u"<td class=\"n\">"_s : u"<td dir=\"auto\">"_s)
                      + Escaped(DisplayText(column, row[static_cast<size_t>(place)])) + u"</td>");
        }
        out.Write(u"</tr>\n");
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
