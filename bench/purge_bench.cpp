// A purge by period, through the rules and the session, and by the engine's own command-line client.
#include "admin/purge.h"
#include "db/dialect.h"
#include "db/direct_connection.h"
#include "db/session.h"
#include "support/bench_database.h"
#include "support/promise.h"
#include "support/servers/server_section.h"

#include <QFile>
#include <QProcess>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDays = 200;

// The embedded engine carries the large purge; the servers' data is made anew for each run.
int RowsOn(const QString &engine)
{
    return engine == u"sqlite"_s ? 10'000'000 : 1'000'000;
}

// Half of the days go.
std::vector<PurgeStep> Steps()
{
    const PurgeChoice choice {PurgeChoice::Keep::Custom, false, {2026, 4, 11}, {2026, 12, 31}};
    return PurgeSteps(choice, {2026, 11, 21});
}

[[noreturn]] void Fail(const QString &problem)
{
    std::fprintf(stderr, "%s\n", qPrintable(problem));
    std::exit(2);
}

void Must(bool done, const DirectConnection &connection)
{
    if (!done) {
        Fail(connection.Error());
    }
}

QString FillStatement(const QString &engine)
{
    const int rows = RowsOn(engine);
    const int perDay = rows / kDays;
    if (engine == u"sqlite"_s) {
        return u"INSERT INTO traffic_use (user_id, period, \"current_time\", data, senddata) "
               "SELECT 1 + n % 500, 0, date('2026-01-01', '+' || (n / %1) || ' days'), 1.5, 0.5 "
               "FROM (WITH RECURSIVE c(n) AS (SELECT 0 UNION ALL SELECT n + 1 FROM c "
               "WHERE n < %2) SELECT n FROM c)"_s.arg(perDay)
                   .arg(rows - 1);
    }
    if (engine == u"postgresql"_s) {
        return u"INSERT INTO traffic_use (user_id, period, \"current_time\", data, senddata) "
               "SELECT 1 + n % 500, 0, DATE '2026-01-01' + n / %1, 1.5, 0.5 "
               "FROM generate_series(0, %2) AS n"_s.arg(perDay)
                   .arg(rows - 1);
    }
    return u"INSERT INTO traffic_use (user_id, period, `current_time`, data, senddata) "
           "SELECT 1 + seq % 500, 0, '2026-01-01' + INTERVAL (seq DIV %1) DAY, 1.5, 0.5 "
           "FROM seq_0_to_%2"_s.arg(perDay)
               .arg(rows - 1);
}

const Dialect &EngineOf(const QString &dsn)
{
    DirectConnection connection;
    Must(connection.Open(dsn), connection);
    return connection.Engine();
}

QString SqliteFile(const QString &dsn)
{
    DirectConnection connection;
    Must(connection.Open(dsn), connection);
    return connection.Rows(u"PRAGMA database_list"_s)->constFirst().at(2);
}

void Refill(const QString &engine, const QString &dsn)
{
    DirectConnection connection;
    Must(connection.Open(dsn), connection);
    Must(connection.Run(u"DELETE FROM traffic_use"_s), connection);
    Must(connection.Run(FillStatement(engine)), connection);
    if (engine == u"sqlite"_s) {
        Must(connection.Run(u"PRAGMA wal_checkpoint(TRUNCATE)"_s), connection);
    }
}

// Puts the rows to purge into the database: a copy of a file, or a table filled anew.
void Prepare(const QString &engine, const QString &dsn)
{
    if (engine != u"sqlite"_s) {
        Refill(engine, dsn);
        return;
    }
    static const QString file = SqliteFile(dsn);
    static const QString kept = [&]() -> QString {
        Refill(engine, dsn);
        QFile::copy(file, file + u".kept"_s);
        return file + u".kept"_s;
    }();
    for (const QString &ending : {u""_s, u"-wal"_s, u"-shm"_s}) {
        QFile::remove(file + ending);
    }
    if (!QFile::copy(kept, file)) {
        Fail(u"The database file cannot be copied."_s);
    }
}

void PurgeByRules(benchmark::State &state, const QString &engine)
{
    const QString dsn = BenchDatabase(engine, 10);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        Prepare(engine, dsn);
        ConnectDatabase(dsn.toUtf8().constData());
        state.ResumeTiming();
        for (const PurgeStep &step : Steps()) {
            if (!RunPurgeStep(step)) {
                Fail(u"A purge statement failed."_s);
            }
        }
        state.PauseTiming();
        DisconnectDatabase();
        state.ResumeTiming();
    }
}

// The same statements as a script, each with its day in place of the marker.
QByteArray Script(const Dialect &dialect)
{
    QString script;
    for (const PurgeStep &step : Steps()) {
        const QString day = ExistingDate(*step.day).toString(u"yyyy/MM/dd"_s);
        QString statement = QString::fromLatin1(step.statement);
        statement.replace(u"(?)"_s, u"#%1#"_s.arg(day));
        script += QString::fromStdString(Translate(dialect, statement.toStdString())) + u";\n"_s;
    }
    return script.toUtf8();
}

QString Setting(const QString &section, const QString &name)
{
    return section.section(name + u'=', 1).section(u'\n', 0, 0).trimmed();
}

QStringList ClientCommand(const QString &engine, const QString &dsn)
{
    if (engine == u"sqlite"_s) {
        return {u"sqlite3"_s, u"-cmd"_s, u"PRAGMA synchronous=NORMAL"_s, SqliteFile(dsn)};
    }
    const QString section = ServerSection(engine).value_or(QString());
    if (engine == u"postgresql"_s) {
        return {
            u"psql"_s,
            u"--quiet"_s,
            u"postgresql://system:%1@/%2?host=%3&port=%4"_s.arg(Setting(section, u"Password"_s),
                                                                dsn,
                                                                Setting(section, u"Servername"_s),
                                                                Setting(section, u"Port"_s))};
    }
    return {u"mariadb"_s,
            u"--no-defaults"_s,
            u"--user=system"_s,
            u"--password="_s + Setting(section, u"Password"_s),
            u"--socket="_s + Setting(section, u"Socket"_s),
            dsn};
}

void PurgeByClient(benchmark::State &state, const QString &engine)
{
    const QString dsn = BenchDatabase(engine, 10);
    const QByteArray script = Script(EngineOf(dsn));
    QStringList command = ClientCommand(engine, dsn);
    const QString program = command.takeFirst();
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        Prepare(engine, dsn);
        state.ResumeTiming();
        QProcess client;
        client.start(program, command);
        client.write(script);
        client.closeWriteChannel();
        if (!client.waitForFinished(-1) || client.exitCode() != 0) {
            Fail(QString::fromUtf8(client.readAllStandardError()));
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<Promise> promises;
    for (const char *engine : kBenchEngines) {
        const auto name = [engine](const char *what) { return std::string(engine) + ": " + what; };
        const auto add = [&](const char *what, auto function) {
            benchmark::RegisterBenchmark(name(what).c_str(), function, QString::fromLatin1(engine))
                ->Iterations(1)
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond);
        };
        add("purge, rules", PurgeByRules);
        add("purge, client", PurgeByClient);
        promises.push_back({name("purge, rules"), name("purge, client"), 1.2});
    }
    return RunAndCompare(argc, argv, promises, 2);
}
