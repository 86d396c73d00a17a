#include "reports/report_data.h"

#include "config/config_store.h"
#include "reports/selection.h"
#include "support/bench_database.h"
#include "support/must.h"
#include "support/usage_rows.h"

#include <QCoreApplication>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsers = 500;
constexpr int kDetailed = 2; // in the catalogue
const QDate kLastDay(2026, 11, 21);

// No report over everything uses them, and the filling takes several times as long with them.
void DropIndexes(const QString &engine, const QString &dsn)
{
    DirectConnection connection;
    Must(connection.Open(dsn), connection);
    for (const QString &index : {u"user"_s, u"group"_s, u"day"_s}) {
        const QString of = engine == u"mariadb" ? u" ON traffic_use"_s : QString();
        Must(connection.Run(u"DROP INDEX traffic_use_"_s + index + of), connection);
    }
}

// What the engine knows of the rows decides how it runs a report, and its own upkeep would disturb.
void Settle(const QString &engine, const QString &dsn)
{
    DirectConnection connection;
    Must(connection.Open(dsn), connection);
    const QString statement = engine == u"postgresql" ? u"VACUUM (FREEZE, ANALYZE) traffic_use"_s
        : engine == u"mariadb"                        ? u"ANALYZE TABLE traffic_use"_s
                                                      : u"ANALYZE"_s;
    Must(connection.Run(statement), connection);
}

// Where tollbrook-report finds the layouts.
QString Settings()
{
    static const QTemporaryDir folder;
    if (const ConfigStore config(folder.path()); config.CreateKey(ConfigKeyId::Base)) {
        config.WriteText(values::kPath, folder.path() + u'/');
        QFile::link(QStringLiteral(TB_SOURCE_DIR "/src/reports/layouts"),
                    folder.filePath(u"reports"_s));
    }
    return folder.path();
}

} // namespace

QString ReportData(const QString &engine)
{
    static QSet<QString> filled;
    const QString dsn = BenchDatabase(engine, kUsers);
    if (!filled.contains(engine)) {
        DropIndexes(engine, dsn);
        FillUsage(engine, dsn, {kReportRows, kLastDay.addDays(1 - kReportRows / kUsers), kUsers});
        Settle(engine, dsn);
        filled << engine;
    }
    return dsn;
}

QString LayoutFile(const QString &name)
{
    const QString own = QStringLiteral(TB_SOURCE_DIR "/bench/reports/%1.rpt").arg(name);
    return QFile::exists(own)
        ? own
        : QStringLiteral(TB_SOURCE_DIR "/src/reports/layouts/%1.rpt").arg(name);
}

ReportRequest RequestOn(const QString &engine, const QString &layout, const QString &query)
{
    ReportRequest request;
    request.layoutPath = LayoutFile(layout);
    request.connectionText = ReportConnectionText(ReportData(engine));
    request.query = query;
    request.period = u"all"_s;
    return request;
}

QString DetailedQuery(int users, int days)
{
    const ReportPeriod period {
        PeriodChoice::Custom, DayOf(kLastDay.addDays(1 - days)), DayOf(kLastDay)};
    return QueryText(kDetailed, period, u" and users.user_id <= %1"_s.arg(users), {});
}

QStringList ReportCommand(const QString &dsn, const QStringList &options, const QString &fileName)
{
    return QStringList {QCoreApplication::applicationDirPath() + u"/../bin/tollbrook-report",
                        u"--config"_s,
                        Settings(),
                        u"--dsn"_s,
                        dsn,
                        u"--output"_s,
                        Settings() + u'/' + fileName}
    + options;
}
