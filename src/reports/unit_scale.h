// Larger units for numbers that have outgrown their own: 1024 MB are 1 GB.
#pragma once

#include <QString>

#include <optional>

// How a column's or a chart's numbers are shown: divided, in another unit than the layout's.
struct UnitScale
{
    double divisor = 1;
    QString unit; // in words; may be empty
    int steps = 0; // how often it was made larger

    // The next one: megabytes go on with gigabytes, terabytes and so on by 1024, everything else by
    // thousands, millions and so on. Nothing behind the last.
    [[nodiscard]] std::optional<UnitScale> Larger(const QString &ownUnit) const;
};
