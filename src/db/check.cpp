#include "db/check.h"

#include "db/direct_connection.h"
#include "db/group_keys.h"
#include "db/schema.h"
#include "db/schema_version.h"
#include "db/translation.h"

#include <QCoreApplication>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Check)
};

// What the console leaves behind by design: no statement cascades, so a deleted user or group, a user
// who made room for another's address, and a purge leave rows that name what is gone. Each such row is
// a note; everything else that does not fit together is wrong.
enum class Kind { Wrong, Left };

// The sentence follows a count, for which the query stands: it gives the rows that are meant, or,
// where it groups them, one row for each value that is there too often. Without a query the program
// itself looks, see Count.
struct Check
{
    const char *sentence;
    const char *query;
    Kind kind = Kind::Wrong;
    int since = 0; // the version of the schema that brought the tables
};

// Found by the program's own rule for names, which no query knows.
constexpr char kTwins[] = "names are held by more than one group";
constexpr char kOldKeys[] = "groups are kept apart from others by a name that they have no more";

constexpr Check kChecks[] = {
    // Groups and users
    {"groups \"Everybody\" (80) are missing, into which users fall back",
     "SELECT 1 FROM (SELECT COUNT(*) AS found FROM groups WHERE group_id = 80) e WHERE found = 0"},
    {kTwins, nullptr},
    {kOldKeys, nullptr, Kind::Wrong, kGroupKeysVersion},
    {"groups have a mode other than 0, 1 and 2",
     "SELECT 1 FROM groups WHERE mode NOT IN (0, 1, 2)"},
    {"groups have a traffic limit with a period that is neither day nor month",
     "SELECT 1 FROM groups WHERE mode = 1 AND trafperiod NOT IN (1, 2)"},
    {"groups have a price of their own that is below 0",
     "SELECT 1 FROM groups WHERE own_price <> 0 AND trafprice < 0"},
    {"groups are blocked without a reason",
     "SELECT 1 FROM groups WHERE blocked <> 0 AND blockreason = 0"},
    {"users are open although their group is blocked",
     "SELECT 1 FROM users u INNER JOIN groups g ON g.group_id = u.group_id "
     "WHERE g.blocked <> 0 AND u.blocked = 0"},
    {"users belong to no group (0), so that the users list leaves them out",
     "SELECT 1 FROM users WHERE group_id = 0"},
    {"users belong to a group that does not exist",
     "SELECT 1 FROM users u WHERE u.group_id <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM groups g WHERE g.group_id = u.group_id)"},
    {"users have no name", "SELECT 1 FROM users WHERE username = ''"},
    {"IP addresses are held by more than one user",
     "SELECT ip_addr FROM users WHERE ip_addr <> '' GROUP BY ip_addr HAVING COUNT(*) > 1"},
    {"users have a mode other than 0, 1, 2, 4 and 5",
     "SELECT 1 FROM users WHERE mode NOT IN (0, 1, 2, 4, 5)"},
    {"users have a traffic limit with a period that is neither day nor month",
     "SELECT 1 FROM users WHERE mode IN (1, 5) AND trafperiod NOT IN (1, 2)"},
    {"users have a time limit with a period that is neither day nor month",
     "SELECT 1 FROM users WHERE mode IN (4, 5) AND timeperiod NOT IN (1, 2)"},
    {"users have a price of their own that is below 0",
     "SELECT 1 FROM users WHERE own_price <> 0 AND trafprice < 0"},
    {"users are blocked without a reason",
     "SELECT 1 FROM users WHERE blocked <> 0 AND blockreason = 0"},
    {"users are blocked for a used-up limit although they have none",
     "SELECT 1 FROM users WHERE blocked <> 0 AND blockreason IN (1, 2) AND mode = 0"},
    {"users must authenticate but have no login",
     "SELECT 1 FROM users u WHERE u.authreq <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM Logins l WHERE l.userid = u.user_id)"},

    // Usage records
    {"traffic records belong to neither a user nor a group",
     "SELECT 1 FROM traffic_use WHERE user_id = 0 AND (group_id IS NULL OR group_id = 0)"},
    {"traffic records belong to a user who no longer exists",
     "SELECT 1 FROM traffic_use t WHERE t.user_id <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM users u WHERE u.user_id = t.user_id)",
     Kind::Left},
    {"traffic records belong to a group that no longer exists",
     "SELECT 1 FROM traffic_use t WHERE t.group_id <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM groups g WHERE g.group_id = t.group_id)",
     Kind::Left},
    {"time records belong to no user", "SELECT 1 FROM time_use WHERE user_id = 0"},
    {"time records belong to a user who no longer exists",
     "SELECT 1 FROM time_use t WHERE t.user_id <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM users u WHERE u.user_id = t.user_id)",
     Kind::Left},
    {"usage records have a period other than 0, 1 and 2",
     "SELECT 1 FROM traffic_use WHERE period NOT IN (0, 1, 2) "
     "UNION ALL SELECT 1 FROM time_use WHERE period NOT IN (0, 1, 2)"},
    {"days of a user have more than one traffic record",
     "SELECT user_id FROM traffic_use WHERE period IN (0, 1) AND user_id <> 0 "
     "GROUP BY user_id, period, current_time HAVING COUNT(*) > 1"},
    {"days of a group have more than one traffic record",
     "SELECT group_id FROM traffic_use WHERE period IN (0, 1) AND group_id <> 0 "
     "AND user_id = 0 GROUP BY group_id, period, current_time HAVING COUNT(*) > 1"},
    {"users have more than one monthly traffic record",
     "SELECT user_id FROM traffic_use WHERE period = 2 AND user_id <> 0 "
     "GROUP BY user_id HAVING COUNT(*) > 1"},
    {"groups have more than one monthly traffic record",
     "SELECT group_id FROM traffic_use WHERE period = 2 AND group_id <> 0 "
     "GROUP BY group_id HAVING COUNT(*) > 1"},
    {"days of a user have more than one time record",
     "SELECT user_id FROM time_use WHERE period IN (0, 1) "
     "GROUP BY user_id, period, current_time HAVING COUNT(*) > 1"},
    {"users have more than one monthly time record",
     "SELECT user_id FROM time_use WHERE period = 2 GROUP BY user_id HAVING COUNT(*) > 1"},

    // Billing records
    {"billing records have a mode other than 1, 2 and 4",
     "SELECT 1 FROM billing WHERE mode NOT IN (1, 2, 4)"},
    {"billing records have no owner",
     "SELECT 1 FROM billing WHERE (object_id IS NULL OR object_id = 0) "
     "AND (group_id IS NULL OR group_id = 0)"},
    {"billing records belong to a user who no longer exists",
     "SELECT 1 FROM billing b WHERE b.object_id <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM users u WHERE u.user_id = b.object_id)",
     Kind::Left},
    {"billing records belong to a group that no longer exists",
     "SELECT 1 FROM billing b WHERE b.group_id <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM groups g WHERE g.group_id = b.group_id)",
     Kind::Left},
    {"traffic credits name no traffic record",
     "SELECT 1 FROM billing WHERE mode = 1 AND trafid IS NULL"},
    {"traffic credits were given before there was a traffic record for them (0)",
     "SELECT 1 FROM billing WHERE mode = 1 AND trafid = 0",
     Kind::Left},
    {"traffic credits name a traffic record that no longer exists",
     "SELECT 1 FROM billing b WHERE b.mode = 1 AND b.trafid <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM traffic_use t WHERE t.traf_id = b.trafid)",
     Kind::Left},
    {"time credits name no time record",
     "SELECT 1 FROM billing WHERE mode = 4 AND time_id IS NULL"},
    {"time credits were given before there was a time record for them (0)",
     "SELECT 1 FROM billing WHERE mode = 4 AND time_id = 0",
     Kind::Left},
    {"time credits name a time record that no longer exists",
     "SELECT 1 FROM billing b WHERE b.mode = 4 AND b.time_id <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM time_use t WHERE t.time_id = b.time_id)",
     Kind::Left},
    {"open credits are of a kind that their user's mode does not use",
     "SELECT 1 FROM billing b INNER JOIN users u ON u.user_id = b.object_id WHERE b.closed = 0 "
     "AND NOT (b.mode = u.mode OR (u.mode = 5 AND b.mode IN (1, 4)))"},
    {"credits have an expiry day that is no date like 2026.11.21",
     "SELECT 1 FROM billing WHERE mode = 2 AND unlimited = 0 "
     "AND expiredday NOT LIKE '____.__.__'"},

    // Restrictions, protocols, logins and sites
    {"denied times belong to neither a user nor a group",
     "SELECT 1 FROM Time_blocked WHERE (user_id IS NULL OR user_id = 0) "
     "AND (group_id IS NULL OR group_id = 0)"},
    {"denied times belong to a user or a group that no longer exists",
     "SELECT 1 FROM Time_blocked t WHERE (t.user_id <> 0 OR t.group_id <> 0) "
     "AND NOT EXISTS (SELECT 1 FROM users u WHERE u.user_id = t.user_id) "
     "AND NOT EXISTS (SELECT 1 FROM groups g WHERE g.group_id = t.group_id)",
     Kind::Left},
    {"denied times have no day of the week or end before they begin",
     "SELECT 1 FROM Time_blocked WHERE dayofweek NOT BETWEEN 1 AND 7 OR timestop <= timestart"},
    {"denied ports belong to neither a user nor a group",
     "SELECT 1 FROM Port_blocked WHERE (user_id IS NULL OR user_id = 0) "
     "AND (group_id IS NULL OR group_id = 0)"},
    {"denied ports belong to a user or a group that no longer exists",
     "SELECT 1 FROM Port_blocked p WHERE (p.user_id <> 0 OR p.group_id <> 0) "
     "AND NOT EXISTS (SELECT 1 FROM users u WHERE u.user_id = p.user_id) "
     "AND NOT EXISTS (SELECT 1 FROM groups g WHERE g.group_id = p.group_id)",
     Kind::Left},
    {"denied ports name a port that does not exist",
     "SELECT 1 FROM Port_blocked b "
     "WHERE NOT EXISTS (SELECT 1 FROM Ports p WHERE p.port_id = b.port_id)"},
    {"ports are denied to the same user more than once",
     "SELECT user_id FROM Port_blocked WHERE user_id <> 0 "
     "GROUP BY user_id, port_id HAVING COUNT(*) > 1"},
    {"ports are denied to the same group more than once",
     "SELECT group_id FROM Port_blocked WHERE group_id <> 0 "
     "GROUP BY group_id, port_id HAVING COUNT(*) > 1"},
    {"ports belong to a protocol that does not exist",
     "SELECT 1 FROM Ports p WHERE NOT EXISTS (SELECT 1 FROM Protocols r WHERE r.id = p.proto_id)"},
    {"names are held by more than one protocol",
     "SELECT proto_name FROM Protocols GROUP BY proto_name HAVING COUNT(*) > 1"},
    {"logins are bound to a user who no longer exists",
     "SELECT 1 FROM Logins l WHERE l.userid NOT IN (0, -1) "
     "AND NOT EXISTS (SELECT 1 FROM users u WHERE u.user_id = l.userid)",
     Kind::Left},
    {"users have more than one login",
     "SELECT userid FROM Logins WHERE userid NOT IN (0, -1) GROUP BY userid HAVING COUNT(*) > 1"},
    {"site visits belong to no user", "SELECT 1 FROM SiteAccess WHERE user_id = 0"},
    {"site visits belong to a user who no longer exists",
     "SELECT 1 FROM SiteAccess a WHERE a.user_id <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM users u WHERE u.user_id = a.user_id)",
     Kind::Left},
    {"site visits name a site that does not exist",
     "SELECT 1 FROM SiteAccess a "
     "WHERE NOT EXISTS (SELECT 1 FROM Sites s WHERE s.site_id = a.site_id)"},

    // What the accounting service remembers
    {"counters are of addresses that belonged to a user who no longer exists",
     "SELECT 1 FROM service_counters c WHERE c.user_id <> 0 "
     "AND NOT EXISTS (SELECT 1 FROM users u WHERE u.user_id = c.user_id)",
     Kind::Left,
     1},
    {"counters are neither of a known nor of an unknown address",
     "SELECT 1 FROM service_counters WHERE unknown NOT IN (0, 1)",
     Kind::Wrong,
     1},
    {"counters are negative",
     "SELECT 1 FROM service_counters WHERE received < 0 OR sent < 0",
     Kind::Wrong,
     1},
    {"days that took of a credit name one that no longer exists",
     "SELECT 1 FROM credit_use d "
     "WHERE NOT EXISTS (SELECT 1 FROM billing b WHERE b.bill_id = d.bill_id)",
     Kind::Left,
     1},
    {"days took less than nothing of a credit",
     "SELECT 1 FROM credit_use WHERE data < 0 OR money < 0 OR price < 0",
     Kind::Wrong,
     1},
    {"databases hold more than one version of the schema",
     "SELECT 1 FROM (SELECT COUNT(*) AS found FROM schema_version) v WHERE found > 1",
     Kind::Wrong,
     1},
};

std::optional<qint64> CountBySql(DirectConnection &database, const Check &check)
{
    const std::string query = Translate(database.Engine(), check.query);
    const auto count =
        database.Rows(u"SELECT COUNT(*) FROM (%1) wrong"_s.arg(QString::fromStdString(query)));
    return count ? std::optional(count->first().first().toLongLong()) : std::nullopt;
}

// How often it is found; nothing when that cannot be read.
std::optional<qint64> Count(DirectConnection &database, const Check &check)
{
    if (check.query != nullptr) {
        return CountBySql(database, check);
    }
    if (check.sentence == kTwins) {
        const auto twins = TwinsOfGroups(database);
        QSet<QString> names;
        for (const GroupRename &twin : twins.value_or(QList<GroupRename>())) {
            names.insert(GroupKey(twin.from));
        }
        return twins ? std::optional<qint64>(names.size()) : std::nullopt;
    }
    const auto faults = FindGroupKeyFaults(database);
    return faults ? std::optional<qint64>(faults->oldKeys.size()) : std::nullopt;
}

} // namespace

QStringList CheckSentences()
{
    QStringList sentences;
    for (const Check &check : kChecks) {
        sentences << QString::fromUtf8(check.sentence);
    }
    return sentences;
}

CheckResult CheckDatabase(const QString &dsn)
{
    CheckResult result;
    DirectConnection database;
    if (!database.Open(dsn)) {
        result.failure =
            Words::tr("The data source \"%1\" cannot be opened: %2").arg(dsn, database.Error());
        return result;
    }
    const auto version = SchemaVersionOf(database);
    if (!version) {
        result.failure = Words::tr("A check of \"%1\" failed: %2").arg(dsn, database.Error());
        return result;
    }
    result.failure = RefusedSchemaText(*version);
    if (result.failure) {
        result.isRefused = AgeOf(*version) != SchemaAge::None;
        return result;
    }
    if (const auto older = OtherSchemaText(*version, dsn)) {
        result.notes << *older;
    }
    if (const auto wrong = WrongEncodingText(database, dsn)) {
        result.notes << *wrong;
    }
    for (const Check &check : kChecks) {
        if (check.since > *version) {
            continue;
        }
        const auto found = Count(database, check);
        if (!found) {
            result.failure = Words::tr("A check of \"%1\" failed: %2").arg(dsn, database.Error());
            return result;
        }
        if (*found != 0) {
            QStringList &sentences = check.kind == Kind::Wrong ? result.findings : result.notes;
            sentences << QString::number(*found) + u' ' + QString::fromUtf8(check.sentence) + u'.';
        }
    }
    return result;
}
