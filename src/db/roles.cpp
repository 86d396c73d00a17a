#include "db/roles.h"

#include "db/direct_connection.h"
#include "db/schema_scripts.h"
#include "db/table_shape.h"

#include <QRegularExpression>

#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr const char *kRead = "SELECT";
constexpr const char *kAll = "SELECT, INSERT, UPDATE, DELETE";
constexpr const char *kReadButPassword = "SELECT (but pwd)";

// The rights on a table, and null for none; `UPDATE (column, ...)` is of these columns only. An account
// for backups reads every table. Who locks rows must be able to update them, as the console does with
// ports before it removes them.
struct TableRights
{
    const char *table;
    const char *console;
    const char *service;
    const char *reports;
    const char *viewer;
};

constexpr TableRights kRights[] = {
    {"groups", kAll, "SELECT, UPDATE (blocked, blockreason)", kRead, kRead},
    {"users",
     kAll,
     "SELECT, INSERT, UPDATE (username, stationname, ip_addr, mac_addr, blocked, blockreason, "
     "timeblocked)",
     kRead,
     kRead},
    {"traffic_use", "SELECT, UPDATE, DELETE", "SELECT, INSERT, UPDATE", kRead, kRead},
    {"time_use", "SELECT, UPDATE, DELETE", "SELECT, INSERT, UPDATE", kRead, kRead},
    {"billing", kAll, "SELECT, UPDATE (trafid, time_id, usage, moneyusage, closed)", kRead, kRead},
    {"time_blocked", "SELECT, INSERT, DELETE", kRead, kRead, kRead},
    {"protocols", kAll, kRead, kRead, kRead},
    {"ports", kAll, kRead, kRead, kRead},
    {"port_blocked", kAll, kRead, kRead, kRead},
    {"logins", kAll, "SELECT (userid)", nullptr, kReadButPassword},
    {"sites", "SELECT, DELETE", nullptr, kRead, kRead},
    {"siteaccess", "SELECT, DELETE", nullptr, kRead, kRead},
    {"service_counters", nullptr, kAll, nullptr, nullptr},
    {"service_gateways", nullptr, "SELECT, INSERT, UPDATE", nullptr, nullptr},
    {"credit_use", nullptr, "SELECT, INSERT, UPDATE", kRead, nullptr},
    {"schema_version", kRead, kRead, kRead, kRead},
};

struct Role
{
    const char *name;
    const char *meaning;
    const char *(*rights)(const TableRights &table);
    bool makesTemporaryTables =
        false; // on MariaDB, whose driver else holds a whole result in memory
    bool readsSequences = false; // which numbers come next, where they are no columns
};

constexpr Role kRoles[] = {
    {"console",
     "the console and the command line",
     [](const TableRights &table) { return table.console; }},
    {"service", "the accounting service", [](const TableRights &table) { return table.service; }},
    {"reports",
     "reports; reads no logins and changes nothing",
     [](const TableRights &table) { return table.reports; },
     true},
    {"viewer",
     "the console of those who only look; reads no logins' digests",
     [](const TableRights &table) { return table.viewer; }},
    {"backup",
     "tollbrook-db backup and check; reads everything, the digests too",
     [](const TableRights & /*table*/) { return kRead; },
     false,
     true},
};

class Script
{
public:
    explicit Script(const RolesPlace &where)
        : place(where)
        , isMariadb(&where.dialect == &kMariadb)
        , shapes(TableShapes(NewestSchema()))
    { }

    [[nodiscard]] QString Text()
    {
        AddOwner();
        for (const Role &role : kRoles) {
            AddRole(role);
        }
        return text;
    }

private:
    void Say(const QString &comment) { text += u"-- "_s + comment + u'\n'; }
    void Add(const QString &statement) { text += statement + u";\n"_s; }

    // A statement for a server that holds nothing yet.
    void Suggest(const QString &statement) { text += u"--   "_s + statement + u";\n"_s; }

    void AddOwner()
    {
        Say(u"Accounts for the database %1 on %2. Replace every CHANGE-ME by a password, and run it as an"_s
                .arg(place.database, QString::fromLatin1(place.dialect.engine)));
        Say(u"administrator of the server. It may run again: after an upgrade of the tables it should."_s);
        if (isMariadb) {
            Say(u"'%' is any host: name yours instead, in every line."_s);
        }
        text += u'\n';
        Say(u"The owner, whose account makes, upgrades, repairs and restores the tables, comes first. Where"_s);
        Say(u"there is none yet:"_s);
        const QString database = Name(place.database);
        if (isMariadb) {
            Suggest(u"CREATE DATABASE "_s + database);
            Suggest(u"CREATE USER 'system'@'%' IDENTIFIED BY 'CHANGE-ME'"_s);
            Suggest(u"GRANT ALL ON %1.* TO 'system'@'%'"_s.arg(DatabasePattern()));
            Suggest(u"GRANT PROCESS ON *.* TO 'system'@'%'"_s);
            Say(u"PROCESS shows it who else is connected."_s);
        } else {
            Suggest(u"CREATE ROLE system LOGIN PASSWORD 'CHANGE-ME'"_s);
            Suggest(u"CREATE DATABASE %1 OWNER system ENCODING 'UTF8' TEMPLATE template0"_s.arg(
                database));
        }
    }

    void AddRole(const Role &role)
    {
        const QString account = place.prefix + u'_' + QLatin1StringView(role.name);
        grantee = isMariadb ? u"'%1'@'%'"_s.arg(account) : Name(account);
        text += u'\n';
        Say(u"%1: %2"_s.arg(account, QLatin1StringView(role.meaning)));
        if (isMariadb) {
            Add(u"CREATE USER IF NOT EXISTS %1 IDENTIFIED BY 'CHANGE-ME'"_s.arg(grantee));
        } else {
            Add(u"DO $$ BEGIN IF NOT EXISTS (SELECT FROM pg_roles WHERE rolname = '%1') THEN "
                "CREATE ROLE %2 LOGIN PASSWORD 'CHANGE-ME'; END IF; END $$"_s.arg(account,
                                                                                  grantee));
            Grant(u"CONNECT ON DATABASE "_s + Name(place.database));
            Grant(u"USAGE ON SCHEMA "_s + Name(place.schema));
        }
        for (const TableRights &table : kRights) {
            if (const char *const rights = role.rights(table)) {
                Grant(RightsOn(QLatin1StringView(table.table), QLatin1StringView(rights)));
            }
        }
        if (isMariadb && role.makesTemporaryTables) {
            Grant(u"CREATE TEMPORARY TABLES ON %1.*"_s.arg(DatabasePattern()));
        }
        if (!isMariadb && role.readsSequences) {
            AddSequences();
        }
    }

    void AddSequences()
    {
        for (const TableShape &shape : shapes) {
            if (shape.givesNumbers) {
                Grant(u"SELECT ON SEQUENCE "_s
                      + Placed(u"%1_%2_seq"_s.arg(shape.name, shape.key.first())));
            }
        }
    }

    void Grant(const QString &rights) { Add(u"GRANT %1 TO %2"_s.arg(rights, grantee)); }

    [[nodiscard]] QString RightsOn(const QString &table, const QString &rights) const
    {
        static const QRegularExpression kColumns(u"\\(([^)]*)\\)"_s);
        const auto columns = kColumns.match(rights);
        QString written = rights;
        if (columns.hasMatch()) {
            QStringList names;
            for (const QString &name : NamesOf(table, columns.captured(1))) {
                names << Quoted(place.dialect, name);
            }
            written.replace(columns.captured(0), u'(' + names.join(u", "_s) + u')');
        }
        return written + u" ON "_s + Placed(table);
    }

    // Of "a, b" these, and of "but a" all others of the table.
    [[nodiscard]] QStringList NamesOf(const QString &table, const QString &columns) const
    {
        static const auto kBut = u"but "_s;
        if (!columns.startsWith(kBut)) {
            return columns.split(u", "_s);
        }
        QStringList names;
        for (const TableShape &shape : shapes) {
            for (const ColumnShape &column : shape.columns) {
                if (shape.name == table && column.name != columns.sliced(kBut.size())) {
                    names << column.name;
                }
            }
        }
        return names;
    }

    [[nodiscard]] QString Placed(const QString &name) const
    {
        return Name(isMariadb ? place.database : place.schema) + u'.' + Name(name);
    }

    [[nodiscard]] QString Name(QString name) const
    {
        const QChar quote = QLatin1Char(place.dialect.identifierQuote);
        return Quoted(place.dialect, name.replace(quote, QString(2, quote)));
    }

    // Where a right is given on a whole database, these two stand for any letters.
    [[nodiscard]] QString DatabasePattern() const
    {
        return Name(QString(place.database).replace(u"_"_s, u"\\_"_s).replace(u"%"_s, u"\\%"_s));
    }

    const RolesPlace &place;
    const bool isMariadb;
    const std::vector<TableShape> shapes;
    QString grantee;
    QString text;
};

} // namespace

bool IsRolesPrefix(const QString &prefix)
{
    // The longest names of accounts have 63 bytes on one server, 80 on the other.
    static const QRegularExpression kPrefix(u"^[a-z][a-z0-9_]{0,49}$"_s);
    return kPrefix.match(prefix).hasMatch();
}

std::optional<RolesPlace> RolesPlaceOf(DirectConnection &database, const QString &prefix)
{
    const bool isMariadb = &database.Engine() == &kMariadb;
    const auto rows = database.Rows(isMariadb ? u"SELECT DATABASE(), ''"_s
                                              : u"SELECT current_database(), current_schema()"_s);
    if (!rows) {
        return std::nullopt;
    }
    return RolesPlace {database.Engine(), rows->value(0).value(0), rows->value(0).value(1), prefix};
}

QString RolesScript(const RolesPlace &place)
{
    return Script(place).Text();
}
