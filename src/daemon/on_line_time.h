// How long users are on line, by what they send.
#pragma once

#include "db/ids.h"
#include "gateway/reading.h"

#include <QHash>

#include <chrono>
#include <optional>
#include <vector>

// Somebody who sends is on line from the look at which that is first seen, and stays so over pauses of
// at most the grace; the time after the last packet does not count.
class OnLineTime
{
public:
    using Clock = std::chrono::steady_clock;

    struct Spent
    {
        UserId userId;
        double seconds = 0;
    };

    explicit OnLineTime(std::chrono::seconds pauses) : grace(pauses) { }

    void SetGrace(std::chrono::seconds pauses) { grace = pauses; }

    // At `moment` it was seen that this user has sent since the look before. Moments never go back.
    void Note(UserId userId, Clock::time_point moment);

    // The sent counters as they stand at `moment`, by address, and whose they are: who has sent since they
    // were last told is on line.
    void Look(const std::vector<SentReading> &sent,
              const QHash<NetAddress, UserId> &owners,
              Clock::time_point moment);

    // All counters begin at nothing.
    void BeginAnew() { lastSent.clear(); }

    // Not yet taken, seconds.
    [[nodiscard]] double Pending(UserId userId) const;

    // Who is on line at `moment`.
    [[nodiscard]] std::vector<UserId> OnLineAt(Clock::time_point moment) const;

    // What was spent since the last time, of everybody who spent any. Whoever is no longer on line at
    // `moment` is forgotten.
    [[nodiscard]] std::vector<Spent> Take(Clock::time_point moment);

    // What could not be written is spent still.
    void PutBack(const std::vector<Spent> &spent);

private:
    struct Stay
    {
        std::optional<Clock::time_point> lastSeen; // nothing: not on line
        double pending = 0; // seconds
    };

    [[nodiscard]] bool IsOnLine(const Stay &stay, Clock::time_point moment) const
    {
        return stay.lastSeen && moment - *stay.lastSeen <= grace;
    }

    std::chrono::seconds grace;
    QHash<UserId, Stay> stays;
    QHash<NetAddress, quint64> lastSent;
};
