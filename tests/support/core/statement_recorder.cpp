#include "support/core/statement_recorder.h"

#include <QLoggingCategory>
#include <QMutex>
#include <QRegularExpression>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QMutex mutex; // the windows' session has a thread of its own
QStringList recorded;
QtMessageHandler previousHandler = nullptr;

void Record(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.category, "tollbrook.db.statement") == 0) {
        const QMutexLocker lock(&mutex);
        recorded << text;
    } else if (previousHandler != nullptr) {
        previousHandler(type, context, text);
    }
}

} // namespace

StatementRecorder::StatementRecorder()
{
    recorded.clear();
    QLoggingCategory::setFilterRules(u"tollbrook.db.statement.debug=true"_s);
    previousHandler = qInstallMessageHandler(Record);
}

StatementRecorder::~StatementRecorder()
{
    qInstallMessageHandler(previousHandler);
    QLoggingCategory::setFilterRules({});
}

QStringList StatementRecorder::Take()
{
    const QMutexLocker lock(&mutex);
    return std::exchange(recorded, {});
}

QStringList StatementRecorder::TakeChanging()
{
    static const QRegularExpression changing(u"^(INSERT|UPDATE|DELETE)\\b"_s,
                                             QRegularExpression::CaseInsensitiveOption);
    return Take().filter(changing);
}
