// What the engines spell differently. Statements are written once; a dialect reads them as tokens and
// writes the engine's spelling.
#pragma once

#include "db/failure.h"

#include <array>
#include <span>
#include <string>
#include <string_view>

// A driver's code of a failure that is more than a refusal.
struct FailureCode
{
    const char *sqlState; // empty for any
    int native; // 0 for any
    Failure::Kind kind;
};

// A word of the statements that each engine writes another way.
struct Spelling
{
    std::string_view word; // in lower case
    std::string_view written; // empty where the engine needs nothing in its place
};

// How the engine's driver takes many rows quickly.
enum class BulkInsert {
    ManyRows, // a statement with many rows
    ParameterArrays, // a statement with one row, whose parameters are arrays of values
    ValueArrays, // a statement whose values are arrays of the engine's own
};

struct Dialect
{
    const char *engine; // as the driver names its server, in part
    char identifierQuote; // around names that the engine reserves
    qint16 amountType; // SQL type that amounts are bound with: some lose digits as REAL
    const char *begin; // begins a transaction that is going to write
    const char *lockRows; // behind a SELECT of rows that the transaction is going to write
    // Makes a new connection wait for locks as long as it should, %1 milliseconds or %2 seconds, and
    // each query of a transaction see what others have committed by then: what is read behind a lock
    // must not be older than the lock. Null where that is so anyway.
    const char *settings;
    // True where a wait for a lock cannot be cancelled: the driver then waits shortly, and the session
    // tries again itself.
    bool triesLocksAgain;
    // True where a cancel stops all that the connection does, and spoils the statement that it is asked
    // of: another one must stand in.
    bool cancelsConnection;
    // A query that is prepared where one was not read to its end: until then the driver holds the lock of
    // that one, or in a database with a log what it has seen of it. Null where closing the cursor is
    // enough.
    const char *endsReading;
    // A query with one value: 0 where nothing can be written, 2 at a node of a cluster, else 1. Null: 1.
    const char *writable;
    // Makes a connection to a node of a cluster read what was committed at any other one by then.
    const char *clusterSettings;
    // The data source's key for its servers, parted by commas, whose first one that accepts the
    // connection is taken whether it can be written to or not. Null where the driver chooses better.
    const char *serversKey;
    // True where an UPDATE joins the rows that it takes its values from ahead of SET, and not by FROM.
    bool joinsBeforeSet;
    // True where the database is a file, and one that nobody keeps where none is named.
    bool isFile;
    // True where a transaction that writes keeps everybody else from writing until it ends.
    bool hasOneWriter;
    // True where what the connection itself writes changes its DATA_MARK, by one for each transaction.
    bool marksOwnWrites;
    // True where LETTER_CASE looks at no letter's case; else at none but that of a to z.
    bool foldsEveryLetter;
    BulkInsert bulkInsert;
    // Begins a transaction that reads one state of the data, whatever others write meanwhile.
    const char *beginSnapshot;
    std::span<const FailureCode> failures; // the first that fits counts
    // Codes of statements that the account may not send, which are refusals; of nobody, where there are
    // no accounts.
    std::span<const FailureCode> lackedRights;
    // Of these words:
    //   CASE_FOLDED (x PLAIN_CASE) HOLDS CASE_FOLDED ((?) PLAIN_CASE) PLAIN_CASE
    //                   x is like the pattern, in any letter case of a to z, and where the engine's
    //                   names are sorted without regard to the case of other letters, of those;
    //   LETTER_CASE     instead of the PLAIN_CASE inside, for a pattern with letters beyond a to z;
    //   OCTETS_OF (x) EXCEEDING_LETTERS_OF (x)
    //                   false only for a text in which no such pattern can be;
    //   SCANNED         behind a table: its rows are read as they lie, by no index;
    //   BY_KEY          behind a table: its rows are found by their key, by no other index;
    //   ADDRESS_NUMBER  the IPv4 address in users.ip_addr as a number; NULL for what is none;
    //   PRESENT_TABLES  behind FROM: a row for each table of the database, with its `table_name`;
    //   DATA_MARK       behind FROM: one row, whose `number` changes with what others write, at once when
    //                   `rests` is 1 (data_mark.h);
    //   STAGED (?) AS_ROWS s
    //                   the rows that the program hands in (staged_rows.h), with the columns k, n1 to n4,
    //                   t, u and v. An UPDATE takes values from them as
    //                   UPDATE table SET assignments FROM STAGED (?) AS_ROWS s WHERE condition,
    //                   of whose assignments none has a marker.
    std::span<const Spelling> spellings;
};

extern const Dialect kSqlite;
extern const Dialect kPostgresql;
extern const Dialect kMariadb;

// The dialect for the server name that a driver reports; null for an engine that is not supported.
[[nodiscard]] const Dialect *DialectFor(std::string_view serverName);

// A name of a table or a column as the engine takes it, reserved or not.
[[nodiscard]] QString Quoted(const Dialect &dialect, const QString &name);

// What a failure of this code is.
[[nodiscard]] Failure::Kind KindOf(const Dialect &dialect, std::string_view sqlState, int native);

// Whether it is that the account may not do what the statement does.
[[nodiscard]] bool LacksRight(const Dialect &dialect, std::string_view sqlState, int native);
