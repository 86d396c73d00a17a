#include "ui/accounts/chart_look.h"

#include <QPainter>
#include <QPalette>

ChartLook::ChartLook(const QPalette &palette)
    : ground(palette.color(QPalette::Base))
    , text(palette.color(QPalette::Text))
    , line(text)
    , band(palette.color(QPalette::Highlight))
{
    const bool dark = ground.lightness() < 128;
    received = QColor(dark ? 0x5aa2f0 : 0x1f66b8);
    sent = QColor(dark ? 0xf0935a : 0xd9601a);
    line.setAlphaF(0.18F);
    band.setAlphaF(0.22F);
}

void PaintSolid(QPainter &painter, const QRectF &bar, const QColor &colour)
{
    painter.fillRect(bar, colour);
}

void PaintHatched(QPainter &painter, const QRectF &bar, const QColor &colour)
{
    QColor light = colour;
    light.setAlphaF(0.35F);
    painter.fillRect(bar, light);
    painter.fillRect(bar, QBrush(colour, Qt::BDiagPattern));
    painter.setPen(colour);
    painter.drawRect(bar.adjusted(0.5, 0.0, -0.5, -0.5));
}
