// The measures, fonts and colours of a printed report. Lengths are tenths of a point (1/720 inch).
#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QRectF>

namespace paper {

constexpr double kShortSide = 5953; // A4
constexpr double kLongSide = 8419;
constexpr double kMargin = 420;
constexpr double kFirstHeading = 760; // title, period, filter, date; above the first page's table
constexpr double kOtherHeading = 260;
constexpr double kColumnHeading = 290;
constexpr double kLine = 150; // a row's height
constexpr double kHeadingLine = 130; // of what stands below the title
constexpr double kFooter = 240;
constexpr double kCellPadding = 40;

// Told apart in grey and by readers who confuse colours: dark and light of far-off hues.
inline const QColor kInk(0x1a, 0x1a, 0x1a);
inline const QColor kFaint(0x66, 0x66, 0x66);
inline const QColor kRule(0xc9, 0xce, 0xd4);
inline const QColor kBand(0xe9, 0xed, 0xf2);
inline const QColor kTint(0xf6, 0xf8, 0xfa); // behind every other row
inline const QColor kAccent(0x1d, 0x4e, 0x89);
inline const QColor kSeries[] = {QColor(0x1d, 0x4e, 0x89), QColor(0xf4, 0xa2, 0x4c)};

enum class Style { Title, Period, Heading, Unit, Text, Strong, Small };

// The style's own size, or another in whole lengths; 0 is its own.
[[nodiscard]] const QFont &Font(Style style, int pixels = 0);
[[nodiscard]] const QFontMetricsF &Metrics(Style style, int pixels = 0);

// The size at which a text takes at most `share` of the room that it takes at `pixels`; 0 is the style's
// own there.
[[nodiscard]] int SmallerPixels(Style style, int pixels, double share);

// A text cut with an ellipsis so that it is no wider than `width`.
[[nodiscard]] QString Elided(const QString &text, Style style, double width, int pixels = 0);

// The text in lines no wider than `width`, at most `most`; the last one is then cut.
[[nodiscard]] QStringList
Wrapped(const QString &text, Style style, double width, int most, int pixels = 0);

// The font database has no font at all: a page would show boxes only.
[[nodiscard]] bool HasNoFonts();

} // namespace paper
