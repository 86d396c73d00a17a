#include "db/failure_log.h"

Q_LOGGING_CATEGORY(logDb, "tollbrook.db", QtWarningMsg)
Q_LOGGING_CATEGORY(logStatement, "tollbrook.db.statement", QtWarningMsg)

FailureLog &FailureLog::Instance()
{
    static FailureLog log;
    return log;
}

void FailureLog::Add(const StatementFailure &failure)
{
    qCWarning(logDb).noquote() << failure.sqlState << failure.text << "in" << failure.statement;
    recent.append(failure);
    if (recent.size() > kKept) {
        recent.removeFirst();
    }
    ++count;
    emit Changed();
}

void FailureLog::Clear()
{
    recent.clear();
    count = 0;
    emit Changed();
}
