// Draws one page of a report; lengths are those of paper.h.
#pragma once

#include "reports/paper.h"
#include "reports/report_pages.h"

#include <QPainter>

// What stands above the rows of a group that began on a page before.
[[nodiscard]] QString ContinuedTitle(const QString &title);

constexpr int kMostHeadingLines = 4;

class PagePainter
{
public:
    PagePainter(const ReportPages &ofPages, QPainter &onPainter, int pageNumber);

    void Paint(double scale);

private:
    void PaintFirstHeading();
    void PaintOtherHeading();
    void PaintChart();
    void PaintEmpty();
    void PaintColumnHeadings();
    void PaintItem(const PageItem &item);
    void PaintGroupHeading(const PageItem &item);
    void PaintRow(const PageItem &item);
    void PaintUnread();
    void PaintSums(const QString &label, const CellRow &sums, double ruleWidth);
    void PaintClosing();
    void PaintFooter();

    void Write(const QRectF &place, const QString &text, paper::Style style, bool right = false);
    void WriteFitting(const QRectF &place, const QString &text, paper::Style style, bool right);
    void Rule(double width, const QColor &colour);
    [[nodiscard]] QRectF CellPlace(const ReportPages::PrintedColumn &column, double height) const;
    [[nodiscard]] QString Counted(qint64 count) const;

    const ReportPages &pages;
    const ReportTable &table;
    QPainter &painter;
    int page;
    double width; // of the page
    double height;
    double top = paper::kMargin; // of what is painted next
    std::vector<CellRow> rows; // read ahead, from firstRow
    qint64 firstRow = 0;
};
