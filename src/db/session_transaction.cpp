// The session's transactions.
#include "db/failure_log.h"
#include "db/session_state.h"

#include <utility>

using namespace session;

namespace {

bool Run(const char *sqlText, Step step)
{
    const bool done = Execute(sqlText, step);
    CloseCursor();
    return done;
}

} // namespace

bool BeginTransaction()
{
    State &state = Current();
    RollbackTransaction(); // what somebody forgot would be committed by one of the engines
    if (!IsDatabaseOpen() && !IsCancelled() && !IsAbandoned()) {
        ReopenDatabase(); // whatever the pause: somebody waits for what the transaction is going to do
    }
    bool begun = Run(state.dialect->begin, Step::Begin);
    // Nothing has been done yet that could be done twice.
    if (!begun && IsDatabaseOpen() && state.failure && state.failure->EndsConnection()) {
        begun = Run(state.dialect->begin, Step::Begin);
    }
    state.transaction = begun ? Transaction::Open : Transaction::None;
    state.rollsBack = begun;
    return begun;
}

bool CommitTransaction()
{
    State &state = Current();
    if (state.transaction == Transaction::None) {
        return false;
    }
    const bool committed = Run("COMMIT", Step::Commit);
    if (committed) {
        state.transaction = Transaction::None;
        state.rollsBack = false;
    }
    return committed;
}

void RollbackTransaction()
{
    State &state = Current();
    state.transaction = Transaction::None;
    state.brokenBy.reset();
    if (!std::exchange(state.rollsBack, false) || !IsDatabaseOpen() || IsAbandoned()) {
        return;
    }
    qCDebug(logStatement) << "ROLLBACK";
    if (!RunOwn("ROLLBACK")) {
        Lose(); // what is open ends with its connection
    }
}

bool IsInTransaction()
{
    return Current().transaction != Transaction::None;
}
