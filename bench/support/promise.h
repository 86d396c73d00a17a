// A benchmark program's main: runs all benchmarks and holds them against what is promised.
#pragma once

#include <benchmark/benchmark.h>
#include <string>
#include <vector>

// The time of one benchmark is at most `most` times that of another.
struct Promise
{
    std::string measured; // names as they are registered
    std::string reference;
    double most;
};

// What a benchmark counts beside its time is at most `most`, in every run.
struct Bound
{
    std::string measured;
    std::string counter; // as the benchmark names it, its unit included
    double most;
};

// The time of one benchmark is at most `most` milliseconds.
struct Limit
{
    std::string measured;
    double most;
};

// Runs every benchmark so many times in turn, prints the shortest time of each promise's two sides and
// their ratio, the largest number of each bound and the shortest time of each limit. 1 when a promise
// is broken, which is said. Benchmarks with a limit count in milliseconds.
int RunAndCompare(int argc,
                  char **argv,
                  const std::vector<Promise> &promises,
                  int repetitions = 15,
                  const std::vector<Bound> &bounds = {},
                  const std::vector<Limit> &limits = {});
