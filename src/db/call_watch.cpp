#include "db/call_watch.h"

#include <sql.h>
#include <sqlext.h>

#include <thread>

namespace {

constexpr std::chrono::milliseconds kPatienceWithCancel {200};
constexpr std::chrono::milliseconds kAskAgain {100};

} // namespace

void CallWatch::Begin(void *newHandle)
{
    handle = newHandle;
    began = Clock::now().time_since_epoch().count();
}

void CallWatch::End()
{
    began = 0;
}

bool CallWatch::BeginKeeping()
{
    Stage expected = Stage::NothingKept;
    return stage.compare_exchange_strong(expected, Stage::MayBeKept)
        || expected == Stage::MayBeKept;
}

std::optional<CallWatch::Clock::duration> CallWatch::Unanswered() const
{
    const Clock::rep start = began;
    if (start == 0) {
        return std::nullopt;
    }
    return Clock::now().time_since_epoch() - Clock::duration(start);
}

void CallWatch::Renew()
{
    ++work;
    cancelled = false;
    Stage expected = Stage::MayBeKept;
    stage.compare_exchange_strong(expected, Stage::NothingKept);
}

void CallWatch::Cancel()
{
    cancelled = true;
    std::thread([watch = shared_from_this(), number = work.load()] {
        while (watch->AskToStop(number)) {
            std::this_thread::sleep_for(kAskAgain);
        }
    }).detach();
}

void CallWatch::Accept()
{
    if (const auto noCancel = Handles()) {
        ++work;
        cancelled = false;
    }
}

// The number is compared where no later work can begin: a cancel that comes late reaches none of it.
bool CallWatch::AskToStop(unsigned number)
{
    const std::unique_lock lock(handles);
    if (work != number || IsAbandoned()) {
        return false;
    }
    void *const statement = handle;
    if (began != 0 && statement != nullptr) {
        asked = true;
        SQLCancel(statement);
    }
    return true;
}

bool CallWatch::AreHandlesFresh()
{
    const auto noCancel = Handles();
    return noCancel && !asked.exchange(false);
}

std::unique_lock<std::timed_mutex> CallWatch::Handles()
{
    return {handles, kPatienceWithCancel};
}
