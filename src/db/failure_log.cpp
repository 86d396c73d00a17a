#include "db/failure_log.h"

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(logDb, "tollbrook.db", QtWarningMsg)
Q_LOGGING_CATEGORY(logStatement, "tollbrook.db.statement", QtWarningMsg)

FailureLog &FailureLog::Instance()
{
    static FailureLog log;
    return log;
}

void FailureLog::Add(const StatementFailure &failure)
{
    QStringList line {failure.sqlState, failure.text};
    if (!failure.statement.isEmpty()) {
        line << u"in"_s << failure.statement;
    }
    line.removeAll(QString());
    qCWarning(logDb).noquote() << line.join(u' ');
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
