// A report on paper: how many pages it takes and what each looks like, drawn the same way for the
// screen, a printer and a file.
#pragma once

#include "reports/canvas.h"
#include "reports/column_plan.h"
#include "reports/page_map.h"

#include <QPageLayout>
#include <QSizeF>

#include <optional>

class QPainter;
class RunControl;

// Where a text was found.
struct PageHit
{
    int page = 0; // from 0
    int text = 0; // of the page's texts
    qsizetype letter = 0; // of that text
    QRectF place; // points from the page's top left corner

    bool operator==(const PageHit &) const = default;
};

class ReportPages
{
public:
    // On the site's paper, lying or standing as its settings or the layout want it. Laying out takes long
    // where a million texts need more than one line: `control` may end it, and what it gives is then of no
    // use.
    explicit ReportPages(const ReportTablePtr &ofTable, const RunControl *control = nullptr);

    // On pages as wide and high as `sheet`, in points; where that has no room for a table, on larger
    // ones of the same shape.
    ReportPages(ReportTablePtr ofTable, QSizeF sheet, const RunControl *control);

    [[nodiscard]] int Count() const { return map.Count(); }
    [[nodiscard]] QPageLayout Sheet() const; // the site's, whatever the pages were laid out for
    [[nodiscard]] QSizeF Size() const { return size / 10; } // points
    [[nodiscard]] const ReportTable &Table() const { return *table; }

    // A report of many pages tells on its first one what it comes to; its rows begin on the second.
    [[nodiscard]] bool HasSummary() const { return hasSummary; }

    // The page, from 0, on which a group of the table begins.
    [[nodiscard]] int PageOfGroup(size_t group) const;

    // Whether the page is the first one, or the first of a letter (Layout::pageForEach): it has all the
    // headings.
    [[nodiscard]] bool HasAllHeadings(int page) const;

    // The page's number, from 1, and of how many: of its letter's pages, or of all.
    [[nodiscard]] std::pair<int, int> NumberOf(int page) const;

    // Whom the page's letter goes to; empty in other reports.
    [[nodiscard]] QString LetterTitle(int page) const;

    // Where its heading stands there, in points from the page's upper edge.
    [[nodiscard]] double TopOfGroup(size_t group) const;

    // The row whose lines stand at this height of the page, in points; nothing between and beside them.
    [[nodiscard]] std::optional<qint64> RowAt(int page, QPointF place) const;

    // Paints page 0 to Count()-1 with its top left corner at the painter's origin. Any page at any
    // time and on any thread.
    void Paint(QPainter &painter, int page, double pixelsPerPoint) const;

    // What stands on a page, from its top to its bottom; places in points.
    [[nodiscard]] std::vector<PlacedText> Texts(int page) const;

    // The same in words: texts that stand beside each other on one line, with tabs between.
    [[nodiscard]] QString PageText(int page) const;

    // The next place behind `after`, or from the top of the page `from` on, that holds the text, without
    // regard to case; behind the last page it goes on with the first, up to where it began. Nothing when
    // the text stands nowhere. `control` may end the search.
    [[nodiscard]] std::optional<PageHit> FindText(const QString &text,
                                                  int from,
                                                  const std::optional<PageHit> &after = {},
                                                  const RunControl *control = nullptr) const;

private:
    [[nodiscard]] double TopOfItems(int page) const;
    [[nodiscard]] double Room() const { return size.width() - 2 * paper::kMargin; }
    [[nodiscard]] PageOutline Outline(const RunControl *control) const;
    [[nodiscard]] int RowLines(const CellRow &row) const;
    [[nodiscard]] double RoomForTexts() const;
    [[nodiscard]] double ChartRoom() const;
    [[nodiscard]] double LeastOfLetter() const;
    [[nodiscard]] double FirstHeadingHeight() const;
    [[nodiscard]] int LinesBelow(double headingHeight) const;
    [[nodiscard]] QStringList NoteLines() const;
    [[nodiscard]] QStringList AddressLines() const;
    [[nodiscard]] std::vector<size_t> LargestGroups(size_t most) const;
    [[nodiscard]] QStringList SummaryLeads() const;
    [[nodiscard]] const ColumnPlan &PlanOf(int page) const;

    ReportTablePtr table;
    QSizeF size; // of a page, as in paper.h
    ColumnPlan plan;
    PageMap map;
    bool hasSummary = false;
    ColumnPlan summaryPlan; // of the first page then

    friend class PagePainter;
};
