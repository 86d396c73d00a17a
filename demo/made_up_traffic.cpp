#include "demo/made_up_traffic.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kUsualMegabytes = 2;
constexpr double kSpread = 3; // e-fold: from a text page to a film

} // namespace

std::vector<quint32> MadeUpTraffic::Choose(std::vector<quint32> users, size_t count)
{
    std::shuffle(users.begin(), users.end(), random);
    users.resize(std::min(users.size(), count));
    return users;
}

Activity MadeUpTraffic::Next()
{
    const double received = kUsualMegabytes * std::exp(kSpread * (random.generateDouble() - 0.5));
    const double sent = received * (0.02 + 0.2 * random.generateDouble());
    const double minutes = 1 + 2 * random.generateDouble();
    return {received, sent, minutes / 60};
}
