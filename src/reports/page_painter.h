// Draws one page of a report; lengths are those of paper.h.
#pragma once

#include "reports/report_pages.h"

// What stands above the rows of a group that began on a page before.
[[nodiscard]] QString ContinuedTitle(const QString &title);

// "3 users"; the number of a table's rows with what they are.
[[nodiscard]] QString CountedRows(const ReportTable &table, qint64 count);

// What stands before the totals of the rows printed, and of all rows.
[[nodiscard]] QString ClosingLabel(const ReportTable &table);
[[nodiscard]] QString AllLabel(const ReportTable &table);

// What stands before a group's sums on the first page of a report that has a summary.
[[nodiscard]] QString SummaryLine(const ReportPages &pages, size_t group);

// A group of one row is its own sum.
[[nodiscard]] inline bool HasSumLine(const ReportGroup &group)
{
    return group.count > 1;
}

// How high the organisation's name, address and logo stand above a report's title.
[[nodiscard]] double HeadHeight(const ReportTable &table, qsizetype addressLines);

constexpr int kMostHeadingLines = 4;
constexpr int kMostSummaryLines = 10;

class PagePainter
{
public:
    PagePainter(const ReportPages &ofPages, Canvas &onCanvas, int pageNumber);

    void Paint();

private:
    void PaintHead();
    void PaintFirstHeading();
    [[nodiscard]] QString FilterOrAddressee() const;
    void PaintOtherHeading();
    void PaintChart();
    void PaintSummary();
    int PaintLargestGroups(int most);
    int PaintLargestRows(int most);
    void PaintEmpty();
    void PaintItems();
    void PaintColumnHeadings(bool onlyOfSums = false);
    void PaintItem(const PageItem &item);
    void PaintGroupHeading(const PageItem &item);
    void PaintRow(const PageItem &item);
    void PaintUnread();
    void PaintCell(const PlannedColumn &column, const CellRow &row, int lines);
    void PaintSums(const QString &label, const CellRow &sums, paper::Style style);
    void PaintClosing();
    void PaintFooter();

    void Rule(double thickness, const QColor &colour, double length);
    [[nodiscard]] QRectF CellPlace(const PlannedColumn &column, double height) const;
    [[nodiscard]] QRectF Line(double height) const; // of the page, from `top` on

    const ReportPages &pages;
    const ReportTable &table;
    Canvas &canvas;
    int page;
    const ColumnPlan &plan; // of the page
    double width; // of the page
    double height;
    double top = paper::kMargin; // of what is painted next
    std::vector<CellRow> rows; // read ahead, from firstRow
    qint64 firstRow = 0;
    bool isTinted = false; // the next row
};
