#include "support/core/statement_hook.h"

#include "db/direct_connection.h"
#include "support/core/statement_recorder.h"

#include <QLoggingCategory>
#include <QRegularExpression>

#include <gtest/gtest.h>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

StatementHook::Hook current;
QtMessageHandler previousHandler = nullptr;

void Hear(QtMsgType type, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.category, "tollbrook.db.statement") == 0) {
        current(text);
    } else if (previousHandler != nullptr) {
        previousHandler(type, context, text);
    }
}

// The table that a query reads first, away under another name until this object goes.
class MissingTable
{
public:
    MissingTable(const QString &dsn, const QString &query)
    {
        static const QRegularExpression from(u"\\bfrom (\\w+)"_s,
                                             QRegularExpression::CaseInsensitiveOption);
        table = from.match(query).captured(1).toLower();
        EXPECT_TRUE(connection.Open(dsn)) << qPrintable(connection.Error());
        Rename(table, table + u"_away"_s);
    }
    ~MissingTable() { Rename(table + u"_away"_s, table); }
    MissingTable(const MissingTable &) = delete;
    MissingTable &operator=(const MissingTable &) = delete;

private:
    void Rename(const QString &name, const QString &newName)
    {
        const QString quote(QLatin1Char(connection.Engine().identifierQuote));
        EXPECT_TRUE(connection.Run(u"ALTER TABLE "_s + quote + name + quote + u" RENAME TO "_s
                                   + quote + newName + quote))
            << qPrintable(connection.Error());
    }

    QString table;
    DirectConnection connection;
};

} // namespace

StatementHook::StatementHook(Hook hook)
{
    current = std::move(hook);
    QLoggingCategory::setFilterRules(u"tollbrook.db.statement.debug=true"_s);
    previousHandler = qInstallMessageHandler(Hear);
}

StatementHook::~StatementHook()
{
    qInstallMessageHandler(previousHandler);
    QLoggingCategory::setFilterRules({});
}

QStringList UntoldFailures(const QString &dsn, const std::function<bool()> &read)
{
    QStringList statements;
    {
        StatementRecorder recorder;
        if (!read()) {
            return recorder.Take();
        }
        statements = recorder.Take();
    }
    EXPECT_FALSE(statements.isEmpty());
    QStringList untold;
    for (qsizetype failing = 0; failing < statements.size(); ++failing) {
        std::optional<MissingTable> missing;
        qsizetype sent = 0;
        const StatementHook hook([&](const QString &statement) {
            missing.reset();
            if (sent++ == failing) {
                missing.emplace(dsn, statement);
            }
        });
        if (read()) {
            untold << statements[failing];
        }
    }
    return untold;
}
