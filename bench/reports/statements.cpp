// A statement for each of 10 000 users in one run, against "Traffic (Detailed)" over the same rows. Time is CPU time
// of the program and of the server that works for it.
#include "reports/benchmarks.h"
#include "reports/catalogue.h"
#include "reports/report_data.h"
#include "support/bench_database.h"
#include "support/usage_rows.h"

#include <QDate>
#include <QSet>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsers = 10'000;
constexpr int kDays = 30;
constexpr int kDetailed = 2; // in the catalogue
const QDate kLastDay(2026, 11, 21);

// A record a day for each user.
QString StatementData(const QString &engine)
{
    static QSet<QString> filled;
    const QString dsn = BenchDatabase(engine, kUsers);
    if (!filled.contains(engine)) {
        FillUsage(engine, dsn, {kUsers * kDays, kLastDay.addDays(1 - kDays), kUsers, kUsers});
        filled << engine;
    }
    return dsn;
}

void MakeReportOf(benchmark::State &state, const QString &engine, int report, const QString &ending)
{
    const QString period = u"%1..%2"_s.arg(kLastDay.addDays(1 - kDays).toString(Qt::ISODate),
                                           kLastDay.toString(Qt::ISODate));
    Measure(state,
            ReportCommand(StatementData(engine),
                          {u"--report"_s, QString::number(report), u"--period"_s, period},
                          u"statements."_s + ending),
            engine);
}

} // namespace

void AddStatements(Promises &promises)
{
    constexpr double kMost = 3;
    const auto add = [&](const char *engine, const char *ending) {
        const auto name = [&](const char *what) {
            return std::string(engine) + ": " + what + ", " + ending;
        };
        for (const auto &[what, report] : {std::pair("10 000 statements", kStatementRow),
                                           std::pair("report 2 on the same rows", kDetailed)}) {
            benchmark::RegisterBenchmark(name(what).c_str(),
                                         [=, row = report](benchmark::State &state) {
                                             MakeReportOf(state,
                                                          QString::fromLatin1(engine),
                                                          row,
                                                          QString::fromLatin1(ending));
                                         })
                ->Iterations(1)
                ->Repetitions(kRunsOfRatio)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        }
        promises.ratios.push_back(
            {name("10 000 statements"), name("report 2 on the same rows"), kMost});
    };
    for (const char *engine : kBenchEngines) {
        add(engine, "csv");
    }
    add(kBenchEngines[0], "pdf");
}
