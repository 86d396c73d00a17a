#include "support/promise.h"

#include <QCoreApplication>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <map>
#include <optional>

namespace {

// The shortest of a benchmark's runs is the one that the rest of the machine disturbed least.
class Shortest : public benchmark::ConsoleReporter
{
public:
    bool ReportContext(const Context &) override { return true; }

    void ReportRuns(const std::vector<Run> &runs) override
    {
        for (const Run &run : runs) {
            if (run.run_type == Run::RT_Iteration && !run.error_occurred) {
                double &shortest =
                    times.try_emplace(run.run_name.function_name, kNever).first->second;
                shortest = std::min(shortest, run.GetAdjustedRealTime());
            } else if (run.error_occurred) {
                std::fprintf(
                    stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
            }
        }
    }

    [[nodiscard]] double Of(const std::string &name) const
    {
        const auto found = times.find(name);
        return found == times.end() ? kNever : found->second;
    }

private:
    static constexpr double kNever = std::numeric_limits<double>::infinity();
    std::map<std::string, double> times;
};

} // namespace

int RunAndCompare(int argc, char **argv, const std::vector<Promise> &promises, int repetitions)
{
    std::optional<QCoreApplication> application;
    if (QCoreApplication::instance() == nullptr) {
        application.emplace(argc, argv);
    }
    std::vector<char *> arguments(argv, argv + argc);
    std::string times = "--benchmark_repetitions=" + std::to_string(repetitions);
    char interleaving[] = "--benchmark_enable_random_interleaving=true";
    char shortest[] = "--benchmark_min_time=0.05";
    arguments.insert(arguments.begin() + 1, {times.data(), interleaving, shortest});
    auto count = static_cast<int>(arguments.size());
    benchmark::Initialize(&count, arguments.data());
    Shortest reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    bool kept = true;
    for (const auto &[measured, reference, most] : promises) {
        const double ratio = reporter.Of(measured) / reporter.Of(reference);
        const bool good = ratio <= most;
        kept = kept && good;
        std::printf("%-44s %9.3f ms  %-44s %9.3f ms  ratio %5.2f (at most %.2f) %s\n",
                    measured.c_str(),
                    reporter.Of(measured),
                    reference.c_str(),
                    reporter.Of(reference),
                    ratio,
                    most,
                    good ? "" : "BROKEN");
    }
    return kept ? 0 : 1;
}
