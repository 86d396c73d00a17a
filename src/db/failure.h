// Why a statement did not do what it was sent for, and the one way in which everything that may fail
// tells it: a Result holds either the value or the failure.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <tl/expected.hpp>

struct Failure
{
    enum class Kind {
        Refused, // by the engine, for what the statement says or its account may do
        NotUnique, // by the engine: another row has what only one may have
        Locked, // another program held the rows or the database for too long
        Conflict, // the transaction lost against another one; it may be run again as a whole
        ConnectionLost, // nothing was kept of what had not been committed
        NotWritable, // the server takes no changes at present: it did not do what it was sent
        NewerSchema, // the database's tables are of a newer version than the program, not whole, or not there
        NotAnswered, // the call was given up, its connection with it
        Cancelled, // by a person
        OutcomeUnknown, // the connection was lost on the way of a write: it may stand or not
        Output, // a file of this machine could not be written, or not be read again
    };

    Kind kind = Kind::Refused;
    // As it is written in the code; empty for a failed connection.
    QString statement;
    QString sqlState;
    int native = 0; // the engine's own number
    QString text; // the driver's own words

    // Whether the session's connection ended with it, of which nothing is kept but what was committed.
    [[nodiscard]] bool EndsConnection() const
    {
        return kind == Kind::ConnectionLost || kind == Kind::NotWritable;
    }

    // What happened in a sentence for a person, the driver's words last.
    [[nodiscard]] QString InWords() const;

    bool operator==(const Failure &) const = default;
};

// That of a file, which no statement had a part in; `text` says it to a person.
[[nodiscard]] Failure OutputFailure(const QString &text);

// What happened in sentences for a person, each once.
[[nodiscard]] QStringList ReasonsOf(const QList<Failure> &failures);

template <typename Value>
using Result = tl::expected<Value, Failure>;
