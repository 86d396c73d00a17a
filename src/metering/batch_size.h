// How many owners go into one transaction, so that none holds the database for long.
#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>

class BatchSize
{
    using Clock = std::chrono::steady_clock;

public:
    [[nodiscard]] size_t Now() const { return size; }

    // Takes the time of one batch, and has the next one last about half of what it may.
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
    void Took(Clock::duration time)
    {
        constexpr size_t kLeast = 100;
        constexpr size_t kMost = 2000;
        constexpr auto kMostTime = std::chrono::milliseconds(25);
        constexpr auto kShortTime = std::chrono::milliseconds(10);
        if (time > kMostTime) {
            size = std::max(size / 2, kLeast);
        } else if (time < kShortTime) {
            size = std::min(2 * size, kMost);
        }
    }

    size_t size = 250;
};
