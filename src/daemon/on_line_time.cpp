#include "daemon/on_line_time.h"

#include <utility>

void OnLineTime::Note(UserId userId, Clock::time_point moment)
{
    Stay &stay = stays[userId];
    if (IsOnLine(stay, moment)) {
        stay.pending += std::chrono::duration<double>(moment - *stay.lastSeen).count();
    }
    stay.lastSeen = moment;
}

void OnLineTime::Look(const std::vector<SentReading> &sent,
                      const QHash<NetAddress, UserId> &owners,
                      Clock::time_point moment)
{
    QHash<NetAddress, quint64> now;
    now.reserve(static_cast<qsizetype>(sent.size()));
    for (const SentReading &each : sent) {
        now.insert(each.address, each.sent);
        const UserId owner = owners.value(each.address);
        if (owner.IsSet() && each.sent > lastSent.value(each.address)) {
            Note(owner, moment);
        }
    }
    lastSent = std::move(now);
}

double OnLineTime::Pending(UserId userId) const
{
    return stays.value(userId).pending;
}

std::vector<UserId> OnLineTime::OnLineAt(Clock::time_point moment) const
{
    std::vector<UserId> users;
    for (const auto &[userId, stay] : stays.asKeyValueRange()) {
        if (IsOnLine(stay, moment)) {
            users.push_back(userId);
        }
    }
    return users;
}

std::vector<OnLineTime::Spent> OnLineTime::Take(Clock::time_point moment)
{
    std::vector<Spent> spent;
    stays.removeIf([&](auto entry) {
        Stay &stay = entry.value();
        if (stay.pending > 0) {
            spent.push_back({entry.key(), std::exchange(stay.pending, 0)});
        }
        return !IsOnLine(stay, moment);
    });
    return spent;
}

void OnLineTime::PutBack(const std::vector<Spent> &spent)
{
    for (const Spent &each : spent) {
        stays[each.userId].pending += each.seconds;
    }
}
