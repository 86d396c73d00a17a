// The one database session and the one function through which every statement runs.
//
// A statement is a fixed text whose parameters are marked "(?)". The caller binds its values, the
// first marker first, runs it, and reads the row that stands in `queryResult` before the next one
// overwrites it. Everything happens on the user-interface thread.
#pragma once

#include "base/day.h"
#include "db/ids.h"
#include "db/quantities.h"

#include <QString>

#include <type_traits>

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

extern DbSession dbSession;
extern QueryResult queryResult;

// Opens the session on the ODBC data source `dsn` (UTF-8, at most 254 bytes) as user "system" with
// the data source's own password, if it names one. Returns 1, or 0 when it cannot be opened; the
// reason is then in the failure log.
int ConnectDatabase(const char *dsn);

// Closes the session and frees its handles; nothing happens when it is not open.
void DisconnectDatabase();

[[nodiscard]] bool IsDatabaseOpen();

// Binds parameter `number`, counted from 1, for the next statement only. The value is copied.
void BindValue(int number, quint32 value);
void BindValue(int number, double amount); // amounts of money, megabytes and hours
void BindValue(int number, const QString &text); // cut at 254 bytes of UTF-8
void BindValue(int number, Day day); // an impossible day becomes the next that exists

template <typename Tag>
void BindValue(int number, Id<Tag> id)
{
    BindValue(number, id.value);
}

template <typename Tag, typename Number>
void BindValue(int number, Quantity<Tag, Number> quantity)
{
    BindValue(number, quantity.value);
}

// Codes as those of db/value_codes.h.
template <typename Enum>
void BindValue(int number,
               Enum code) requires(std::is_same_v<std::underlying_type_t<Enum>, quint32>)
{
    BindValue(number, static_cast<quint32>(code));
}

// Runs one statement with the values just bound. A statement without result columns returns 100
// whatever happened; its failure is in the failure log (db/failure_log.h). All and One return the
// last fetch's code: 100 for no row.
int RunQuery(const char *sqlText, FetchMode mode);

// Binds `values` in order and runs the statement.
template <typename... Values>
int RunQuery(const char *sqlText,
             FetchMode mode,
             const Values &...values) requires(sizeof...(Values) > 0)
{
    int number = 0;
    (BindValue(++number, values), ...);
    return RunQuery(sqlText, mode);
}

// The rows that the last statement changed; 0 when it failed or the driver does not tell.
[[nodiscard]] qint64 AffectedRows();

// Runs a statement that changes rows.
template <typename... Values>
void Execute(const char *sqlText, const Values &...values)
{
    RunQuery(sqlText, FetchMode::All, values...);
}

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
