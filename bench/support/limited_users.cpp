#include "support/limited_users.h"

#include "db/direct_connection.h"
#include "db/translation.h"
#include "support/bench_database.h"
#include "support/must.h"

#include <QSet>

namespace {

const char *const kAccounts[] = {
    "DELETE FROM billing",
    "DELETE FROM service_counters",
    "UPDATE users SET monitored = 1, mode = 0, blocked = 0, traflim = 1000000, timelim = 1000000, "
    "trafperiod = 2, timeperiod = 1",
    "UPDATE users SET mode = 1 WHERE user_id % 10 = 0",
    "UPDATE users SET mode = 5 WHERE user_id % 20 = 5",
    "UPDATE users SET mode = 2 WHERE user_id % 20 = 15",
    "UPDATE groups SET mode = 0, blocked = 0",
    "UPDATE groups SET mode = 1, traflim = 100000000 WHERE group_id < 86",
    "INSERT INTO billing (mode, object_id, data, unlimited) "
    "SELECT 2, user_id, 1000000, 1 FROM users WHERE mode = 2",
};

} // namespace

QString LimitedUsers(const QString &engine, int users)
{
    static QSet<QString> prepared;
    const QString dsn = BenchDatabase(engine, users);
    if (!prepared.contains(dsn)) {
        DirectConnection connection;
        Must(connection.Open(dsn), connection);
        for (const char *statement : kAccounts) {
            Must(connection.Run(QString::fromStdString(Translate(connection.Engine(), statement))),
                 connection);
        }
        prepared << dsn;
    }
    return dsn;
}
