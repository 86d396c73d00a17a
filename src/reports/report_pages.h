// A report on paper: how many pages it takes and what each looks like, drawn the same way for the
// screen, a printer and a file.
#pragma once

#include "reports/page_map.h"
#include "reports/report_table.h"

#include <QRectF>
#include <QSizeF>

class QPainter;
class RunControl;

class ReportPages
{
public:
    // On A4, lying or standing as the layout wants it. Laying out takes long where a million texts need
    // more than one line: `control` may end it, and what it gives is then of no use.
    explicit ReportPages(const ReportTablePtr &ofTable, const RunControl *control = nullptr);

    // On pages as wide and high as `sheet`, in points; where that has no room for a table, on larger
    // ones of the same shape.
    ReportPages(ReportTablePtr ofTable, QSizeF sheet, const RunControl *control);

    [[nodiscard]] int Count() const { return map.Count(); }
    [[nodiscard]] bool IsLandscape() const { return table->layout.landscape; }
    [[nodiscard]] QSizeF Size() const { return size / 10; } // points
    [[nodiscard]] const ReportTable &Table() const { return *table; }

    // Paints page 0 to Count()-1 with its top left corner at the painter's origin. Any page at any
    // time and on any thread.
    void Paint(QPainter &painter, int page, double pixelsPerPoint) const;

    // The first page from `page` on that holds the text, without regard to case; -1 when none does.
    // `control` may end the search.
    [[nodiscard]] int
    FindText(const QString &text, int page, const RunControl *control = nullptr) const;

    // What stands on a page in words, a line for each cell.
    [[nodiscard]] QString PageText(int page) const;

private:
    struct PrintedColumn
    {
        int place; // in the layout
        double left;
        double width;
    };

    [[nodiscard]] std::vector<PrintedColumn> PrintedColumns() const;
    [[nodiscard]] PageOutline Outline(const RunControl *control) const;
    [[nodiscard]] int RowLines(const CellRow &row) const;
    [[nodiscard]] QString RowText(const CellRow &row) const;
    [[nodiscard]] double ChartHeight() const;
    [[nodiscard]] int LinesBelow(double headingHeight) const;

    ReportTablePtr table;
    QSizeF size; // of a page, as in paper.h
    std::vector<PrintedColumn> columns;
    PageMap map;

    friend class PagePainter;
};
