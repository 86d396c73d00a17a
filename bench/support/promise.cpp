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
                for (const auto &[counter, value] : run.counters) {
                    double &most = largest[{run.run_name.function_name, counter}];
                    most = std::max(most, value.value);
                }
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

    [[nodiscard]] double LargestOf(const std::string &name, const std::string &counter) const
    {
        const auto found = largest.find({name, counter});
        return found == largest.end() ? kNever : found->second;
    }

    void PrintCounters() const
    {
        for (const auto &[of, value] : largest) {
            std::printf("%-44s %9.2f %s\n", of.first.c_str(), value, of.second.c_str());
        }
    }

private:
    static constexpr double kNever = std::numeric_limits<double>::infinity();
    std::map<std::string, double> times;
    std::map<std::pair<std::string, std::string>, double> largest; // by benchmark and counter
};

} // namespace

int RunAndCompare(int argc,
                  char **argv,
                  const std::vector<Promise> &promises,
                  int repetitions,
                  const std::vector<Bound> &bounds,
                  const std::vector<Limit> &limits)
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
    reporter.PrintCounters();
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
    for (const auto &[measured, counter, most] : bounds) {
        const double value = reporter.LargestOf(measured, counter);
        const bool good = value <= most;
        kept = kept && good;
        std::printf("%-44s %9.2f %s (at most %g) %s\n",
                    measured.c_str(),
                    value,
                    counter.c_str(),
                    most,
                    good ? "" : "BROKEN");
    }
    for (const auto &[measured, most] : limits) {
        const double time = reporter.Of(measured);
        const bool good = time <= most;
        kept = kept && good;
        std::printf(
            "%-44s %9.2f ms (at most %g) %s\n", measured.c_str(), time, most, good ? "" : "BROKEN");
    }
    return kept ? 0 : 1;
}
