// PDF files of thousands of pages.
#include "reports/benchmarks.h"
#include "reports/output.h"
#include "reports/report_data.h"
#include "reports/report_pages.h"
#include "support/must.h"
#include "support/spent.h"

#include <QCoreApplication>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

const auto kEngine = u"sqlite"_s;

struct Length
{
    const char *name;
    int users;
    int days;
};

constexpr Length kFew {"PDF of 5 pages", 1, 250};
constexpr Length kMany {"PDF of 500 pages, a page", 25, 1'010};
constexpr Length kVeryMany {"PDF of 10 000 pages, a page", 26, 20'000};

QString Output()
{
    static const QTemporaryDir folder;
    return folder.filePath(u"pages.pdf"_s);
}

void TimePages(benchmark::State &state, const Length &length)
{
    RunControl control;
    ReportProblem problem;
    const auto request =
        RequestOn(kEngine, u"traffordays"_s, DetailedQuery(length.users, length.days));
    const auto table = MakeReport(request, control, problem);
    if (!table) {
        Fail(problem.text);
    }
    const int pages = ReportPages(table).Count();
    for ([[maybe_unused]] auto _ : state) {
        const double before = OwnSeconds();
        if (!WriteReport(table, Output(), control, problem)) {
            Fail(problem.text);
        }
        state.SetIterationTime((OwnSeconds() - before) / pages);
        state.counters["pages"] = pages;
    }
}

double PeakOf(const Length &length)
{
    return RunAndMeasure({QCoreApplication::applicationDirPath() + u"/report_work",
                          u"pdf"_s,
                          LayoutFile(u"traffordays"_s),
                          ReportData(kEngine),
                          DetailedQuery(length.users, length.days),
                          Output()},
                         kEngine)
        .peakMegabytes;
}

void Growth(benchmark::State &state)
{
    for ([[maybe_unused]] auto _ : state) {
        const double few = PeakOf(kFew);
        const double many = PeakOf(kVeryMany);
        state.SetIterationTime(1);
        state.counters["MB of growth"] = many - few;
        state.counters["MB"] = many;
    }
}

} // namespace

void AddPages(Promises &promises)
{
    for (const Length &length : {kMany, kVeryMany}) {
        benchmark::RegisterBenchmark(length.name,
                                     [=](benchmark::State &state) { TimePages(state, length); })
            ->Iterations(1)
            ->Repetitions(kRunsOfRatio)
            ->UseManualTime()
            ->Unit(benchmark::kMillisecond);
    }
    promises.ratios.push_back({kVeryMany.name, kMany.name, 1.15});
    const char *const growth = "PDF of 10 000 pages over 5";
    benchmark::RegisterBenchmark(growth, Growth)->Iterations(1)->UseManualTime();
    promises.bounds.push_back({growth, "MB of growth", 10});
}
