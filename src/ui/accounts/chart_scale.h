// The arithmetic of the traffic chart: where its lines stand.
#pragma once

// One scale for both directions: amounts received stand above the zero line, amounts sent below.
struct ChartScale
{
    double step = 1.0; // megabytes from one line to the next: 1, 2 or 5 times a power of ten
    int linesUp = 1; // above the zero line; at least 1
    int linesDown = 1; // below it; at least 1

    [[nodiscard]] double Top() const { return step * linesUp; }
    [[nodiscard]] double Bottom() const { return step * linesDown; }
    // From 0 at the top line to 1 at the bottom line, for an amount that is positive above zero.
    [[nodiscard]] double Position(double amount) const
    {
        return (Top() - amount) / (Top() + Bottom());
    }
};

// A scale that holds both amounts with about five lines.
[[nodiscard]] ChartScale ScaleFor(double mostReceived, double mostSent);
