#include "db/demo_data.h"

#include "base/day.h"
#include "db/demo_people.h"
#include "db/demo_usage.h"
#include "db/group_keys.h"
#include "db/row_writer.h"
#include "db/schema_version.h"

#include <QList>

using namespace Qt::StringLiterals;

namespace {

// "Everybody" first, then those of the demonstration in the order in which they were made.
std::optional<QList<DemoGroup>>
MakeGroups(DirectConnection &database, int count, DemoChance &chance)
{
    QList<DemoGroup> groups {DemoGroup {}};
    if (!database.Begin()) {
        return std::nullopt;
    }
    RowWriter rows(database, "groups", kDemoGroupColumns);
    for (int index = 0; index < count; ++index) {
        groups << MakeDemoGroup(index);
        rows.Add(DemoGroupRow(index, groups.last(), chance));
    }
    if (!rows.Finish() || !MakeGroupKeys(database) || !database.Commit()) {
        return std::nullopt;
    }
    const QString query = u"SELECT group_id FROM %1groups%1 ORDER BY group_id"_s.arg(
        QLatin1Char(database.Engine().identifierQuote));
    const auto ids = database.Rows(query);
    if (!ids || ids->size() != groups.size()) {
        return std::nullopt;
    }
    for (qsizetype index = 0; index < groups.size(); ++index) {
        groups[index].id = ids->at(index).first().toInt();
    }
    return groups;
}

bool MakeUsers(DirectConnection &database,
               int count,
               const QList<DemoGroup> &groups,
               DemoChance &chance)
{
    if (!database.Begin()) {
        return false;
    }
    RowWriter rows(database, "users", kDemoUserColumns);
    for (int index = 0; index < count; ++index) {
        if (!rows.Add(DemoUserRow(index, groups, chance))) {
            return false;
        }
    }
    return rows.Finish() && database.Commit();
}

bool Fill(DirectConnection &database,
          const DemoSize &size,
          const std::function<void(QString)> &report)
{
    DemoChance chance;
    report(u"groups"_s);
    const auto groups = MakeGroups(database, size.groups, chance);
    report(u"users"_s);
    if (!groups || !MakeUsers(database, size.users, *groups, chance)) {
        return false;
    }
    DemoUsage usage(database, Today(), size.days);
    if (!usage.MakeDayRecords(report)) {
        return false;
    }
    report(u"limits, credits and blocks"_s);
    if (!usage.MakeAccountingRecords() || !usage.MakeCredits()
        || !usage.BlockWhoUsedUpTheirLimit()) {
        return false;
    }
    report(u"restrictions, logins and visited sites"_s);
    // One of the engines plans badly until it has looked at what came in so quickly.
    const bool looksByItself = &database.Engine() != &kPostgresql;
    return usage.MakeRestrictionsAndLogins() && usage.MakeSiteAccess()
        && (looksByItself || database.Run(u"ANALYZE"_s));
}

} // namespace

std::optional<QString> FillWithDemoData(const QString &dsn,
                                        const DemoSize &size,
                                        const std::function<void(QString)> &report)
{
    DirectConnection database;
    if (!database.Open(dsn)) {
        return u"The data source \"%1\" cannot be opened: %2"_s.arg(dsn, database.Error());
    }
    if (&database.Engine() == &kSqlite && !database.Run(u"PRAGMA cache_size = -400000"_s)) {
        return database.Error(); // kilobytes: all pages that one statement touches
    }
    const auto version = SchemaVersionOf(database);
    if (!version) {
        return database.Error();
    }
    if (auto other = OtherSchemaText(*version, dsn)) {
        return other;
    }
    const auto users = database.Rows(u"SELECT COUNT(*) FROM users"_s);
    if (!users) {
        return database.Error();
    }
    if (const int count = users->first().first().toInt(); count > 0) {
        return u"The database of \"%1\" already has %2 users. Nothing was changed."_s.arg(dsn).arg(
            count);
    }
    if (!Fill(database, size, report)) {
        return u"The database of \"%1\" is filled in part only: %2"_s.arg(dsn, database.Error());
    }
    return std::nullopt;
}
