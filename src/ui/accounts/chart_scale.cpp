#include "ui/accounts/chart_scale.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLines = 5.0;

// The least of 1, 2, 5, 10, 20, ... and of 0.5, 0.2, ... that is not below `least`.
double RoundStep(double least)
{
    const double power = std::pow(10.0, std::floor(std::log10(least)));
    for (const double factor : {1.0, 2.0, 5.0}) {
        if (factor * power >= least) {
            return factor * power;
        }
    }
    return 10.0 * power;
}

int LinesTo(double amount, double step)
{
    // A hair less, so that an amount on a line does not ask for another one.
    return std::max(1, static_cast<int>(std::ceil(amount / step - 1e-9)));
}

} // namespace

ChartScale ScaleFor(double mostReceived, double mostSent)
{
    const double range = mostReceived + mostSent;
    ChartScale scale;
    scale.step = range > 0.0 ? RoundStep(range / kLines) : 1.0;
    scale.linesUp = LinesTo(mostReceived, scale.step);
    scale.linesDown = LinesTo(mostSent, scale.step);
    return scale;
}
