#include "upkeep/repair.h"

#include "db/direct_connection.h"
#include "db/group_keys.h"
#include "db/maintenance.h"
#include "db/schema_version.h"
#include "db/translation.h"
#include "upkeep/nobody_else.h"

#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Change
{
    const char *statement;
    std::vector<int> values; // the columns of the row that its markers stand for, from 0
};

struct Mend
{
    const char *rows; // a query of the rows to mend; what the changes need of them are integers
    const char *sentence; // of a row, whose columns are %1, %2, ...
    std::vector<Change> changes; // of each row
};

// Of the columns %1, the record that stays, and %2.
const std::vector<Change> kAddTrafficRecord = {
    {"UPDATE traffic_use SET data = data + (SELECT data FROM traffic_use WHERE traf_id = ?), "
     "senddata = senddata + (SELECT senddata FROM traffic_use WHERE traf_id = ?), "
     "blocked = (SELECT MAX(blocked) FROM traffic_use WHERE traf_id IN (?, ?)) "
     "WHERE traf_id = ?",
     {1, 1, 0, 1, 0}},
    {"UPDATE billing SET trafid = ? WHERE mode = 1 AND trafid = ?", {0, 1}},
    {"DELETE FROM traffic_use WHERE traf_id = ?", {1}},
};

const Mend kMends[] = {
    {"SELECT found FROM (SELECT COUNT(*) AS found FROM groups WHERE group_id = 80) e "
     "WHERE found = 0",
     "The group \"Everybody\" (80) is made again.",
     {{"INSERT INTO groups (group_id, name, descrip) "
       "VALUES (80, 'Everybody', 'Users that belong to no other group')",
       {}}}},
    {"SELECT u.user_id, u.group_id, u.username FROM users u "
     "WHERE NOT EXISTS (SELECT 1 FROM groups g WHERE g.group_id = u.group_id) "
     "ORDER BY u.user_id",
     "User %1 (%3) belonged to the group %2, which does not exist: now to \"Everybody\" (80).",
     {{"UPDATE users SET group_id = 80 WHERE user_id = ?", {0}}}},
    {"SELECT (SELECT MIN(f.traf_id) FROM traffic_use f WHERE f.user_id = t.user_id "
     "AND f.period = t.period AND f.current_time = t.current_time) AS kept, "
     "t.traf_id, t.user_id, t.current_time, t.data, t.senddata "
     "FROM traffic_use t WHERE t.period IN (0, 1) AND t.user_id <> 0 "
     "AND EXISTS (SELECT 1 FROM traffic_use o WHERE o.user_id = t.user_id "
     "AND o.period = t.period AND o.current_time = t.current_time AND o.traf_id < t.traf_id) "
     "ORDER BY t.traf_id",
     "Traffic record %2 of user %3 on %4 (received %5, sent %6) is added to record %1 of the "
     "same day.",
     kAddTrafficRecord},
    {"SELECT (SELECT MIN(f.traf_id) FROM traffic_use f WHERE f.group_id = t.group_id "
     "AND f.user_id = 0 AND f.period = t.period AND f.current_time = t.current_time) AS kept, "
     "t.traf_id, t.group_id, t.current_time, t.data, t.senddata "
     "FROM traffic_use t WHERE t.period IN (0, 1) AND t.group_id <> 0 "
     "AND t.user_id = 0 AND EXISTS (SELECT 1 FROM traffic_use o WHERE o.group_id = t.group_id "
     "AND o.user_id = 0 AND o.period = t.period AND o.current_time = t.current_time AND o.traf_id < t.traf_id) "
     "ORDER BY t.traf_id",
     "Traffic record %2 of group %3 on %4 (received %5, sent %6) is added to record %1 of the "
     "same day.",
     kAddTrafficRecord},
    {"SELECT (SELECT MIN(f.time_id) FROM time_use f WHERE f.user_id = t.user_id "
     "AND f.period = t.period AND f.current_time = t.current_time) AS kept, "
     "t.time_id, t.user_id, t.current_time, t.data "
     "FROM time_use t WHERE t.period IN (0, 1) AND t.user_id <> 0 "
     "AND EXISTS (SELECT 1 FROM time_use o WHERE o.user_id = t.user_id "
     "AND o.period = t.period AND o.current_time = t.current_time AND o.time_id < t.time_id) "
     "ORDER BY t.time_id",
     "Time record %2 of user %3 on %4 (%5 hours) is added to record %1 of the same day.",
     {{"UPDATE time_use SET data = data + (SELECT data FROM time_use WHERE time_id = ?), "
       "blocked = (SELECT MAX(blocked) FROM time_use WHERE time_id IN (?, ?)) "
       "WHERE time_id = ?",
       {1, 0, 1, 0}},
      {"UPDATE billing SET time_id = ? WHERE mode = 4 AND time_id = ?", {0, 1}},
      {"DELETE FROM time_use WHERE time_id = ?", {1}}}},
    {"SELECT bill_id FROM billing WHERE mode = 1 AND trafid IS NULL ORDER BY bill_id",
     "Credit %1 named no traffic record: the service finds it now (0).",
     {{"UPDATE billing SET trafid = 0 WHERE bill_id = ?", {0}}}},
    {"SELECT bill_id FROM billing WHERE mode = 4 AND time_id IS NULL ORDER BY bill_id",
     "Credit %1 named no time record: the service finds it now (0).",
     {{"UPDATE billing SET time_id = 0 WHERE bill_id = ?", {0}}}},
    {"SELECT p.pb_id, p.user_id, p.port_id FROM Port_blocked p WHERE p.user_id <> 0 "
     "AND EXISTS (SELECT 1 FROM Port_blocked o WHERE o.user_id = p.user_id "
     "AND o.port_id = p.port_id AND COALESCE(o.group_id, 0) = COALESCE(p.group_id, 0) "
     "AND o.pb_id < p.pb_id) ORDER BY p.pb_id",
     "Port %3 was denied to user %2 more than once: record %1 is removed.",
     {{"DELETE FROM Port_blocked WHERE pb_id = ?", {0}}}},
    {"SELECT p.pb_id, p.group_id, p.port_id FROM Port_blocked p WHERE p.group_id <> 0 "
     "AND EXISTS (SELECT 1 FROM Port_blocked o WHERE o.group_id = p.group_id "
     "AND o.port_id = p.port_id AND COALESCE(o.user_id, 0) = COALESCE(p.user_id, 0) "
     "AND o.pb_id < p.pb_id) ORDER BY p.pb_id",
     "Port %3 was denied to group %2 more than once: record %1 is removed.",
     {{"DELETE FROM Port_blocked WHERE pb_id = ?", {0}}}},
    {"SELECT version FROM schema_version "
     "WHERE version < (SELECT MAX(version) FROM schema_version) ORDER BY version",
     "The version %1 of the tables, which is not the last one, is removed.",
     {{"DELETE FROM schema_version WHERE version = ?", {0}}}},
};

QString Spelled(const DirectConnection &database, const char *statement)
{
    return QString::fromStdString(Translate(database.Engine(), statement));
}

QString Sentence(const char *sentence, const QStringList &row)
{
    QString text;
    for (const char *at = sentence; *at != '\0'; ++at) {
        if (*at == '%') {
            text += row.at(*++at - '1');
        } else {
            text += QLatin1Char(*at);
        }
    }
    return text;
}

bool ChangeRow(DirectConnection &database, const Mend &mend, const QStringList &row)
{
    return std::all_of(mend.changes.begin(), mend.changes.end(), [&](const Change &change) {
        SqlValues values;
        for (const int column : change.values) {
            values.emplace_back(row.at(column).toInt());
        }
        return database.Run(Spelled(database, change.statement), values);
    });
}

// The names of groups and their keys, which no query finds.
Told<int> MendGroups(DirectConnection &database, RepairMode mode, const Tell &tell)
{
    const auto faults = FindGroupKeyFaults(database);
    if (!faults) {
        return tl::unexpected(database.Error());
    }
    QSet<int> mended;
    for (const GroupRename &twin : faults->twins) {
        tell(twin.InWords());
        mended << twin.groupId;
    }
    for (const int groupId : faults->oldKeys + faults->missingKeys) {
        if (!mended.contains(groupId)) {
            tell(u"Group %1 gets the key of its name."_s.arg(groupId));
            mended << groupId;
        }
    }
    const bool done = mode == RepairMode::DryRun || mended.isEmpty() || MakeGroupKeys(database);
    return done ? Told<int>(static_cast<int>(mended.size())) : tl::unexpected(database.Error());
}

// Tells of the rows, and in a run changes them.
Told<int> MendAll(DirectConnection &database, RepairMode mode, const Tell &tell)
{
    int mended = 0;
    for (const Mend &mend : kMends) {
        const auto rows = database.Rows(Spelled(database, mend.rows));
        if (!rows) {
            return tl::unexpected(database.Error());
        }
        for (const QStringList &row : *rows) {
            tell(Sentence(mend.sentence, row));
            if (mode == RepairMode::Run && !ChangeRow(database, mend, row)) {
                return tl::unexpected(database.Error());
            }
            ++mended;
        }
    }
    return MendGroups(database, mode, tell).map([=](int groups) { return mended + groups; });
}

Told<void> Open(DirectConnection &database, const QString &dsn)
{
    if (!database.Open(dsn)) {
        return tl::unexpected(
            u"The data source \"%1\" cannot be opened: %2"_s.arg(dsn, database.Error()));
    }
    const auto version = SchemaVersionOf(database);
    if (!version) {
        return tl::unexpected(database.Error());
    }
    const auto other = OtherSchemaText(*version, dsn);
    return other ? tl::unexpected(*other) : Told<void>();
}

Told<int> MendInTransaction(const QString &dsn, const Tell &tell)
{
    DirectConnection database;
    if (auto opened = Open(database, dsn).and_then([&] { return NobodyElse(database, dsn); });
        !opened) {
        return tl::unexpected(opened.error());
    }
    if (!KeepOthersOut(database) || !database.Begin()) {
        return tl::unexpected(database.Error());
    }
    auto mended = MendAll(database, RepairMode::Run, tell);
    if (mended && database.Commit()) {
        return mended;
    }
    return tl::unexpected<QString>(u"Nothing was changed: "_s
                                   + (mended ? database.Error() : mended.error()));
}

// How many rows there are to mend. Who else is connected is asked before a backup is made for nothing.
Told<int> Look(const QString &dsn, RepairMode mode, const Tell &tell)
{
    DirectConnection database;
    return Open(database, dsn)
        .and_then([&] { return MendAll(database, RepairMode::DryRun, tell); })
        .and_then([&](int found) -> Told<int> {
            const bool isIdle = found == 0 || mode == RepairMode::DryRun;
            return (isIdle ? Told<void>() : NobodyElse(database, dsn)).map([=] { return found; });
        });
}

} // namespace

Told<int> Repair(const BackupWish &backup, RepairMode mode, const Tell &tell)
{
    const Tell quiet = [](const QString &) {};
    auto found = Look(backup.dsn, mode, mode == RepairMode::DryRun ? tell : quiet);
    if (!found || *found == 0 || mode == RepairMode::DryRun) {
        return found;
    }
    return MakeBackup(backup, quiet).and_then([&] {
        tell(u"The backup is in %1."_s.arg(backup.file));
        return MendInTransaction(backup.dsn, tell);
    });
}
