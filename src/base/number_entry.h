// Numbers as people type them into a field.
#pragma once

#include <QLocale>
#include <QString>

#include <limits>
#include <tl/expected.hpp>

// What a field takes: from `least` to `most`, with at most so many digits after the decimal mark.
struct NumberBounds
{
    double least = 0.0;
    double most = std::numeric_limits<qint32>::max();
    int decimals = 0;

    bool operator==(const NumberBounds &) const = default;
};

enum class NumberFault {
    Blank, // nothing but blanks
    Unreadable, // where no decimals are taken, any are
    Ambiguous, // its one mark separates thousands or decimals
    TooPrecise, // it has more decimals than the few that are taken
    OutOfRange,
};

// Reads what was typed. The decimal mark is a point or what `locale` writes for it. The locale's group
// separator (a blank for any kind of blank, an apostrophe for either kind) is understood where it
// stands between whole groups of three digits and cannot be the decimal mark: "1.234" in German is
// Ambiguous; "1.234,5", "1.234.567" and "0.123" mean one number only. A decimal mark at the end says
// nothing: "5." is 5 everywhere, and "5," where a comma is the decimal mark; a group separator at the end
// is Unreadable. A sign or an exponent is Unreadable. Blanks around the number do not count.
[[nodiscard]] tl::expected<double, NumberFault>
NumberFrom(const QString &typed, const NumberBounds &bounds, const QLocale &locale = QLocale());
