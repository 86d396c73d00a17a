// The database session and the one function through which every statement runs; for db/ alone, see
// query.h for those above.
//
// A statement is a fixed text whose parameters are marked "(?)". The caller binds its values, the
// first marker first (parameters.h), runs it, and reads the row that stands in `queryResult` before
// the next one overwrites it.
//
// A session belongs to the thread that opened it, with all that is named here: an abandoned call
// (call_watch.h) keeps its thread, and so its handles and its row, to itself.
#pragma once

#include "db/failure.h"
#include "db/parameters.h"

#include <chrono>
#include <memory>
#include <optional>

class CallWatch;
struct Dialect;

// What RunQuery and a fetch return, with ODBC's values.
constexpr int kQuerySuccess = 0;
constexpr int kQuerySuccessWithInfo = 1;
constexpr int kQueryNoData = 100;

enum class FetchMode {
    All = 0, // fetch to the end: the last row stays in the buffer
    One = 1, // fetch one row
    Open = 2, // leave the cursor open for the caller's own loop, see RowCursor
};

// The session's handles. Only the session itself works with them.
struct DbSession
{
    void *environment = nullptr;
    void *connection = nullptr;
    void *statement = nullptr;
    qint16 lastFetchStatus = 0; // of the callers' own fetch loops
};

// The current row: up to 15 columns of up to 254 bytes of text each, whatever the column's type. A
// NULL reads as an empty text. Columns are counted from 1.
struct QueryResult
{
    static constexpr int kColumns = 15;
    static constexpr int kColumnBytes = 255;

    char columns[kColumns][kColumnBytes];
    long indicators[kColumns];

    [[nodiscard]] const char *Bytes(int column) const { return columns[column - 1]; }
    [[nodiscard]] QString Text(int column) const;
    [[nodiscard]] quint32 Integer(int column) const;
    [[nodiscard]] double Amount(int column) const;
    [[nodiscard]] bool Flag(int column) const; // false only when the text is "0"
    [[nodiscard]] bool IsEmpty(int column) const { return Bytes(column)[0] == '\0'; }

    template <typename IdType>
    [[nodiscard]] IdType Id(int column) const
    {
        return IdType {Integer(column)};
    }

    // One of db/value_codes.h, or a number that is none of them.
    template <typename Enum>
    [[nodiscard]] Enum Code(int column) const
    {
        return static_cast<Enum>(Integer(column));
    }

    void Clear();
};

extern constinit thread_local DbSession dbSession;
extern constinit thread_local QueryResult queryResult;

// Opens the session on the ODBC data source `dsn` (UTF-8, at most 254 bytes) as the user that it names, else "system", with
// the data source's own password, if it names one. Returns 1, or 0 when it cannot be opened, when its
// engine is not supported, nothing can be written there, or its schema is newer than the program or its
// version cannot be read; the reason is then LastFailure(). A
// session that could not be opened, or was lost, opens itself again when a statement needs it, after
// pauses that grow.
int ConnectDatabase(const char *dsn);

// Aims the session at a data source without opening it: that waits for a statement that needs it after
// `pause` at the earliest.
void AimDatabase(const char *dsn, std::chrono::milliseconds pause);

// Closes the session and frees its handles; nothing happens when it is not open.
void DisconnectDatabase();

[[nodiscard]] bool IsDatabaseOpen();

// Tries to open a lost session now, whatever the pause. True when it is open.
bool ReopenDatabase();

// The version of the schema that the session found when it was last opened.
[[nodiscard]] int SessionSchemaVersion();

// The number of the session's connection, each of which has its own in the process. It stays when the
// connection is lost, until there is a new one.
[[nodiscard]] quint64 SessionConnection();

// How the session's engine spells things.
[[nodiscard]] const Dialect &SessionDialect();

// What other threads may see and stop of this thread's session from now on.
void WatchCalls(std::shared_ptr<CallWatch> watch);

// Before a new piece of work: a cancel that the piece before it was sent does not reach it.
void BeginWork();

// Behind a piece of work: a query that it did not read to its end keeps no other program from writing.
void EndWork();

// What cancelled work still has to do is done in spite of the cancel.
void AcceptCancel();

// Whether the session was given up: nobody hears any more of what its thread does.
[[nodiscard]] bool IsSessionGivenUp();

// Runs one statement with the values just bound. A statement without result columns returns 100
// whatever happened; LastFailure() tells. All and One return the last fetch's code: 100 for no row.
int RunQuery(const char *sqlText, FetchMode mode);

// Binds `values` in order and runs the statement.
template <typename... Values>
int RunQuery(const char *sqlText,
             FetchMode mode,
             const Values &...values) requires(sizeof...(Values) > 0)
{
    BindValues(values...);
    return RunQuery(sqlText, mode);
}

// Why the last statement, or a fetch of its rows, failed; nothing when it did not.
[[nodiscard]] const std::optional<Failure> &LastFailure();

// The rows that the last statement changed; 0 when it failed or the driver does not tell.
[[nodiscard]] qint64 AffectedRows();

// Runs a statement that changes rows.
template <typename... Values>
void Execute(const char *sqlText, const Values &...values)
{
    RunQuery(sqlText, FetchMode::All, values...);
}

// From BeginTransaction on nothing is kept before CommitTransaction. Each is false when it failed. After
// a failed statement, or a connection lost inside, every further one fails for the same reason until
// RollbackTransaction, although some engines would go on and keep what is left.
[[nodiscard]] bool BeginTransaction();
[[nodiscard]] bool CommitTransaction();
void RollbackTransaction(); // also of cancelled work
[[nodiscard]] bool IsInTransaction();

// The most rows that the next statement may return; 0 for no bound. A list that stops at its
// capacity says so, since one of the drivers otherwise fetches all there are.
void LimitRows(quint32 rows);

// The rows of one statement, one after the other; the cursor is closed with the object. No other
// statement may run while it lives: read what is needed first, then act on it.
class RowCursor
{
public:
    template <typename... Values>
    explicit RowCursor(const char *sqlText, const Values &...values)
        : open(RunQuery(sqlText, FetchMode::Open, values...) != kQueryNoData)
    { }
    ~RowCursor();
    RowCursor(const RowCursor &) = delete;
    RowCursor &operator=(const RowCursor &) = delete;

    // True when the next row stands in `queryResult`.
    [[nodiscard]] bool Next();

private:
    bool open; // false when the statement failed
};
