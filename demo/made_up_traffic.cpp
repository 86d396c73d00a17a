#include "demo/made_up_traffic.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kUsualMegabytes = 2;
constexpr double kSpread = 3; // e-fold: from a text page to a film

// A few download all day, so that somebody's limit is used up while one watches.
bool IsBusy(UserId user)
{
    return user.value % 40 == 7;
}

} // namespace

std::vector<UserId> MadeUpTraffic::Choose(std::vector<UserId> users, size_t count)
{
    std::shuffle(users.begin(), users.end(), random);
    std::partition(users.begin(), users.end(), IsBusy);
    users.resize(std::min(users.size(), count));
    return users;
}

Activity MadeUpTraffic::Next()
{
    const double received = kUsualMegabytes * std::exp(kSpread * (random.generateDouble() - 0.5));
    const double sent = received * (0.02 + 0.2 * random.generateDouble());
    const double minutes = 1 + 2 * random.generateDouble();
    return {Megabytes {received}, Megabytes {sent}, Hours {minutes / 60}};
}
