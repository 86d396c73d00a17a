#include "db/session.h"

#include "base/text.h"
#include "db/account.h"
#include "db/bound_parameters.h"
#include "db/failure_log.h"
#include "db/session_limits.h"
#include "db/session_state.h"
#include "db/translation.h"

#include <algorithm>
#include <cstring>
#include <thread>
#include <utility>

using namespace Qt::StringLiterals;
using namespace session;
using Kind = Failure::Kind;

namespace {

static_assert(kQueryNoData == SQL_NO_DATA && kQuerySuccess == SQL_SUCCESS
              && kQuerySuccessWithInfo == SQL_SUCCESS_WITH_INFO);

constexpr auto kBetweenTries = std::chrono::milliseconds(10); // of a database that another holds

// A failed statement spoils the transaction that it belongs to.
void BreakTransaction()
{
    State &state = Current();
    if (state.transaction == Transaction::Open) {
        state.transaction = Transaction::Broken;
        state.brokenBy = state.failure;
    }
}

// Whether the driver may be called, by work that was neither cancelled nor given up; else that is the
// failure.
bool IsWanted(std::string_view sqlText)
{
    if (IsAbandoned() || IsCancelled()) {
        Fail(Told(IsAbandoned() ? Kind::NotAnswered : Kind::Cancelled, sqlText, {}));
        return false;
    }
    return true;
}

// Whether a statement can be sent; else why not is the failure.
bool IsReady(const char *sqlText, bool isKept)
{
    State &state = Current();
    if (state.transaction == Transaction::Broken) {
        state.failure = state.brokenBy;
    } else if (!IsWanted(sqlText)) {
        return false;
    } else if (!IsDatabaseOpen()
               && (state.dsn.isEmpty() || Clock::now() < state.nextTry || !ReopenDatabase())) {
        Fail(Told(state.whyClosed.kind, sqlText, state.whyClosed.text));
    } else if (isKept && state.watch && !state.watch->BeginKeeping()) {
        Fail(Told(Kind::NotAnswered, sqlText, {}));
    } else {
        return true;
    }
    return false;
}

void SetRowLimit(SQLULEN rows)
{
    SQLSetStmtAttr(dbSession.statement, SQL_ATTR_MAX_ROWS, odbc::Value(rows), SQL_IS_UINTEGER);
}

bool IsRead(std::string_view sqlText)
{
    constexpr std::string_view kSelect = "SELECT";
    return sqlText.size() >= kSelect.size()
        && qstrnicmp(sqlText.data(), kSelect.data(), kSelect.size()) == 0;
}

// Sends the translated statement; where the driver does not wait for a lock, until it got it.
SQLRETURN Send(bool mayTryAgain, Failure &failure)
{
    const State &state = Current();
    const auto end = Clock::now() + Limits().lock;
    while (true) {
        const SQLRETURN code = WatchedStatement([&state] {
            return SQLExecDirect(
                dbSession.statement, odbc::Text(state.translated.c_str()), SQL_NTS);
        });
        if (odbc::Succeeded(code) || code == SQL_NO_DATA) {
            return code;
        }
        failure = Diagnosed(SQL_HANDLE_STMT, dbSession.statement, state.written);
        if (failure.kind != Kind::Locked || !state.dialect->triesLocksAgain || !mayTryAgain
            || IsCancelled() || Clock::now() >= end) {
            return code;
        }
        std::this_thread::sleep_for(kBetweenTries);
    }
}

// Keeps why a statement failed, and makes a lost session ready for the next one. `isKept`: what it did
// was kept at once, if it was done.
void TakeFailure(Failure failure, bool isKept)
{
    State &state = Current();
    const bool lost = failure.EndsConnection();
    if (failure.kind == Kind::ConnectionLost && isKept) {
        failure.kind = Kind::OutcomeUnknown;
    } else if (!lost && failure.kind != Kind::OutcomeUnknown && IsCancelled()) {
        failure.kind = Kind::Cancelled;
    } else if (failure.kind == Kind::Cancelled) {
        failure.kind = Kind::Refused; // by a limit of the server's own
    }
    Fail(failure);
    BreakTransaction();
    if (lost) {
        Lose();
        state.failure = std::move(failure);
    }
}

// Sends the statement and drops its bindings: a driver refuses one with fewer markers than are bound.
bool SendBound(bool mayTryAgain, Failure &failure)
{
    static thread_local ParameterChanges changes;
    State &state = Current();
    Translate(*state.dialect, state.written, bound_parameters::Kinds(), state.translated, changes);
    bound_parameters::Change(changes);
    bound_parameters::HandOver(dbSession.statement, *state.dialect);
    if (state.rowLimit != 0) {
        SetRowLimit(state.rowLimit);
    }
    const SQLRETURN code = Send(mayTryAgain, failure);
    const bool done = odbc::Succeeded(code) || code == SQL_NO_DATA;
    state.isReading = false; // with the query before
    SQLFreeStmt(dbSession.statement, SQL_RESET_PARAMS);
    return done;
}

// Of the statement that was just done. A cancel that comes too late for it takes its outcome away.
bool CountRows(bool isKept, Failure &failure)
{
    State &state = Current();
    if (odbc::Succeeded(SQLRowCount(dbSession.statement, &state.affectedRows))) {
        return true;
    }
    failure = Diagnosed(SQL_HANDLE_STMT, dbSession.statement, state.written);
    failure.kind = isKept ? Kind::OutcomeUnknown : failure.kind;
    return false;
}

// The same of its columns, of which a write has none.
SQLSMALLINT CountColumns(const char *sqlText)
{
    SQLSMALLINT count = 0;
    if (!odbc::Succeeded(SQLNumResultCols(dbSession.statement, &count)) && IsRead(sqlText)) {
        TakeFailure(Diagnosed(SQL_HANDLE_STMT, dbSession.statement, sqlText), false);
    }
    return count;
}

void BindColumns(SQLSMALLINT count)
{
    for (SQLSMALLINT column = 0; column < count; ++column) {
        SQLBindCol(dbSession.statement,
                   static_cast<SQLUSMALLINT>(column + 1),
                   SQL_C_CHAR,
                   queryResult.columns[column],
                   QueryResult::kColumnBytes,
                   &queryResult.indicators[column]);
    }
}

SQLRETURN Fetch()
{
    State &state = Current();
    // One of the drivers goes on to the last row whatever SQL_ATTR_MAX_ROWS says.
    if (!IsDatabaseOpen() || (state.rowLimit != 0 && state.fetchedRows++ == state.rowLimit)) {
        return SQL_NO_DATA;
    }
    SQLRETURN code = SQL_ERROR;
    if (IsWanted(state.written)) {
        code = WatchedStatement([] { return SQLFetch(dbSession.statement); });
        if (!odbc::Succeeded(code) && code != SQL_NO_DATA) {
            TakeFailure(Diagnosed(SQL_HANDLE_STMT, dbSession.statement, state.written), false);
        } else if (code == SQL_NO_DATA) {
            (void)IsWanted(state.written); // what was cancelled may end as if all were read
        }
        state.isReading = odbc::Succeeded(code);
    }
    if (state.failure) {
        BreakTransaction();
    }
    // Another writes no NUL behind a text that it cut.
    for (auto &column : queryResult.columns) {
        column[QueryResult::kColumnBytes - 1] = '\0';
    }
    return code;
}

} // namespace

State &session::Current()
{
    static thread_local State state;
    return state;
}

bool session::IsCancelled()
{
    const auto &watch = Current().watch;
    return watch && watch->IsCancelled();
}

bool session::IsAbandoned()
{
    const auto &watch = Current().watch;
    return watch && watch->IsAbandoned();
}

void session::Fail(Failure failure)
{
    if (failure.kind != Kind::Cancelled) { // nothing went wrong
        FailureLog::Instance().Add(failure);
    }
    Current().failure = std::move(failure);
}

Failure session::Told(Kind kind, std::string_view statement, const QString &text)
{
    return {.kind = kind,
            .statement = TextFromUtf8(statement),
            .sqlState = {},
            .native = 0,
            .text = text};
}

Failure session::Diagnosed(SQLSMALLINT handleType, SQLHANDLE handle, std::string_view statement)
{
    const State &state = Current();
    const odbc::Diagnostic failed = odbc::FirstDiagnostic(handleType, handle);
    return {.kind = KindOf(*state.dialect, failed.sqlState.toStdString(), failed.native),
            .statement = TextFromUtf8(statement),
            .sqlState = failed.sqlState,
            .native = failed.native,
            .text = WithLackedRight(
                *state.dialect, failed, state.account, QString::fromUtf8(state.dsn))};
}

bool session::RunOwn(const char *text)
{
    const SQLRETURN code = Watched(
        nullptr, [text] { return SQLExecDirect(dbSession.statement, odbc::Text(text), SQL_NTS); });
    if (odbc::Succeeded(code) || code == SQL_NO_DATA) {
        return true;
    }
    Fail(Diagnosed(SQL_HANDLE_STMT, dbSession.statement, text));
    return false;
}

bool session::Execute(const char *sqlText, Step step)
{
    qCDebug(logStatement).noquote() << sqlText;
    State &state = Current();
    const bool isAlone = state.transaction == Transaction::None;
    const bool isKept =
        step == Step::Commit || (step == Step::Statement && isAlone && !IsRead(sqlText));
    state.affectedRows = 0;
    state.failure.reset();
    if (!IsReady(sqlText, isKept)) {
        BreakTransaction();
        bound_parameters::Forget();
        return false;
    }
    state.failure.reset(); // of a first try to open the session again
    state.written = sqlText;
    Failure failure;
    const bool done = SendBound(isAlone || step != Step::Statement, failure)
        && (step != Step::Statement || CountRows(isKept, failure));
    bound_parameters::Forget();
    if (!done) {
        TakeFailure(std::move(failure), isKept);
    }
    return done;
}

void session::CloseCursor()
{
    if (IsDatabaseOpen()) {
        SQLCloseCursor(dbSession.statement);
        SQLFreeStmt(dbSession.statement, SQL_UNBIND);
    }
    if (Current().rowLimit != 0) {
        LimitRows(0);
        if (IsDatabaseOpen()) {
            SetRowLimit(0);
        }
    }
}

QString QueryResult::Text(int column) const
{
    return TextFromUtf8(Bytes(column));
}

quint32 QueryResult::Integer(int column) const
{
    return static_cast<quint32>(IntegerFrom(std::string_view(Bytes(column))));
}

double QueryResult::Amount(int column) const
{
    return AmountFrom(std::string_view(Bytes(column)));
}

bool QueryResult::Flag(int column) const
{
    return std::strcmp(Bytes(column), "0") != 0;
}

void QueryResult::Clear()
{
    for (int column = 0; column < kColumns; ++column) {
        columns[column][0] = '\0';
        indicators[column] = 0;
    }
}

int RunQuery(const char *sqlText, FetchMode mode)
{
    queryResult.Clear();
    const SQLSMALLINT count = Execute(sqlText, Step::Statement) ? CountColumns(sqlText) : 0;
    if (count == 0) {
        CloseCursor();
        return kQueryNoData;
    }
    BindColumns(std::min<SQLSMALLINT>(count, QueryResult::kColumns));
    if (mode == FetchMode::Open) {
        return kQuerySuccess;
    }
    SQLRETURN result = SQL_NO_DATA;
    if (mode == FetchMode::All) {
        do {
            result = Fetch();
        } while (odbc::Succeeded(result));
    } else if (mode == FetchMode::One) {
        result = Fetch();
    }
    CloseCursor();
    return result;
}

const std::optional<Failure> &LastFailure()
{
    return Current().failure;
}

qint64 AffectedRows()
{
    return std::max<qint64>(Current().affectedRows, 0);
}

void LimitRows(quint32 rows)
{
    State &state = Current();
    state.rowLimit = rows;
    state.fetchedRows = 0;
}

RowCursor::~RowCursor()
{
    CloseCursor();
}

bool RowCursor::Next()
{
    queryResult.Clear();
    dbSession.lastFetchStatus = open ? Fetch() : static_cast<qint16>(kQueryNoData);
    open = odbc::Succeeded(dbSession.lastFetchStatus);
    return open;
}
