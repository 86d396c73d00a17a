#include "ui/reports/page_view.h"

#include "ui/reports/page_view_accessible.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScopedValueRollback>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr double kGap = 16; // pixels between pages and around them
constexpr int kPicturesKept = 6;
constexpr double kLeastZoom = 0.2;
constexpr double kMostZoom = 4;

// Light enough for the letters below it, and framed for those who do not tell its colour from white.
void PaintHit(QPainter &painter, const QRectF &place)
{
    painter.fillRect(place.adjusted(-2, -1, 2, 1), QColor(0xff, 0xd0, 0x00, 0x70));
    painter.setPen(QPen(QColor(0xb3, 0x6b, 0x00), 1));
    painter.drawRect(place.adjusted(-2, -1, 2, 1));
}

} // namespace

PageView::PageView(QWidget *parent) : QAbstractScrollArea(parent), pictures(kPicturesKept)
{
    setFocusPolicy(Qt::StrongFocus);
    setBackgroundRole(QPalette::Mid);
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setAutoFillBackground(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    MakeReadable();
}

void PageView::SetPages(std::shared_ptr<const ReportPages> newPages)
{
    pages = std::move(newPages);
    pictures.clear();
    hit = {};
    current = 0;
    if (fitsWidth) {
        FitWidth();
    }
    ArrangeBars();
    ScrollTo(0);
    viewport()->update();
    emit CurrentPageChanged(0);
    TellTextChanged(*this);
}

QSizeF PageView::PageSize() const
{
    return pages ? pages->Size() * PixelsPerPoint() : QSizeF();
}

double PageView::Step() const
{
    return PageSize().height() + kGap;
}

// Of pages that show as much as each other, the first.
int PageView::PageShownMost() const
{
    const double top = verticalScrollBar()->value();
    const double bottom = top + viewport()->height();
    const int first = std::clamp(static_cast<int>(top / Step()), 0, pages->Count() - 1);
    int best = first;
    double most = 0;
    for (int page = first; page < pages->Count() && page * Step() < bottom; ++page) {
        const double from = std::max(top, kGap + page * Step());
        const double to = std::min(bottom, (page + 1) * Step());
        if (to - from > most + 1) {
            most = to - from;
            best = page;
        }
    }
    return best;
}

void PageView::GoTo(int page)
{
    if (pages) {
        const int wanted = std::clamp(page, 0, pages->Count() - 1);
        ScrollTo(wanted);
        SetCurrent(wanted);
    }
}

// The last pages of a report cannot stand at the top: they are gone to all the same.
void PageView::ScrollTo(int page)
{
    const QScopedValueRollback going(goesToPage, true);
    verticalScrollBar()->setValue(static_cast<int>(page * Step()));
}

void PageView::SetCurrent(int page)
{
    if (page != current) {
        current = page;
        viewport()->update();
        emit CurrentPageChanged(page);
        TellTextChanged(*this);
    }
}

void PageView::ShowHit(int page, const QRectF &place)
{
    hitPage = page;
    hit = place;
    if (!hit.isNull()) {
        SetCurrent(page);
        ScrollIntoSight(page, hit);
    }
    viewport()->update();
}

void PageView::ScrollIntoSight(int page, const QRectF &place)
{
    const QRectF now = PlaceInView(page, place);
    const QScopedValueRollback going(goesToPage, true);
    const QRectF seen = QRectF(viewport()->rect()).adjusted(kGap, kGap, -kGap, -kGap);
    if (now.top() < seen.top() || now.bottom() > seen.bottom()) {
        verticalScrollBar()->setValue(
            static_cast<int>(verticalScrollBar()->value() + now.center().y() - seen.center().y()));
    }
    if (now.left() < seen.left() || now.right() > seen.right()) {
        horizontalScrollBar()->setValue(static_cast<int>(horizontalScrollBar()->value()
                                                         + now.center().x() - seen.center().x()));
    }
}

double PageView::LeftEdge() const
{
    const double width = PageSize().width();
    return width + 2 * kGap <= viewport()->width() ? (viewport()->width() - width) / 2
                                                   : kGap - horizontalScrollBar()->value();
}

QRectF PageView::PlaceInView(int page, const QRectF &place) const
{
    const double top = kGap + page * Step() - verticalScrollBar()->value();
    return {QPointF(LeftEdge(), top) + place.topLeft() * PixelsPerPoint(),
            place.size() * PixelsPerPoint()};
}

void PageView::SetZoom(double factor)
{
    fitsWidth = false;
    Rezoom(factor);
}

void PageView::FitWidth()
{
    fitsWidth = true;
    if (pages) {
        const double paper = pages->Size().width() * logicalDpiX() / 72.0;
        Rezoom((viewport()->width() - 2 * kGap) / paper);
    }
}

void PageView::Rezoom(double factor)
{
    const double wanted = std::clamp(factor, kLeastZoom, kMostZoom);
    if (wanted == zoom) {
        return;
    }
    zoom = wanted;
    pictures.clear();
    ArrangeBars();
    ScrollTo(current);
    viewport()->update();
}

// The bars' values may be cut by their new ranges, which turns no page.
void PageView::ArrangeBars()
{
    const QScopedValueRollback going(goesToPage, true);
    const double whole = pages ? pages->Count() * Step() + kGap : 0;
    verticalScrollBar()->setPageStep(viewport()->height());
    verticalScrollBar()->setSingleStep(40);
    verticalScrollBar()->setRange(0, std::max(0, static_cast<int>(whole) - viewport()->height()));
    const int wide = static_cast<int>(PageSize().width() + 2 * kGap);
    horizontalScrollBar()->setPageStep(viewport()->width());
    horizontalScrollBar()->setRange(0, std::max(0, wide - viewport()->width()));
}

QPixmap PageView::Picture(int page)
{
    if (const QPixmap *known = pictures.object(page)) {
        return *known;
    }
    QPixmap picture((PageSize() * devicePixelRatioF()).toSize());
    picture.setDevicePixelRatio(devicePixelRatioF());
    picture.fill(Qt::white); // paper is white on a dark desktop too
    QPainter painter(&picture);
    pages->Paint(painter, page, PixelsPerPoint());
    painter.end();
    pictures.insert(page, new QPixmap(picture));
    return picture;
}

void PageView::paintEvent(QPaintEvent *event)
{
    if (!pages) {
        return;
    }
    QPainter painter(viewport());
    const double left = LeftEdge();
    const double scrolled = verticalScrollBar()->value();
    const int first =
        std::max(0, static_cast<int>((scrolled + event->rect().top() - kGap) / Step()));
    for (int page = first; page < pages->Count(); ++page) {
        const double top = kGap + page * Step() - scrolled;
        if (top > event->rect().bottom()) {
            break;
        }
        painter.drawPixmap(QPointF(left, top), Picture(page));
        const QRectF place(QPointF(left, top), PageSize());
        if (page == hitPage && !hit.isNull()) {
            PaintHit(painter, PlaceInView(page, hit));
        }
        // Where several pages show, the one whose number stands in the bar is framed.
        if (page == current && 2 * Step() <= viewport()->height()) {
            painter.setPen(QPen(palette().highlight(), 3));
            painter.drawRect(place.adjusted(-3, -3, 3, 3));
        }
    }
}

void PageView::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    if (fitsWidth) {
        FitWidth();
    }
    ArrangeBars();
}

void PageView::scrollContentsBy(int, int)
{
    viewport()->update();
    if (pages && !goesToPage) {
        SetCurrent(PageShownMost());
    }
}

void PageView::SetOpensRows(bool opens)
{
    opensRows = opens;
    viewport()->setMouseTracking(opens);
    viewport()->unsetCursor();
}

std::optional<qint64> PageView::RowAt(QPointF place) const
{
    const double below = place.y() + verticalScrollBar()->value() - kGap;
    if (!pages || !opensRows || below < 0) {
        return std::nullopt;
    }
    const int page = static_cast<int>(below / Step());
    return page < pages->Count()
        ? pages->RowAt(page, (place - PlaceInView(page, {}).topLeft()) / PixelsPerPoint())
        : std::nullopt;
}

void PageView::mouseMoveEvent(QMouseEvent *event)
{
    if (RowAt(event->position())) {
        viewport()->setCursor(Qt::PointingHandCursor);
    } else {
        viewport()->unsetCursor();
    }
}

void PageView::mouseReleaseEvent(QMouseEvent *event)
{
    const auto row = RowAt(event->position());
    if (row && event->button() == Qt::LeftButton) {
        emit RowClicked(*row);
    }
}

void PageView::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Home) {
        GoTo(0);
    } else if (event->key() == Qt::Key_End && pages) {
        GoTo(pages->Count() - 1);
    } else {
        QAbstractScrollArea::keyPressEvent(event);
    }
}
