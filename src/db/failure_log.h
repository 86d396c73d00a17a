// Statements that failed. Callers go on as if nothing had happened; here is what did.
#pragma once

#include "db/failure.h"

#include <QDateTime>
#include <QList>
#include <QLoggingCategory>
#include <QMutex>
#include <QObject>

// Failed statements and connections as warnings; with debug on, also every statement as it is
// written in the code, before it goes to the driver. Never a parameter's value.
Q_DECLARE_LOGGING_CATEGORY(logDb) // tollbrook.db
Q_DECLARE_LOGGING_CATEGORY(logStatement) // tollbrook.db.statement

struct StatementFailure : Failure
{
    QDateTime time;
};

// May be used from any thread; its signal comes from the one that failed.
class FailureLog : public QObject
{
    Q_OBJECT

public:
    static constexpr qsizetype kKept = 200;

    // The log of all sessions.
    static FailureLog &Instance();

    // All failures since the program started.
    [[nodiscard]] qsizetype Count() const;

    // The last 200, oldest first.
    [[nodiscard]] QList<StatementFailure> Recent() const;

    // A connection that fails as the last failure did counts once with it.
    void Add(const Failure &failure);
    void Clear();

signals:
    void Changed();

private:
    mutable QMutex mutex; // guards what follows
    QList<StatementFailure> recent;
    qsizetype count = 0;
};
