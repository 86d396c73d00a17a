// What the traffic chart looks like on the palette in use.
#pragma once

#include <QColor>

class QPainter;
class QPalette;
class QRectF;

// Blue and orange stay apart for every kind of colour vision, and in grey by their pattern.
struct ChartLook
{
    explicit ChartLook(const QPalette &palette);

    QColor ground;
    QColor text;
    QColor line; // faint
    QColor band; // behind the chosen day
    QColor received;
    QColor sent;
};

// A solid bar for what was received, a hatched one with an edge for what was sent.
void PaintSolid(QPainter &painter, const QRectF &bar, const QColor &colour);
void PaintHatched(QPainter &painter, const QRectF &bar, const QColor &colour);
