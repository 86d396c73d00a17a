#include "demo/lab/lab_users.h"

#include "db/direct_connection.h"

#include <QDate>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

// Beside names and addresses; the ids are the places in the list, from 1 on.
QStringList RuleStatements()
{
    const QString today = QDate::currentDate().toString(Qt::ISODate);
    QStringList statements {
        u"UPDATE users SET mode = 1, traflim = 50, trafperiod = 1 WHERE user_id = 2"_s,
        u"INSERT INTO traffic_use (user_id, period, \"current_time\", data) VALUES (2, 1, '%1', 43), "
        "(2, 0, '%1', 43)"_s.arg(today),
        u"UPDATE users SET blocked = 1, blockreason = 3 WHERE user_id = 3"_s,
        u"UPDATE users SET mode = 2 WHERE user_id IN (4, 11)"_s,
        u"INSERT INTO billing (mode, object_id, data, \"usage\") VALUES (2, 4, 200, 12), "
        "(2, 11, 100, 90)"_s,
        u"UPDATE users SET timeaccess = 1 WHERE user_id = 5"_s,
        u"UPDATE users SET mode = 1, traflim = 1000, trafperiod = 2 WHERE user_id = 6"_s,
        u"UPDATE users SET mode = 4, timelim = 2, timeperiod = 1 WHERE user_id = 7"_s,
        u"INSERT INTO time_use (user_id, period, \"current_time\", data) VALUES (7, 1, '%1', 1.983)"_s
            .arg(today),
        u"UPDATE users SET authreq = 1 WHERE user_id = 8"_s,
        u"UPDATE users SET mode = 5, traflim = 2000, trafperiod = 2, timelim = 40, timeperiod = 2 "
        "WHERE user_id = 10"_s};
    for (int day = 1; day <= 5; ++day) {
        statements << u"INSERT INTO time_blocked (user_id, dayofweek, timestart, timestop) VALUES "
                      "(5, %1, '08:00:00', '18:00:00')"_s.arg(day);
    }
    return statements;
}

bool AddUsers(DirectConnection &database)
{
    qint32 id = 0;
    for (const LabUser &user : kLabUsers) {
        const QByteArray address = LabAddress(static_cast<size_t>(id)).toUtf8();
        if (!database.Run(u"INSERT INTO users (user_id, username, fullname, stationname, descrip, "
                          "ip_addr) VALUES (?, ?, ?, ?, ?, ?)"_s,
                          {++id,
                           QByteArray(user.name),
                           QByteArray(user.name),
                           QByteArray(user.station),
                           QByteArray(user.rule),
                           address})) {
            return false;
        }
    }
    return true;
}

bool AddRules(DirectConnection &database)
{
    for (const QString &statement : RuleStatements()) {
        if (!database.Run(statement)) {
            return false;
        }
    }
    return true;
}

} // namespace

QString LabAddress(size_t place)
{
    return u"10.77.0.%1"_s.arg(place + 1);
}

std::optional<QString> FillWithLabUsers(const QString &dsn)
{
    DirectConnection database;
    const bool filled = database.Open(dsn) && database.Begin() && AddUsers(database)
        && AddRules(database) && database.Commit();
    return filled ? std::nullopt : std::optional(database.Error());
}
