#include "upkeep/nobody_else.h"

#include "db/maintenance.h"
#include "db/schema_version.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(NobodyElse)
};

// A server still tells for a moment of a connection that has just ended.
std::optional<QStringList> OthersWhoStay(DirectConnection &database)
{
    const QDeadlineTimer patience(std::chrono::seconds(2));
    for (;;) {
        auto others = OthersConnected(database);
        if (!others || others->isEmpty() || patience.hasExpired()) {
            return others;
        }
        QThread::msleep(50);
    }
}

} // namespace

Told<void> NobodyElse(DirectConnection &database, const QString &dsn)
{
    const auto others = OthersWhoStay(database);
    if (!others) {
        return tl::unexpected(
            Words::tr("Who is connected to \"%1\" cannot be told: %2").arg(dsn, database.Error()));
    }
    if (!others->isEmpty()) {
        return tl::unexpected(
            Words::tr("Others are connected to the database of \"%1\". End them first:\n%2")
                .arg(dsn, others->join(u'\n')));
    }
    return {};
}

Told<void> NobodyNeedsOlderTables(const QString &dsn)
{
    DirectConnection database;
    if (!database.Open(dsn)) {
        return {};
    }
    const auto version = SchemaVersionOf(database);
    if (!version) {
        return tl::unexpected(Words::tr("The version of the tables of \"%1\" cannot be read: %2")
                                  .arg(dsn, database.Error()));
    }
    return AgeOf(*version) == SchemaAge::Older ? NobodyElse(database, dsn) : Told<void>();
}
