// What is drawn becomes SVG elements, whose numbers are lengths of paper.h.
#pragma once

#include "reports/canvas.h"

class SvgCanvas : public Canvas
{
public:
    void Draw(const QRectF &place, const QString &line, const TextLook &look) override;
    void Fill(const QRectF &place, const QColor &colour) override;
    void FillPath(const QPainterPath &path, const QColor &colour) override;
    void Line(QPointF from, QPointF to, double thickness, const QColor &colour) override;
    void Picture(const QRectF &, const QImage &) override { } // charts have none
    void Say(const QRectF &, const QString &, const TextLook &) override {
    } // a page's texts are read

    // The whole picture, as an element of a web page; `label` names it for those who listen.
    [[nodiscard]] QString Element(QSizeF size, const QString &label) const;

private:
    QString elements;
};
