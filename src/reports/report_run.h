// What a running report, export or print shares with the one who waits for it.
#pragma once

#include <QString>

#include <atomic>
#include <functional>
#include <mutex>

struct ReportProblem
{
    enum class Kind { None, Cancelled, Arguments, Database, Layout, Output };

    Kind kind = Kind::None;
    QString text;
};

class RunControl
{
public:
    // From any thread, any number of times.
    void Cancel();
    [[nodiscard]] bool IsCancelled() const { return cancelled; }

    // Rows read or pages written so far; of how many, 0 while nobody knows.
    void SetProgress(qint64 now, qint64 of = 0);
    [[nodiscard]] qint64 Done() const { return done; }
    [[nodiscard]] qint64 Whole() const { return whole; }

    // While it lives, Cancel() also calls `stop`: what else must be told to end a wait.
    class Stopper
    {
    public:
        Stopper(RunControl &ofControl, std::function<void()> stop);
        ~Stopper();
        Stopper(const Stopper &) = delete;
        Stopper &operator=(const Stopper &) = delete;

    private:
        RunControl &control;
    };

private:
    std::mutex guard; // of `onCancel`
    std::function<void()> onCancel;
    std::atomic<bool> cancelled = false;
    std::atomic<qint64> done = 0;
    std::atomic<qint64> whole = 0;
};
