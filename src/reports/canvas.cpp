#include "reports/canvas.h"

#include <QImage>
#include <QPainter>

void Canvas::Write(const QRectF &place, const QString &text, const TextLook &look)
{
    if (!text.isEmpty()) {
        Say(place, text, look);
        Draw(place, paper::Elided(text, look.style, place.width(), look.pixels), look);
    }
}

void Canvas::WriteFitting(const QRectF &place, const QString &text, const TextLook &look)
{
    if (!text.isEmpty()) {
        Say(place, text, look);
        Draw(place, text, look);
    }
}

void Canvas::WriteWhole(const QRectF &place, const QString &text, TextLook look)
{
    if (text.isEmpty()) {
        return;
    }
    const double width = paper::Metrics(look.style, look.pixels).horizontalAdvance(text);
    if (width > place.width()) {
        look.pixels = paper::SmallerPixels(look.style, look.pixels, place.width() / width);
    }
    Say(place, text, look);
    Draw(place, text, look);
}

void PainterCanvas::Draw(const QRectF &place, const QString &line, const TextLook &look)
{
    const QFontMetricsF &metrics = paper::Metrics(look.style, look.pixels);
    double left = place.left();
    if (look.side != Qt::AlignLeft) {
        const double free = place.width() - metrics.horizontalAdvance(line);
        left += look.side == Qt::AlignRight ? free : free / 2;
    }
    painter.setFont(paper::Font(look.style, look.pixels));
    painter.setPen(look.colour);
    const double base = place.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    painter.drawText(QPointF(left, base), line);
}

void PainterCanvas::Fill(const QRectF &place, const QColor &colour)
{
    painter.fillRect(place, colour);
}

void PainterCanvas::FillPath(const QPainterPath &path, const QColor &colour)
{
    painter.fillPath(path, colour);
}

void PainterCanvas::Line(QPointF from, QPointF to, double thickness, const QColor &colour)
{
    painter.setPen(QPen(colour, thickness));
    painter.drawLine(from, to);
}

void PainterCanvas::Picture(const QRectF &place, const QImage &picture)
{
    painter.drawImage(place, picture);
}

QRectF PlacedText::PlaceOf(qsizetype first, qsizetype count) const
{
    const QFontMetricsF &metrics = paper::Metrics(look.style, look.pixels);
    const double width = metrics.horizontalAdvance(text);
    if (width > place.width() + 1 || text.isRightToLeft()) {
        return place;
    }
    double left = place.left();
    if (look.side != Qt::AlignLeft) {
        const double free = place.width() - width;
        left += look.side == Qt::AlignRight ? free : free / 2;
    }
    const double from = left + metrics.horizontalAdvance(text.first(first));
    const double to = left + metrics.horizontalAdvance(text.first(first + count));
    const double high = std::min(place.height(), metrics.height());
    return {from, place.center().y() - high / 2, to - from, high};
}
