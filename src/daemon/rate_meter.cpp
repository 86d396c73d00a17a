#include "daemon/rate_meter.h"

#include <algorithm>

namespace {

QList<UserRate> RatesBetween(const RateMeter::Totals &before,
                             const RateMeter::Totals &now,
                             std::chrono::duration<double> time)
{
    QList<UserRate> rates;
    if (time.count() <= 0) {
        return rates;
    }
    const auto rate = [&time](quint64 from, quint64 to) {
        return to <= from ? 0
                          : static_cast<qulonglong>(static_cast<double>(to - from) / time.count());
    };
    for (const auto &[userId, total] : now.asKeyValueRange()) {
        const auto [received, sent] = before.value(userId);
        const UserRate each {userId.value, rate(received, total.first), rate(sent, total.second)};
        if (before.contains(userId) && (each.received > 0 || each.sent > 0)) {
            rates << each;
        }
    }
    std::ranges::sort(rates, {}, &UserRate::userId);
    return rates;
}

} // namespace

void RateMeter::Take(Totals totals, Clock::time_point at)
{
    rates = RatesBetween(known, totals, at - last);
    known = std::move(totals);
    last = at;
}

void RateMeter::TakeRest(Clock::time_point at)
{
    rates.clear();
    last = at;
}
