#include "reports/report_fixture.h"

#include "db/session.h"
#include "reports/catalogue.h"
#include "reports/wording.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr quint32 kUsers = 9;

void AddUser(quint32 number, const QString &name)
{
    const quint32 modes[] = {1, 2, 4, 5, 2, 0, 1, 4, 2};
    Execute(
        "INSERT INTO users (username, ip_addr, group_id, mode, monitored) VALUES ((?), (?), (?), (?), 1)",
        name,
        u"10.0.0.%1"_s.arg(number),
        quint32 {80 + number % 2},
        modes[number - 1]);
}

void AddUsage(quint32 user, Day day, quint32 period)
{
    const double received = user * 10.25 + day.day;
    Execute("INSERT INTO traffic_use (user_id, group_id, period, current_time, data, senddata) "
            "VALUES ((?), 0, (?), (?), (?), (?))",
            user,
            period,
            day,
            received,
            user * 0.125);
    Execute(
        "INSERT INTO time_use (user_id, period, current_time, data) VALUES ((?), (?), (?), (?))",
        user,
        period,
        day,
        day.day % 5 == 0 ? 0.0 : user * 0.5);
}

void AddCredit(quint32 user, quint32 mode, const QString &date, double amount)
{
    Execute(
        "INSERT INTO billing (mode, object_id, group_id, trafid, time_id, date, data, usage, moneydata, "
        "moneyusage, currencydata, unlimited, expiredday, closed) VALUES ((?), (?), 0, 0, 0, (?), (?), (?), 0, "
        "(?), 1, 0, (?), (?))",
        mode,
        user,
        date,
        amount,
        amount / 4,
        amount / 8,
        u"2026.12.31"_s,
        quint32 {amount > 100});
}

void AddVisits()
{
    for (quint32 site = 1; site <= 12; ++site) {
        Execute("INSERT INTO Sites (sitename, site_ip) VALUES ((?), (?))",
                u"www.example%1.org"_s.arg(site, 2, 10, QChar(u'0')),
                u"203.0.113.%1"_s.arg(site));
        for (quint32 visit = 0; visit < 14 - site; ++visit) {
            Execute("INSERT INTO SiteAccess (user_id, site_id, access_time) VALUES ((?), (?), (?))",
                    1 + visit % kUsers,
                    site,
                    u"2026.11.%1 1%2:30:0%2"_s.arg(10 + visit % 12).arg(visit % 10));
        }
    }
}

} // namespace

QStringList OddNames()
{
    return {u"anna"_s,
            u"O'Hara, \"Frank\""_s,
            u"=1+1"_s,
            u"two\nlines"_s,
            u"\u05d3\u05d5\u05d3"_s, // right to left
            u"<b>&amp;"_s,
            QString(61, u'w') + u"-" + QString(192, u'i'), // the longest text that a column keeps
            u"@Zo\u00eb"_s,
            u"  -blank"_s};
}

void FillReportData()
{
    Execute("INSERT INTO groups (group_id, name) VALUES (81, 'Workshop')");
    quint32 number = 0;
    for (const QString &name : OddNames()) {
        AddUser(++number, name);
        for (const int day : {1, 15, 20, 21}) {
            AddUsage(number, {2026, 11, day}, 0);
        }
        AddUsage(number, {2026, 11, 21}, 1); // records of limits do not count, save for groups
        for (const quint32 mode : {1U, 2U, 4U}) {
            AddCredit(number, mode, u"2026-11-%1 08:30:00"_s.arg(9 + number), number * 25.5);
            AddCredit(number, mode, u"2026-10-0%1 23:59:59"_s.arg(number), number * 12.0);
        }
    }
    AddVisits();
}

ReportRequest RequestFor(const QString &dsn,
                         int row,
                         const ReportPeriod &period,
                         const QString &userClause,
                         const QString &groupClause)
{
    ReportRequest request;
    const QString file =
        ReportCatalogue()[static_cast<size_t>(row)].layoutFile.toString().section(u'\\', 1);
    request.layoutPath = QStringLiteral(TB_SOURCE_DIR "/src/reports/layouts\\") + file;
    request.query = QueryText(row, period, userClause, groupClause);
    request.connectionText = ReportConnectionText(dsn);
    request.period = PeriodInWords(period);
    if (period.choice != PeriodChoice::All) {
        request.firstDay = ExistingDate(period.from);
        request.lastDay = ExistingDate(period.to);
    }
    request.made = QDateTime(QDate(2026, 11, 21), QTime(9, 30));
    return request;
}

ReportTablePtr ReportOf(const ReportRequest &request)
{
    RunControl control;
    ReportProblem problem;
    ReportTablePtr table = MakeReport(request, control, problem);
    EXPECT_TRUE(table) << problem.text.toStdString();
    return table;
}
