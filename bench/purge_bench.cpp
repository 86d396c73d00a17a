// A purge by period, through the rules and the session, and by the engine's own command-line client.
#include "admin/purge.h"
#include "db/session.h"
#include "db/translation.h"
#include "support/bench_database.h"
#include "support/engine_client.h"
#include "support/must.h"
#include "support/promise.h"
#include "support/usage_rows.h"

#include <QFile>
#include <QProcess>

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

void Refill(const QString &engine, const QString &dsn)
{
    const int rows = RowsOn(engine);
    FillUsage(engine, dsn, {rows, {2026, 1, 1}, rows / kDays});
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
            if (!RunPurgeStep(step).outcome.IsDone()) {
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

void PurgeByClient(benchmark::State &state, const QString &engine)
{
    const QString dsn = BenchDatabase(engine, 10);
    const QByteArray script = Script(DialectOf(dsn));
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
