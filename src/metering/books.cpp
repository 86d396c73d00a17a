#include "metering/books.h"

#include "db/session_limits.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace {

using Clock = std::chrono::steady_clock;

constexpr auto kFirstPause = std::chrono::milliseconds(5); // before a lost transaction runs again
constexpr auto kLongestPause = std::chrono::milliseconds(200);

Result<bool> RunOnce(FunctionRef<void(Books &)> body)
{
    if (auto begun = transaction::Begin(); !begun) {
        return begun;
    }
    Books books;
    body(books);
    if (const auto &failure = books.WhyStopped()) {
        transaction::Rollback();
        return tl::unexpected(*failure);
    }
    auto committed = transaction::Commit();
    if (!committed) {
        transaction::Rollback();
    }
    return committed;
}

bool IsConflict(const Result<bool> &result)
{
    return !result && result.error().kind == Failure::Kind::Conflict;
}

} // namespace

Result<bool> books::InTransaction(FunctionRef<void(Books &)> body)
{
    const auto end = Clock::now() + Limits().conflict;
    auto pause = kFirstPause;
    Result<bool> result = RunOnce(body);
    while (IsConflict(result) && Clock::now() + pause < end) {
        std::this_thread::sleep_for(pause);
        pause = std::min(2 * pause, kLongestPause);
        result = RunOnce(body);
    }
    return result;
}
