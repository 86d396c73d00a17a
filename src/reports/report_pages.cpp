#include "reports/report_pages.h"

#include "reports/page_painter.h"
#include "reports/paper.h"
#include "reports/report_run.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSumLines = 2; // the sum and a blank one behind it

QSizeF UsualSheet(const Layout &layout)
{
    const QSizeF standing(paper::kShortSide / 10, paper::kLongSide / 10);
    return layout.landscape ? standing.transposed() : standing;
}

// What surrounds the rows of a page.
constexpr double kFrame = 2 * paper::kMargin + paper::kColumnHeading + paper::kFooter;

// Enlarged until the least number of lines finds room.
QSizeF Enlarged(QSizeF sheet)
{
    constexpr double kLeastWidth = 4000;
    constexpr double kLeastHeight =
        kFrame + paper::kOtherHeading + PageMap::kLeastLines * paper::kLine;
    const QSizeF page = sheet * 10;
    return page * std::max({1.0, kLeastWidth / page.width(), kLeastHeight / page.height()});
}

} // namespace

ReportPages::ReportPages(const ReportTablePtr &ofTable, const RunControl *control)
    : ReportPages(ofTable, UsualSheet(ofTable->layout), control)
{ }

ReportPages::ReportPages(ReportTablePtr ofTable, QSizeF sheet, const RunControl *control)
    : table(std::move(ofTable))
    , size(Enlarged(sheet))
    , columns(PrintedColumns())
    , map(Outline(control),
          LinesBelow(paper::kFirstHeading + ChartHeight()),
          LinesBelow(paper::kOtherHeading))
{ }

std::vector<ReportPages::PrintedColumn> ReportPages::PrintedColumns() const
{
    const Layout &layout = table->layout;
    double whole = 0;
    const auto places = layout.PrintedColumns();
    for (const int place : places) {
        whole += layout.columns.at(place).width;
    }
    const double share = (size.width() - 2 * paper::kMargin) / whole;
    std::vector<PrintedColumn> printed;
    double left = paper::kMargin;
    for (const int place : places) {
        printed.push_back({place, left, layout.columns.at(place).width * share});
        left += printed.back().width;
    }
    return printed;
}

double ReportPages::ChartHeight() const
{
    if (table->chart.panels.empty()) {
        return 0;
    }
    switch (table->chart.kind) {
    case ChartKind::Bars:
        return 420.0 + 220.0 * static_cast<double>(table->chart.labels.size());
    case ChartKind::Days:
        return 2300;
    case ChartKind::DaysOfEach: {
        const size_t lines = (table->chart.panels.size() + 1) / 2;
        return 420.0 + 770.0 * static_cast<double>(lines);
    }
    case ChartKind::None:
        break;
    }
    return 0;
}

int ReportPages::LinesBelow(double headingHeight) const
{
    return static_cast<int>((size.height() - kFrame - headingHeight) / paper::kLine);
}

int ReportPages::RowLines(const CellRow &row) const
{
    qsizetype lines = 1;
    for (const PrintedColumn &column : columns) {
        if (const auto *text = std::get_if<QString>(&row[static_cast<size_t>(column.place)])) {
            const double width = column.width - 2 * paper::kCellPadding;
            lines = std::max(
                lines,
                paper::Wrapped(OneLine(*text), paper::Style::Text, width, PageMap::kMostRowLines)
                    .size());
        }
    }
    return static_cast<int>(lines);
}

PageOutline ReportPages::Outline(const RunControl *control) const
{
    const double width = size.width() - 2 * paper::kMargin - 2 * paper::kCellPadding;
    PageOutline outline;
    for (const ReportGroup &group : table->groups) {
        const auto heading = paper::Wrapped(ContinuedTitle(GroupTitle(*table, group)),
                                            paper::Style::Strong,
                                            width,
                                            kMostHeadingLines);
        outline.groups.push_back(
            {group.first, group.count, static_cast<int>(heading.size()), kSumLines});
    }
    if (table->groups.empty() && !table->IsEmpty()) {
        outline.groups.push_back({0, table->rows.Count(), 0, 0});
    }
    for (const qint64 row : table->longRows) {
        if (control != nullptr && control->IsCancelled()) {
            break;
        }
        for (const CellRow &read : table->rows.Read(row, 1)) {
            if (const int lines = RowLines(read); lines > 1) {
                outline.tallRows.emplace_back(row, lines);
            }
        }
    }
    outline.closingLines = table->IsEmpty() ? 0 : table->IsCut() ? 3 : 2;
    return outline;
}

void ReportPages::Paint(QPainter &painter, int page, double pixelsPerPoint) const
{
    PagePainter(*this, painter, page).Paint(pixelsPerPoint / 10);
}

int ReportPages::FindText(const QString &text, int page, const RunControl *control) const
{
    for (int now = page; now < Count() && (control == nullptr || !control->IsCancelled()); ++now) {
        if (PageText(now).contains(text, Qt::CaseInsensitive)) {
            return now;
        }
    }
    return -1;
}

QString ReportPages::RowText(const CellRow &row) const
{
    QString text;
    for (const PrintedColumn &column : columns) {
        text += u'\n'
            + OneLine(DisplayText(table->layout.columns.at(column.place),
                                  row[static_cast<size_t>(column.place)]));
    }
    return text;
}

QString ReportPages::PageText(int page) const
{
    QString text = page == 0 ? table->layout.title + u'\n' + table->period + u'\n' + table->filter
            + u'\n' + table->chart.labels.join(u'\n')
                             : QString();
    for (const PageItem &item : map.Page(page)) {
        if (item.kind == PageItem::Kind::Row) {
            for (const CellRow &row : table->rows.Read(item.index, 1)) {
                text += RowText(row);
            }
        } else if (item.kind == PageItem::Kind::Heading) {
            text += u'\n' + GroupTitle(*table, table->groups[static_cast<size_t>(item.index)]);
        }
    }
    return text;
}
