#include "support/core/statement_recorder.h"

#include <QLoggingCategory>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QStringList recorded;
QtMessageHandler previousHandler = nullptr;

void Record(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.category, "tollbrook.db.statement") == 0) {
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
    return std::exchange(recorded, {});
}
