// Statements that failed. Callers go on as if nothing had happened; here is what did.
#pragma once

#include <QDateTime>
#include <QList>
#include <QLoggingCategory>
#include <QObject>

#include <atomic>

// Failed statements and connections as warnings; with debug on, also every statement as it is
// written in the code, before it goes to the driver. Never a parameter's value.
Q_DECLARE_LOGGING_CATEGORY(logDb) // tollbrook.db
Q_DECLARE_LOGGING_CATEGORY(logStatement) // tollbrook.db.statement

struct StatementFailure
{
    QDateTime time;
    // As it is written in the code; as the engine was given it when fetching its rows failed; empty for
    // a failed connection.
    QString statement;
    QString sqlState;
    QString text; // the driver's own words
};

class FailureLog : public QObject
{
    Q_OBJECT

public:
    static constexpr qsizetype kKept = 200;

    // The log of the one session.
    static FailureLog &Instance();

    // All failures since the program started.
    [[nodiscard]] qsizetype Count() const { return count; }

    // The last 200, oldest first.
    [[nodiscard]] const QList<StatementFailure> &Recent() const { return recent; }

    void Add(const StatementFailure &failure);
    void Clear();

signals:
    void Changed();

private:
    QList<StatementFailure> recent;
    std::atomic<qsizetype> count = 0; // read by the window while work beside it fails
};
