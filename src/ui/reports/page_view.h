// A report's pages below each other, painted as they come into sight.
#pragma once

#include "reports/report_pages.h"

#include <QAbstractScrollArea>
#include <QCache>
#include <QPixmap>

class PageView : public QAbstractScrollArea
{
    Q_OBJECT

public:
    explicit PageView(QWidget *parent = nullptr);

    void SetPages(std::shared_ptr<const ReportPages> newPages); // null shows nothing
    [[nodiscard]] const ReportPages *Pages() const { return pages.get(); }

    // From 0: the page that was gone to, until the pages are scrolled; then the one that shows most.
    [[nodiscard]] int CurrentPage() const { return current; }
    void GoTo(int page);

    // Marks what was found and scrolls it into sight; a null place takes the mark away.
    void ShowHit(int page, const QRectF &place);

    void SetZoom(double factor); // 1 is the size on paper; fit to width ends
    void FitWidth();
    [[nodiscard]] double Zoom() const { return zoom; }

    void ScrollIntoSight(int page, const QRectF &place); // points on the page

    // Where a place of a page, in points, stands in the viewport.
    [[nodiscard]] QRectF PlaceInView(int page, const QRectF &place) const;

    // Whether a click on a row opens something: the pointer then shows it.
    void SetOpensRows(bool opens);

signals:
    void CurrentPageChanged(int page);
    void RowClicked(qint64 row); // of the table

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    [[nodiscard]] std::optional<qint64> RowAt(QPointF place) const; // in the viewport
    void ArrangeBars();
    void SetCurrent(int page);
    void ScrollTo(int page);
    [[nodiscard]] int PageShownMost() const;
    [[nodiscard]] double LeftEdge() const; // of the pages, in the viewport
    [[nodiscard]] double PixelsPerPoint() const { return zoom * logicalDpiX() / 72.0; }
    void Rezoom(double factor);
    [[nodiscard]] QSizeF PageSize() const; // pixels
    [[nodiscard]] double Step() const; // from one page's top to the next
    [[nodiscard]] QPixmap Picture(int page);

    std::shared_ptr<const ReportPages> pages;
    QCache<int, QPixmap> pictures;
    double zoom = 1;
    bool fitsWidth = true;
    int current = 0;
    bool opensRows = false;
    bool goesToPage = false; // the bar moves because a page is gone to
    int hitPage = 0;
    QRectF hit; // points on that page; null for none
};
