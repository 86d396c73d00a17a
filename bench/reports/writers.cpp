// The accounting service goes on writing into the embedded database while a report reads it.
#include "db/failure_log.h"
#include "db/session.h"
#include "reports/benchmarks.h"
#include "reports/report_data.h"
#include "support/must.h"

#include <QElapsedTimer>

#include <thread>

using namespace Qt::StringLiterals;

namespace {

void WriteMeanwhile(benchmark::State &state)
{
    const auto request = RequestOn(u"sqlite"_s, u"trafall"_s);
    ConnectDatabase(ReportData(u"sqlite"_s).toUtf8().constData());
    for ([[maybe_unused]] auto _ : state) {
        FailureLog::Instance().Clear();
        std::atomic<bool> reported = false;
        std::thread report([&] {
            RunControl control;
            ReportProblem problem;
            if (!MakeReport(request, control, problem)) {
                Fail(problem.text);
            }
            reported = true;
        });
        int writes = 0;
        double longest = 0;
        for (; !reported; ++writes) {
            QElapsedTimer watch;
            watch.start();
            Execute("UPDATE traffic_use SET data = data + 1 WHERE traf_id = (?)",
                    static_cast<quint32>(1 + writes % kReportRows));
            longest = std::max(longest, 1e-6 * static_cast<double>(watch.nsecsElapsed()));
        }
        report.join();
        state.counters["writes"] = writes;
        state.counters["refused"] = FailureLog::Instance().Count();
        state.counters["ms for one"] = longest;
    }
    DisconnectDatabase();
}

} // namespace

void AddWriters(Promises &promises)
{
    const char *const name = "writes while a report runs";
    benchmark::RegisterBenchmark(name, WriteMeanwhile)->Iterations(1);
    promises.bounds.push_back({name, "refused", 0});
}
