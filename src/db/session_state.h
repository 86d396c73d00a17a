// What the sources of the session share and nobody else sees but the log of the tests.
#pragma once

#include "db/call_watch.h"
#include "db/dialect.h"
#include "db/odbc.h"
#include "db/session.h"

#include <QByteArray>

#include <chrono>
#include <memory>
#include <optional>
#include <string>

namespace session {

using Clock = std::chrono::steady_clock;

enum class Transaction {
    None,
    Open,
    Broken, // by a failure: nothing but its rollback may follow, although some engines would go on
};

// Of a session that nobody has tried to open.
[[nodiscard]] Failure NeverOpened();

// What the thread's session is besides its handles.
struct State
{
    const Dialect *dialect = &kSqlite;
    int schemaVersion = 0; // of the database, as it was when the session was opened
    quint64 connection = 0; // its number in the process, of all that were opened
    QByteArray dsn; // to open the session again; empty for none
    QString account; // at the server
    void *canceller = nullptr; // the handle to cancel with, where not the statement's own
    std::shared_ptr<CallWatch> watch; // null: nobody looks on
    std::string written; // the statement as it is written in the code
    std::string
        translated; // in the engine's spelling; both are kept: a statement allocates nothing
    std::optional<Failure> failure;
    SQLULEN rowLimit = 0;
    SQLULEN fetchedRows = 0;
    bool isReading = false; // the last query was not read to its end
    SQLLEN affectedRows = 0;
    Transaction transaction = Transaction::None;
    bool rollsBack = false; // a transaction is open on the connection
    std::optional<Failure> brokenBy; // of a broken transaction
    Failure whyClosed = NeverOpened(); // while the session is not open
    Clock::time_point nextTry; // to open a lost session
    std::chrono::milliseconds pause; // before the try after that
};

[[nodiscard]] State &Current();

// Runs one call of the driver under the watch of other threads, who may cancel it through `handle`,
// or never when that is null.
template <typename Call>
SQLRETURN Watched(SQLHSTMT handle, const Call &call)
{
    const auto &watch = Current().watch;
    if (!watch) {
        return call();
    }
    watch->Begin(handle);
    const SQLRETURN code = call();
    watch->End();
    return code;
}

// The same for a call on the session's statement handle.
template <typename Call>
SQLRETURN WatchedStatement(const Call &call)
{
    void *const canceller = Current().canceller;
    return Watched(canceller != nullptr ? canceller : dbSession.statement, call);
}

[[nodiscard]] bool IsCancelled();
[[nodiscard]] bool IsAbandoned();

// Keeps and logs why something failed.
void Fail(Failure failure);

// A failure that no driver told.
[[nodiscard]] Failure Told(Failure::Kind kind, std::string_view statement, const QString &text);

// The failure of the last call on the handle.
[[nodiscard]] Failure
Diagnosed(SQLSMALLINT handleType, SQLHANDLE handle, std::string_view statement);

// Runs a text of the session's own, in the engine's spelling, which nobody cancels.
[[nodiscard]] bool RunOwn(const char *text);

// The connection is gone, and with it all that was not committed: tries once to open a new one.
void Lose();

// What becomes of a session when a statement fails.
enum class Step { Statement, Begin, Commit };

// Sends a statement with the values just bound. False when it failed.
[[nodiscard]] bool Execute(const char *sqlText, Step step);

void CloseCursor();

} // namespace session
