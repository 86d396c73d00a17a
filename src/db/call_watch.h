// What other threads see of the session's calls into the driver: how long one has been without an
// answer, that its work is cancelled, and that it was given up.
#pragma once

#include <atomic>
#include <chrono>
#include <memory>
#include <mutex>
#include <optional>

// Belongs to one session, whose thread says so where a function is its own; all else may be called
// from any thread.
class CallWatch : public std::enable_shared_from_this<CallWatch>
{
public:
    using Clock = std::chrono::steady_clock;

    // Around each call, by the session. `newHandle` is the statement handle through which the call
    // can be cancelled, null while a connection is being opened or closed.
    void Begin(void *newHandle);
    void End();

    // Before a call whose work is kept once it is done, by the session. False when the session was
    // given up before: then nobody would hear of it, and it must not be made.
    [[nodiscard]] bool BeginKeeping();

    // How long the present call has been without an answer; nothing while none runs.
    [[nodiscard]] std::optional<Clock::duration> Unanswered() const;

    // Whether the present call opens or closes a connection.
    [[nodiscard]] bool IsConnecting() const { return handle == nullptr; }

    // A new piece of work is about to begin, which nobody has cancelled.
    void Renew();

    // The work came to its end: a cancel of it that is still under way has nothing left to stop.
    void Finish() { ++work; }

    // The cancel, if there was one, has done what it was for: what the work still does is not stopped.
    void Accept();

    // Ends the work: the driver is asked to stop the present call, and no further one begins. The
    // driver's own function may hang as long as its server does; hence it runs on a thread of its own,
    // which asks again while the call goes on: it may just have begun.
    void Cancel();
    [[nodiscard]] bool IsCancelled() const { return cancelled; }

    // The session's thread and handles are left to themselves: no further call begins on them. True
    // when nothing of the present piece of work is kept, whatever becomes of its call.
    bool Abandon() { return stage.exchange(Stage::Abandoned) == Stage::NothingKept; }
    [[nodiscard]] bool IsAbandoned() const { return stage == Stage::Abandoned; }

    // Held where no cancel may work on the handles, as while they are freed. Nothing when a cancel that
    // hangs has it.
    [[nodiscard]] std::unique_lock<std::timed_mutex> Handles();

    // Whether the handles are as if no cancel had ever been: none works on them, and none has since the
    // last call.
    [[nodiscard]] bool AreHandlesFresh();

    // The same however long it takes.
    [[nodiscard]] std::unique_lock<std::timed_mutex> HandlesAtLast()
    {
        return std::unique_lock(handles);
    }

private:
    enum class Stage {
        NothingKept, // by the present piece of work
        MayBeKept,
        Abandoned,
    };

    bool AskToStop(unsigned number);

    std::atomic<Clock::rep> began = 0; // 0 while no call runs
    std::atomic<void *> handle = nullptr;
    std::atomic<unsigned> work = 0; // a number that only the present piece has
    std::atomic<bool> cancelled = false;
    std::atomic<bool> asked = false; // the driver, to stop a call
    std::atomic<Stage> stage = Stage::NothingKept;
    std::timed_mutex handles;
};
