// How many owners go into one transaction: few where it keeps everybody else from writing.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>

class BatchSize
{
    using Clock = std::chrono::steady_clock;

public:
    // Between two batches where one shuts out all other writers: who waits for the lock looks for it at
    // most this far apart, and would find it taken again.
    static constexpr std::chrono::milliseconds kTurnOfOthers {26};

    explicit BatchSize(bool shutsOutWriters)
        : isShort(shutsOutWriters)
        , bounds(shutsOutWriters ? kShort : kLong)
    { }

    [[nodiscard]] bool ShutsOutWriters() const { return isShort; }
    [[nodiscard]] size_t Now() const { return size; }

    // Takes the time of one batch; the next one is to last a quarter to half of what it may. Each turn
    // of others costs the time to come back, so that few long batches are better than many short ones.
    class Measure
    {
    public:
        explicit Measure(BatchSize &measured) : batches(measured), begin(Clock::now()) { }
        ~Measure() { batches.Took(Clock::now() - begin); }
        Measure(const Measure &) = delete;
        Measure &operator=(const Measure &) = delete;

    private:
        BatchSize &batches;
        Clock::time_point begin;
    };

private:
    struct Bounds
    {
        std::chrono::milliseconds time; // half of what a batch may last
        size_t least;
        size_t most;
    };

    static constexpr Bounds kShort {std::chrono::milliseconds(25), 25, 1000};
    static constexpr Bounds kLong {std::chrono::milliseconds(50), 500, 2000};

    void Took(Clock::duration time)
    {
        if (time > bounds.time) {
            size = std::max(size / 2, bounds.least);
        } else if (time < bounds.time / 2) {
            size = std::min(2 * size, bounds.most);
        }
    }

    const bool isShort;
    const Bounds bounds;
    size_t size = bounds.most / 4;
};
