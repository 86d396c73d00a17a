// How fast each user receives and sends.
#pragma once

#include "daemon/service_bus.h"

#include <QHash>

#include <chrono>
#include <utility>

class RateMeter
{
public:
    using Clock = std::chrono::steady_clock;
    using Totals = QHash<UserId, std::pair<quint64, quint64>>; // received and sent bytes

    void Take(Totals totals, Clock::time_point at);

    // The totals are as they were.
    void TakeRest(Clock::time_point at);

    // Over the time between the last two readings, of everybody who had any traffic.
    [[nodiscard]] const QList<UserRate> &Rates() const { return rates; }
    [[nodiscard]] Clock::time_point LastReading() const { return last; }

private:
    QList<UserRate> rates;
    Totals known;
    Clock::time_point last {};
};
