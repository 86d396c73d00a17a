#include "reports/svg_canvas.h"

#include <QFont>

using namespace Qt::StringLiterals;

namespace {

QString Length(double value)
{
    return QString::number(value, 'f', 1);
}

} // namespace

void SvgCanvas::Draw(const QRectF &place, const QString &line, const TextLook &look)
{
    const QFont &font = paper::Font(look.style, look.pixels);
    const QFontMetricsF &metrics = paper::Metrics(look.style, look.pixels);
    const double base = place.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    double x = place.left();
    QString anchor = u"start"_s;
    if (look.side == Qt::AlignRight) {
        x = place.right();
        anchor = u"end"_s;
    } else if (look.side == Qt::AlignHCenter) {
        x = place.center().x();
        anchor = u"middle"_s;
    }
    elements += u"<text x=\""_s + Length(x) + u"\" y=\"" + Length(base) + u"\" font-size=\""
        + QString::number(font.pixelSize()) + u"\" text-anchor=\"" + anchor + u"\" fill=\""
        + look.colour.name() + (font.bold() ? u"\" font-weight=\"bold\">"_s : u"\">"_s)
        + line.toHtmlEscaped() + u"</text>\n";
}

void SvgCanvas::Fill(const QRectF &place, const QColor &colour)
{
    elements += u"<rect x=\""_s + Length(place.left()) + u"\" y=\"" + Length(place.top())
        + u"\" width=\"" + Length(place.width()) + u"\" height=\"" + Length(place.height())
        + u"\" fill=\"" + colour.name() + u"\"/>\n";
}

void SvgCanvas::FillPath(const QPainterPath &path, const QColor &colour)
{
    QString steps;
    for (int place = 0; place < path.elementCount(); ++place) {
        const QPainterPath::Element at = path.elementAt(place);
        steps += (at.isMoveTo() ? u'M' : u'L') + Length(at.x) + u' ' + Length(at.y);
    }
    elements += u"<path d=\""_s + steps + u"Z\" fill=\"" + colour.name() + u"\"/>\n";
}

void SvgCanvas::Line(QPointF from, QPointF to, double thickness, const QColor &colour)
{
    elements += u"<path d=\"M"_s + Length(from.x()) + u' ' + Length(from.y()) + u'L'
        + Length(to.x()) + u' ' + Length(to.y()) + u"\" stroke=\"" + colour.name()
        + u"\" stroke-width=\"" + Length(thickness) + u"\"/>\n";
}

QString SvgCanvas::Element(QSizeF size, const QString &label) const
{
    return u"<svg role=\"img\" aria-label=\""_s + label.toHtmlEscaped() + u"\" viewBox=\"0 0 "
        + Length(size.width()) + u' ' + Length(size.height()) + u"\">\n" + elements + u"</svg>\n";
}
