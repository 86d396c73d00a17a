#include "reports/paper.h"

#include <QRawFont>
#include <QStringList>
#include <QTextLayout>

#include <map>

using namespace Qt::StringLiterals;

namespace paper {

namespace {

struct Usual
{
    int pixels;
    bool strong;
};

constexpr Usual kUsual[] = {
    {190, true}, {95, false}, {80, true}, {70, false}, {85, false}, {85, true}, {70, false}};

QFont Make(int size, bool strong)
{
    QFont font(QStringList {u"DejaVu Sans"_s, u"Sans Serif"_s});
    font.setPixelSize(size);
    font.setBold(strong);
    // Pages look the same at every zoom and on every device.
    font.setHintingPreference(QFont::PreferNoHinting);
    // Any spacing keeps letters from being joined into one glyph, which a search would not find.
    font.setLetterSpacing(QFont::AbsoluteSpacing, 0.02);
    return font;
}

struct Face
{
    QFont font;
    QFontMetricsF metrics;
};

const Face &FaceOf(Style style, int pixels)
{
    // One set for each thread: painting on a worker and on the screen share nothing.
    thread_local std::map<std::pair<Style, int>, Face> faces;
    const auto known = faces.find({style, pixels});
    if (known != faces.end()) {
        return known->second;
    }
    const Usual &usual = kUsual[static_cast<size_t>(style)];
    const QFont font = Make(pixels > 0 ? pixels : usual.pixels, usual.strong);
    return faces.emplace(std::pair(style, pixels), Face {font, QFontMetricsF(font)}).first->second;
}

} // namespace

const QFont &Font(Style style, int pixels)
{
    return FaceOf(style, pixels).font;
}

const QFontMetricsF &Metrics(Style style, int pixels)
{
    return FaceOf(style, pixels).metrics;
}

int SmallerPixels(Style style, int pixels, double share)
{
    const int from = pixels > 0 ? pixels : kUsual[static_cast<size_t>(style)].pixels;
    return std::max(1, static_cast<int>(from * share));
}

QString Elided(const QString &text, Style style, double width, int pixels)
{
    const QFontMetricsF &metrics = Metrics(style, pixels);
    if (static_cast<double>(text.size()) * metrics.height() < width) {
        return text; // no letter is wider than a line is high
    }
    return metrics.elidedText(text, Qt::ElideRight, width);
}

QStringList Wrapped(const QString &text, Style style, double width, int most, int pixels)
{
    QTextLayout shaped(text, Font(style, pixels)); // the whole text is measured once
    shaped.setTextOption([] {
        QTextOption option;
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        return option;
    }());
    QStringList lines;
    qsizetype start = 0;
    shaped.beginLayout();
    while (start < text.size() && lines.size() + 1 < most) {
        QTextLine line = shaped.createLine();
        line.setLineWidth(width);
        lines += text.mid(start, line.textLength());
        start += line.textLength();
    }
    shaped.endLayout();
    if (start < text.size() || lines.isEmpty()) {
        lines += Elided(text.mid(start), style, width, pixels);
    }
    return lines;
}

bool HasNoFonts()
{
    // Families are listed even where there are none; boxes stand in for letters then, and only a real
    // font has a head.
    return QRawFont::fromFont(Font(Style::Text)).fontTable("head").isEmpty();
}

} // namespace paper
