// The summary of ten million rows: summed in the database, and from all rows streamed as where that
// cannot be, each against the engine's own client. Time is CPU time of the program and of the server
// that works for it.
#include "db/translation.h"
#include "reports/benchmarks.h"
#include "reports/query_check.h"
#include "reports/report_data.h"
#include "reports/selection.h"
#include "support/bench_database.h"
#include "support/engine_client.h"
#include "support/spent.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSummary = 0; // in the catalogue

QString Spelt(const QString &dsn, const QString &statement)
{
    return QString::fromStdString(Translate(DialectOf(dsn), statement.toStdString()));
}

QString SummaryStatement()
{
    return u"SELECT report.`username`, report.`ip_addr`, SUM(report.`data`), SUM(report.`senddata`), "
           "COUNT(*) FROM (\n"
        + WithoutOrder(StoredQuery(kSummary))
        + u"\n) report GROUP BY report.`username`, report.`ip_addr`";
}

void SumByReport(benchmark::State &state, const QString &engine)
{
    Measure(state,
            ReportCommand(
                ReportData(engine), {u"--report"_s, QString::number(kSummary)}, u"summary.csv"_s),
            engine);
}

void SumByClient(benchmark::State &state, const QString &engine)
{
    const QString dsn = ReportData(engine);
    Measure(state, ClientCommand(engine, dsn, Spelt(dsn, SummaryStatement())), engine);
}

QStringList StreamCommandOfReport(const QString &engine, const QString &query)
{
    return {QCoreApplication::applicationDirPath() + u"/report_work",
            u"stream"_s,
            LayoutFile(u"trafall"_s),
            ReportData(engine),
            query};
}

// Growth counts from the same program with no row to read.
void StreamByReport(benchmark::State &state, const QString &engine)
{
    const QString query = StoredQuery(kSummary);
    const QString ofNothing = QString(query).replace(u"period = 0"_s, u"period = 9"_s);
    const double least =
        RunAndMeasure(StreamCommandOfReport(engine, ofNothing), engine).peakMegabytes;
    Measure(state, StreamCommandOfReport(engine, query), engine);
    state.counters["MB of growth"] = state.counters["MB"] - least;
}

} // namespace

void Measure(benchmark::State &state, const QStringList &command, const QString &engine)
{
    for ([[maybe_unused]] auto _ : state) {
        const Spent spent = RunAndMeasure(command, engine);
        state.SetIterationTime(spent.cpuSeconds + spent.serverSeconds);
        state.counters["own s"] = spent.cpuSeconds;
        state.counters["server s"] = spent.serverSeconds;
        state.counters["MB"] = spent.peakMegabytes;
    }
}

void AddRows(Promises &promises)
{
    for (const char *engine : kBenchEngines) {
        const bool embedded = std::string_view(engine) == kBenchEngines[0];
        const auto name = [engine](const char *what) { return std::string(engine) + ": " + what; };
        const auto add = [&](const char *what, auto function) {
            benchmark::RegisterBenchmark(
                name(what).c_str(),
                [=](benchmark::State &state) { function(state, QString::fromLatin1(engine)); })
                ->Iterations(1)
                ->Repetitions(kRunsOfRatio)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        };
        add("summary, report", SumByReport);
        add("summary, client", SumByClient);
        add("stream, report", StreamByReport);
        promises.ratios.push_back(
            {name("summary, report"), name("summary, client"), embedded ? 1.15 : 1.2});
        promises.ratios.push_back({name("stream, report"), name("summary, client"), 1.8});
        promises.bounds.push_back({name("stream, report"), "MB of growth", 20});
    }
}
