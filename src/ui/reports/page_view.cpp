#include "ui/reports/page_view.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>

using namespace Qt::StringLiterals;

namespace {

constexpr double kGap = 16; // pixels between pages and around them
constexpr int kPicturesKept = 6;
constexpr double kLeastZoom = 0.2;
constexpr double kMostZoom = 4;

} // namespace

PageView::PageView(QWidget *parent) : QAbstractScrollArea(parent), pictures(kPicturesKept)
{
    setFocusPolicy(Qt::StrongFocus);
    setBackgroundRole(QPalette::Mid);
    viewport()->setBackgroundRole(QPalette::Mid);
    viewport()->setAutoFillBackground(true);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
}

void PageView::SetPages(std::shared_ptr<const ReportPages> newPages)
{
    pages = std::move(newPages);
    pictures.clear();
    if (fitsWidth) {
        FitWidth();
    }
    ArrangeBars();
    verticalScrollBar()->setValue(0);
    viewport()->update();
    emit CurrentPageChanged(0);
}

QSizeF PageView::PageSize() const
{
    return pages ? pages->Size() * (zoom * logicalDpiX() / 72.0) : QSizeF();
}

double PageView::Step() const
{
    return PageSize().height() + kGap;
}

int PageView::CurrentPage() const
{
    if (!pages) {
        return 0;
    }
    const double middle = verticalScrollBar()->value() + viewport()->height() / 2.0;
    return std::clamp(static_cast<int>(middle / Step()), 0, pages->Count() - 1);
}

void PageView::GoTo(int page)
{
    if (pages) {
        const int wanted = std::clamp(page, 0, pages->Count() - 1);
        verticalScrollBar()->setValue(static_cast<int>(wanted * Step()));
        emit CurrentPageChanged(wanted);
    }
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
    const int page = CurrentPage();
    const double wanted = std::clamp(factor, kLeastZoom, kMostZoom);
    if (wanted == zoom) {
        return;
    }
    zoom = wanted;
    pictures.clear();
    ArrangeBars();
    GoTo(page);
    viewport()->update();
}

void PageView::ArrangeBars()
{
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
    pages->Paint(painter, page, zoom * logicalDpiX() / 72.0);
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
    const double width = PageSize().width();
    const double left = width + 2 * kGap <= viewport()->width()
        ? (viewport()->width() - width) / 2
        : kGap - horizontalScrollBar()->value();
    const double scrolled = verticalScrollBar()->value();
    const int first =
        std::max(0, static_cast<int>((scrolled + event->rect().top() - kGap) / Step()));
    for (int page = first; page < pages->Count(); ++page) {
        const double top = kGap + page * Step() - scrolled;
        if (top > event->rect().bottom()) {
            break;
        }
        painter.drawPixmap(QPointF(left, top), Picture(page));
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
    emit CurrentPageChanged(CurrentPage());
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
