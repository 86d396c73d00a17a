#include "reports/paper.h"

#include <QRawFont>
#include <QStringList>
#include <QTextLayout>

#include <array>

using namespace Qt::StringLiterals;

namespace paper {

namespace {

constexpr int kStyles = 7;

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

} // namespace

const QFont &Font(Style style)
{
    // One set for each thread: painting on a worker and on the screen share nothing.
    thread_local const std::array<QFont, kStyles> kFonts {Make(190, true),
                                                          Make(95, false),
                                                          Make(80, true),
                                                          Make(70, false),
                                                          Make(85, false),
                                                          Make(85, true),
                                                          Make(70, false)};
    return kFonts[static_cast<size_t>(style)];
}

const QFontMetricsF &Metrics(Style style)
{
    using enum Style;
    thread_local const std::array<QFontMetricsF, kStyles> kMetrics {QFontMetricsF(Font(Title)),
                                                                    QFontMetricsF(Font(Period)),
                                                                    QFontMetricsF(Font(Heading)),
                                                                    QFontMetricsF(Font(Unit)),
                                                                    QFontMetricsF(Font(Text)),
                                                                    QFontMetricsF(Font(Strong)),
                                                                    QFontMetricsF(Font(Small))};
    return kMetrics[static_cast<size_t>(style)];
}

QString Elided(const QString &text, Style style, double width)
{
    const QFontMetricsF &metrics = Metrics(style);
    if (static_cast<double>(text.size()) * metrics.height() < width) {
        return text; // no letter is wider than a line is high
    }
    return metrics.elidedText(text, Qt::ElideRight, width);
}

QStringList Wrapped(const QString &text, Style style, double width, int most)
{
    QTextLayout shaped(text, Font(style)); // the whole text is measured once
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
        lines += Elided(text.mid(start), style, width);
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
