#include "ui/common/wrong_mark.h"

#include <QPainter>
#include <QWidget>

namespace {

constexpr qreal kWidth = 2.0;
constexpr qreal kRadius = 2.0;
constexpr int kMiddleLightness = 128;

QColor WrongColor(const QPalette &palette)
{
    const bool isDark = palette.color(QPalette::Base).lightness() < kMiddleLightness;
    return isDark ? QColor(0xff, 0x8a, 0x80) : QColor(0xc6, 0x28, 0x28);
}

} // namespace

void PaintWrongMark(QWidget &field)
{
    QPainter painter(&field);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(WrongColor(field.palette()), kWidth));
    const qreal inside = kWidth / 2;
    painter.drawRoundedRect(
        QRectF(field.rect()).adjusted(inside, inside, -inside, -inside), kRadius, kRadius);
}
