#include "db/query.h"

#include "db/dialect.h"
#include "db/session.h"
#include "db/session_limits.h"

#include <chrono>
#include <utility>

namespace query {

namespace {

std::optional<Failure> ReadOnce(const char *sqlText,
                                quint32 most,
                                FunctionRef<void()> bind,
                                FunctionRef<Then(const Row &)> take)
{
    bind();
    if (most != 0) {
        LimitRows(most);
    }
    RowCursor rows(sqlText);
    const Row row(queryResult);
    while (rows.Next() && take(row) == Then::GoOn) { }
    return LastFailure();
}

using Clock = std::chrono::steady_clock;

// Whether the query waits for a lock where the driver does not: it may find out only row by row.
bool WaitsForLock(const Failure &failure, Clock::time_point end)
{
    return failure.kind == Failure::Kind::Locked && SessionDialect().triesLocksAgain
        && Clock::now() < end;
}

bool MayAskOnceMore(const Failure &failure)
{
    return (failure.EndsConnection() || failure.kind == Failure::Kind::Conflict)
        && IsDatabaseOpen();
}

} // namespace

bool FoldsEveryLetter()
{
    return SessionDialect().foldsEveryLetter;
}

std::optional<Failure> Read(const char *sqlText,
                            quint32 most,
                            FunctionRef<void()> bind,
                            FunctionRef<void()> restart,
                            FunctionRef<Then(const Row &)> take)
{
    const bool isAlone = !IsInTransaction();
    const auto end = Clock::now() + Limits().lock;
    restart();
    auto failure = ReadOnce(sqlText, most, bind, take);
    bool mayAskOnceMore = isAlone;
    while (failure && isAlone
           && (WaitsForLock(*failure, end)
               || (std::exchange(mayAskOnceMore, false) && MayAskOnceMore(*failure)))) {
        restart();
        failure = ReadOnce(sqlText, most, bind, take);
    }
    return failure;
}

} // namespace query

Result<bool> IsSessionOpen()
{
    if (IsDatabaseOpen()) {
        return true;
    }
    return tl::unexpected(LastFailure().value_or(Failure {
        .kind = Failure::Kind::ConnectionLost, .statement = {}, .sqlState = {}, .text = {}}));
}

Result<int> OpenedSchemaVersion()
{
    return IsSessionOpen().map([](bool) { return SessionSchemaVersion(); });
}
