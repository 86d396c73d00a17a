#include "db/failure_log.h"

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(logDb, "tollbrook.db", QtWarningMsg)
Q_LOGGING_CATEGORY(logStatement, "tollbrook.db.statement", QtWarningMsg)

FailureLog &FailureLog::Instance()
{
    static FailureLog log;
    return log;
}

qsizetype FailureLog::Count() const
{
    const QMutexLocker lock(&mutex);
    return count;
}

QList<StatementFailure> FailureLog::Recent() const
{
    const QMutexLocker lock(&mutex);
    return recent;
}

void FailureLog::Add(const Failure &failure)
{
    QStringList line {failure.sqlState, failure.text};
    if (!failure.statement.isEmpty()) {
        line << u"in"_s << failure.statement;
    }
    line.removeAll(QString());
    qCWarning(logDb).noquote() << line.join(u' ');
    {
        const QMutexLocker lock(&mutex);
        // A connection that still cannot be opened would soon fill the log.
        const bool isConnection = failure.statement.isEmpty();
        if (isConnection && !recent.isEmpty() && failure == recent.constLast()) {
            return;
        }
        recent.append({failure, QDateTime::currentDateTime()});
        if (recent.size() > kKept) {
            recent.removeFirst();
        }
        ++count;
    }
    emit Changed();
}

void FailureLog::Clear()
{
    {
        const QMutexLocker lock(&mutex);
        recent.clear();
        count = 0;
    }
    emit Changed();
}
