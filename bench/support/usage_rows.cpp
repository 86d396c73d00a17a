#include "support/usage_rows.h"

#include "support/must.h"

using namespace Qt::StringLiterals;

namespace {

QString FillStatement(const QString &engine, const UsageRows &rows)
{
    const QString values = u"SELECT 1 + n % %1, 0, %2, 1.25 * (1 + n % 97), 0.5 * (n % 31) FROM "_s;
    const QString day = rows.firstDay.toString(Qt::ISODate);
    if (engine == u"sqlite"_s) {
        return values.arg(rows.users)
                   .arg(u"date('%1', '+' || (n / %2) || ' days')"_s.arg(day).arg(rows.perDay))
            + u"(WITH RECURSIVE c(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM c WHERE n < %1) "
              "SELECT n FROM c)"_s.arg(rows.count - 1);
    }
    if (engine == u"postgresql"_s) {
        return values.arg(rows.users).arg(u"DATE '%1' + n / %2"_s.arg(day).arg(rows.perDay))
            + u"generate_series(0, %1) AS n"_s.arg(rows.count - 1);
    }
    return values.arg(rows.users).arg(u"'%1' + INTERVAL (n DIV %2) DAY"_s.arg(day).arg(rows.perDay))
        + u"(SELECT seq AS n FROM seq_0_to_%1) numbers"_s.arg(rows.count - 1);
}

} // namespace

void FillUsage(const QString &engine, const QString &dsn, const UsageRows &rows)
{
    const QString day = engine == u"mariadb"_s ? u"`current_time`"_s : u"\"current_time\""_s;
    DirectConnection connection;
    Must(connection.Open(dsn), connection);
    Must(connection.Run(u"DELETE FROM traffic_use"_s), connection);
    Must(connection.Run(u"INSERT INTO traffic_use (user_id, period, %1, data, senddata) "_s.arg(day)
                        + FillStatement(engine, rows)),
         connection);
    if (engine == u"sqlite"_s) {
        Must(connection.Run(u"PRAGMA wal_checkpoint(TRUNCATE)"_s), connection);
    }
}
