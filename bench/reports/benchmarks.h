// The benchmarks of the reports, by what they look at; each adds what it promises.
#pragma once

#include "support/promise.h"

struct Promises
{
    std::vector<Promise> ratios;
    std::vector<Bound> bounds;
};

// The shortest counts: a shared machine's speed changes by a third from one run to the next.
constexpr int kRunsOfRatio = 2;

void AddRows(Promises &promises); // summing and streaming, against the engines' clients
void AddPages(Promises &promises); // long PDF files
void AddWindow(Promises &promises); // the preview: first page, gaps, Cancel
void AddWriters(Promises &promises); // what others write while a report runs
