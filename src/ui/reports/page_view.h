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

    [[nodiscard]] int CurrentPage() const; // from 0; the one that takes most of the upper half
    void GoTo(int page);

    void SetZoom(double factor); // 1 is the size on paper; fit to width ends
    void FitWidth();
    [[nodiscard]] double Zoom() const { return zoom; }

signals:
    void CurrentPageChanged(int page);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void ArrangeBars();
    void Rezoom(double factor);
    [[nodiscard]] QSizeF PageSize() const; // pixels
    [[nodiscard]] double Step() const; // from one page's top to the next
    [[nodiscard]] QPixmap Picture(int page);

    std::shared_ptr<const ReportPages> pages;
    QCache<int, QPixmap> pictures;
    double zoom = 1;
    bool fitsWidth = true;
};
