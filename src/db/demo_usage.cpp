#include "db/demo_usage.h"

#include "db/row_writer.h"
#include "db/translation.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace {

// Enough rows for one statement; more would only make the engine's log grow.
constexpr int kDayRecordsAtOnce = 500'000;

// The log of visited sites is that of the first users only.
constexpr qint32 kUsersWithSiteAccess = 2000;
constexpr int kHits = 300;

constexpr std::array kSites {"news",
                             "weather",
                             "mail",
                             "maps",
                             "shop",
                             "video",
                             "music",
                             "travel",
                             "wiki",
                             "games",
                             "bank",
                             "library"};

QByteArray DayText(QDate day)
{
    return day.toString(Qt::ISODate).toLatin1();
}

} // namespace

// The days as a table, so that the engine can multiply it with the users. A weekend counts little.
bool DemoUsage::MakeCalendar()
{
    if (!Run(u"CREATE TEMPORARY TABLE demo_days (day_no INTEGER PRIMARY KEY, day DATE NOT NULL, "
             "stamp TIMESTAMP NOT NULL, weight INTEGER NOT NULL)"_s)
        || !database.Begin()) {
        return false;
    }
    RowWriter calendar(database, "demo_days", "day_no, day, stamp, weight");
    for (int number = days - 1; number >= 0; --number) {
        const QDate day = today.addDays(-number);
        const int weight = day.dayOfWeek() > 5 ? 2 : 8 + number * 7 % 9;
        const QByteArray clock = u" %1:%2:00"_s.arg(9 + number % 8, 2, 10, QChar(u'0'))
                                     .arg(number * 7 % 60, 2, 10, QChar(u'0'))
                                     .toLatin1();
        calendar.Add({number, DayText(day), DayText(day) + clock, weight});
    }
    return calendar.Finish() && database.Commit();
}

// Megabytes and hours in hundredths; the products stay below 2^31, which one of the engines minds.
bool DemoUsage::MakeDayRecords(const std::function<void(QString)> &report)
{
    const auto range = database.Rows(u"SELECT MIN(user_id), MAX(user_id) FROM users"_s);
    if (!MakeCalendar() || !range || range->isEmpty()) {
        return false;
    }
    const int last = range->first()[1].toInt();
    const int step = std::max(1, kDayRecordsAtOnce / days);
    for (int first = range->first()[0].toInt(); first <= last; first += step) {
        const SqlValues users {first, std::min(last, first + step - 1)};
        const bool made =
            Run(u"INSERT INTO traffic_use (user_id, period, current_time, data, senddata) "
                "SELECT u.user_id, 0, d.day, "
                "d.weight * (5 + u.user_id % 97) * (1 + (u.user_id % 1009 * 31 + d.day_no * 17) % 50) "
                "/ 100.0, "
                "d.weight * (5 + u.user_id % 89) * (1 + (u.user_id % 1009 * 7 + d.day_no * 29) % 10) "
                "/ 100.0 "
                "FROM users u CROSS JOIN demo_days d WHERE u.user_id BETWEEN (?) AND (?) "
                "AND (d.day_no = 0 OR (u.user_id % 1013 * 13 + d.day_no * 7) % 10 < 8) ORDER BY u.user_id, d.day_no"_s,
                users)
            && Run(
                u"INSERT INTO time_use (user_id, period, current_time, data) "
                "SELECT u.user_id, 0, d.day, "
                "d.weight * (1 + (u.user_id % 1009 * 23 + d.day_no * 11) % 50) / 100.0 "
                "FROM users u CROSS JOIN demo_days d WHERE u.user_id BETWEEN (?) AND (?) "
                "AND (d.day_no = 0 OR (u.user_id % 1013 * 13 + d.day_no * 7) % 10 < 8) ORDER BY u.user_id, d.day_no"_s,
                users);
        if (!made) {
            return false;
        }
        report(u"usage of users up to %1 of %2"_s.arg(std::min(last, first + step - 1)).arg(last));
    }
    return true;
}

// The service keeps such a record for each limit: one a day, or one for the month.
bool DemoUsage::MakeAccountingRecords()
{
    const QString week = QString::fromLatin1(DayText(today.addDays(-6)));
    return RunAll(
        {u"INSERT INTO traffic_use (user_id, period, current_time, data, senddata) "
         "SELECT u.user_id, 1, t.current_time, t.data, t.senddata FROM users u "
         "INNER JOIN traffic_use t ON t.user_id = u.user_id AND t.period = 0 "
         "AND t.current_time >= '%1' WHERE u.mode IN (1, 5) AND u.trafperiod = 1 "
         "ORDER BY u.user_id, t.current_time"_s.arg(week),
         u"INSERT INTO traffic_use (user_id, period, current_time, data, senddata) "
         "SELECT u.user_id, 2, MIN(t.current_time), SUM(t.data), SUM(t.senddata) FROM users u "
         "INNER JOIN traffic_use t ON t.user_id = u.user_id AND t.period = 0 "
         "AND t.current_time >= '%1' WHERE u.mode IN (1, 5) AND u.trafperiod = 2 "
         "GROUP BY u.user_id ORDER BY u.user_id"_s.arg(FirstOfMonth()),
         u"INSERT INTO traffic_use (group_id, period, current_time, data, senddata) "
         "SELECT g.group_id, 2, MIN(t.current_time), SUM(t.data), SUM(t.senddata) FROM groups g "
         "INNER JOIN users u ON u.group_id = g.group_id "
         "INNER JOIN traffic_use t ON t.user_id = u.user_id AND t.period = 0 "
         "AND t.current_time >= '%1' WHERE g.mode = 1 GROUP BY g.group_id ORDER BY g.group_id"_s
             .arg(FirstOfMonth()),
         u"INSERT INTO time_use (user_id, period, current_time, data) "
         "SELECT u.user_id, 1, t.current_time, t.data FROM users u "
         "INNER JOIN time_use t ON t.user_id = u.user_id AND t.period = 0 "
         "AND t.current_time >= '%1' WHERE u.mode IN (4, 5) AND u.timeperiod = 1 "
         "ORDER BY u.user_id, t.current_time"_s.arg(week),
         u"INSERT INTO time_use (user_id, period, current_time, data) "
         "SELECT u.user_id, 2, MIN(t.current_time), SUM(t.data) FROM users u "
         "INNER JOIN time_use t ON t.user_id = u.user_id AND t.period = 0 "
         "AND t.current_time >= '%1' WHERE u.mode IN (4, 5) AND u.timeperiod = 2 "
         "GROUP BY u.user_id ORDER BY u.user_id"_s.arg(FirstOfMonth())});
}

// A credit that extends a limit is used up first of all by what exceeds the limit. Users in the
// provider mode each have an open credit, and some have one that is used up.
bool DemoUsage::MakeCredits()
{
    const QString day = QString::fromLatin1(DayText(today));
    const QString expiry = today.addDays(60).toString(u"yyyy.MM.dd"_s);
    const QString someDay =
        u"INNER JOIN demo_days d ON d.day_no = u.user_id % %1 "_s.arg(std::min(days, today.day()));
    const QString anyDay = u"INNER JOIN demo_days d ON d.day_no = u.user_id % %1 "_s.arg(days);
    return RunAll(
        {u"INSERT INTO billing (mode, trafid, object_id, date, data, usage, closed) "
         "SELECT 1, t.traf_id, u.user_id, d.stamp, 500, "
         "CASE WHEN t.data <= u.traflim THEN 0 WHEN t.data >= u.traflim + 500 THEN 500 "
         "ELSE t.data - u.traflim END, CASE WHEN t.data >= u.traflim + 500 THEN 1 ELSE 0 END "
         "FROM users u INNER JOIN traffic_use t ON t.user_id = u.user_id AND t.period = u.trafperiod "
         "%1WHERE u.mode IN (1, 5) AND u.user_id % 4 = 0 "
         "AND (t.period = 2 OR t.current_time = '%2') ORDER BY u.user_id"_s.arg(someDay, day),
         u"INSERT INTO billing (mode, time_id, object_id, date, data, usage, closed) "
         "SELECT 4, t.time_id, u.user_id, d.stamp, 10, "
         "CASE WHEN t.data <= u.timelim THEN 0 WHEN t.data >= u.timelim + 10 THEN 10 "
         "ELSE t.data - u.timelim END, CASE WHEN t.data >= u.timelim + 10 THEN 1 ELSE 0 END "
         "FROM users u INNER JOIN time_use t ON t.user_id = u.user_id AND t.period = u.timeperiod "
         "%1WHERE u.mode IN (4, 5) AND u.user_id % 4 = 0 "
         "AND (t.period = 2 OR t.current_time = '%2') ORDER BY u.user_id"_s.arg(someDay, day),
         u"INSERT INTO billing (mode, object_id, date, moneydata, moneyusage, usage, currencydata, "
         "unlimited, closed) SELECT 2, u.user_id, d.stamp, 20, 20, 400, 1, 1, 1 "
         "FROM users u %1WHERE u.mode = 2 AND u.user_id % 2 = 0 ORDER BY u.user_id"_s.arg(anyDay),
         u"INSERT INTO billing (mode, object_id, date, data, usage, currencydata, unlimited) "
         "SELECT 2, u.user_id, d.stamp, 5000, u.user_id % 50 * 90, 1, 1 "
         "FROM users u %1WHERE u.mode = 2 AND u.user_id % 3 = 0 ORDER BY u.user_id"_s.arg(anyDay),
         u"INSERT INTO billing (mode, object_id, date, moneydata, moneyusage, usage, currencydata, "
         "unlimited, expiredday) SELECT 2, u.user_id, d.stamp, 25, u.user_id % 24, "
         "u.user_id % 24 * 40, 1, 0, '%2' "
         "FROM users u %1WHERE u.mode = 2 AND u.user_id % 3 = 1 ORDER BY u.user_id"_s.arg(anyDay,
                                                                                          expiry),
         u"INSERT INTO billing (mode, object_id, date, unlimited) SELECT 2, u.user_id, d.stamp, 1 "
         "FROM users u %1WHERE u.mode = 2 AND u.user_id % 3 = 2 ORDER BY u.user_id"_s.arg(anyDay),
         u"INSERT INTO billing (mode, trafid, group_id, date, data) "
         "SELECT 1, t.traf_id, t.group_id, d.stamp, 5000 FROM traffic_use t "
         "INNER JOIN demo_days d ON d.day_no = 0 WHERE t.group_id IS NOT NULL AND t.period = 2 ORDER BY t.group_id"_s,
         u"INSERT INTO billing (mode, group_id, date, data, usage, currencydata, unlimited) "
         "SELECT 2, g.group_id, d.stamp, 50000, 12500, 1, 1 FROM groups g "
         "INNER JOIN demo_days d ON d.day_no = 0 WHERE g.mode = 2 ORDER BY g.group_id"_s});
}

bool DemoUsage::BlockWhoUsedUpTheirLimit()
{
    const QString day = QString::fromLatin1(DayText(today));
    return RunAll(
        {u"UPDATE traffic_use SET blocked = 1 WHERE period IN (1, 2) AND EXISTS (SELECT 1 FROM users u "
         "WHERE u.user_id = traffic_use.user_id AND u.mode IN (1, 5) "
         "AND u.trafperiod = traffic_use.period AND traffic_use.data >= u.traflim) "
         "AND NOT EXISTS (SELECT 1 FROM billing b WHERE b.trafid = traffic_use.traf_id "
         "AND b.closed = 0)"_s,
         u"UPDATE time_use SET blocked = 1 WHERE period IN (1, 2) AND EXISTS (SELECT 1 FROM users u "
         "WHERE u.user_id = time_use.user_id AND u.mode IN (4, 5) "
         "AND u.timeperiod = time_use.period AND time_use.data >= u.timelim) "
         "AND NOT EXISTS (SELECT 1 FROM billing b WHERE b.time_id = time_use.time_id "
         "AND b.closed = 0)"_s,
         u"UPDATE users SET blocked = 1, blockreason = 1 WHERE blocked = 0 AND mode IN (1, 5) "
         "AND EXISTS (SELECT 1 FROM traffic_use t WHERE t.user_id = users.user_id "
         "AND t.period = users.trafperiod AND t.blocked = 1 "
         "AND (t.period = 2 OR t.current_time = '%1'))"_s.arg(day),
         u"UPDATE users SET blocked = 1, blockreason = 2 WHERE blocked = 0 AND mode IN (4, 5) "
         "AND EXISTS (SELECT 1 FROM time_use t WHERE t.user_id = users.user_id "
         "AND t.period = users.timeperiod AND t.blocked = 1 "
         "AND (t.period = 2 OR t.current_time = '%1'))"_s.arg(day)});
}

// Nobody knows the logins' passwords: their digests belong to none.
bool DemoUsage::MakeRestrictionsAndLogins()
{
    return RunAll({u"INSERT INTO Time_blocked (user_id, dayofweek, timestart, timestop) "
                   "SELECT user_id, 1 + user_id % 7, '18:00:00', '23:30:00' FROM users "
                   "WHERE TimeAccess = true"_s,
                   u"INSERT INTO Time_blocked (user_id, dayofweek, timestart, timestop) "
                   "SELECT user_id, 1 + user_id % 7, '08:30:00', '12:00:00' FROM users "
                   "WHERE TimeAccess = true AND user_id % 2 = 0"_s,
                   u"INSERT INTO Port_blocked (user_id, port_id) SELECT u.user_id, p.port_id "
                   "FROM users u INNER JOIN Ports p ON p.proto_id = 1 + u.user_id % 15 "
                   "WHERE u.PortAccess = true"_s,
                   u"INSERT INTO Logins (login, Pwd, userid, LimitPC, LimitIP, AllowStats) "
                   "SELECT username, '0f343b0931126a20f133d67c2b018a3b', user_id, "
                   "CASE WHEN user_id % 3 = 0 THEN 1 ELSE 0 END, "
                   "CASE WHEN user_id % 3 = 0 THEN ip_addr ELSE '' END, user_id % 2 FROM users "
                   "WHERE authreq = 1 OR user_id % 10 = 0"_s});
}

bool DemoUsage::MakeSiteAccess()
{
    if (!Run(u"CREATE TEMPORARY TABLE demo_hits (hit_no INTEGER PRIMARY KEY, "
             "sitename VARCHAR(255) NOT NULL, access_time VARCHAR(255) NOT NULL)"_s)
        || !database.Begin()) {
        return false;
    }
    RowWriter sites(database, "sites", "sitename, site_ip");
    for (size_t index = 0; index < kSites.size(); ++index) {
        sites.Add({QByteArray("www.") + kSites[index] + ".example",
                   "203.0.113." + QByteArray::number(static_cast<int>(index) + 10)});
    }
    if (!sites.Finish()) {
        return false;
    }
    RowWriter hits(database, "demo_hits", "hit_no, sitename, access_time");
    for (int hit = 0; hit < kHits; ++hit) {
        const QDateTime time(today.addDays(-(hit % std::min(days, 30))),
                             QTime(8 + hit % 10, hit * 7 % 60, hit * 13 % 60));
        const auto site = static_cast<size_t>(hit * hit / 7) % kSites.size();
        hits.Add({hit,
                  QByteArray("www.") + kSites[site] + ".example",
                  time.toString(u"yyyy.MM.dd HH:mm:ss"_s).toLatin1()});
    }
    return hits.Finish() && database.Commit()
        && Run(u"INSERT INTO SiteAccess (user_id, site_id, access_time) "
               "SELECT u.user_id, s.site_id, h.access_time FROM users u CROSS JOIN demo_hits h "
               "INNER JOIN Sites s ON s.sitename = h.sitename WHERE u.user_id <= (?) "
               "AND (u.user_id * 31 + h.hit_no * 17) % 16 = 0"_s,
               {kUsersWithSiteAccess});
}

bool DemoUsage::RunAll(std::initializer_list<QString> statements)
{
    return std::all_of(statements.begin(), statements.end(), [this](const QString &statement) {
        return Run(statement);
    });
}

bool DemoUsage::Run(const QString &statement, const SqlValues &values)
{
    const std::string spelled = Translate(database.Engine(), statement.toStdString());
    return database.Run(QString::fromStdString(spelled), values);
}

QString DemoUsage::FirstOfMonth() const
{
    return QString::fromLatin1(DayText({today.year(), today.month(), 1}));
}
