// The benchmarks of the reports, by what they look at; each adds what it promises.
#pragma once

#include "support/promise.h"

#include <QStringList>

struct Promises
{
    std::vector<Promise> ratios;
    std::vector<Bound> bounds;
};

// The shortest counts: a shared machine's speed changes by a third from one run to the next.
constexpr int kRunsOfRatio = 2;

// Runs the command; its time is the CPU time of the program and of the engine's server that works for it.
void Measure(benchmark::State &state, const QStringList &command, const QString &engine);

void AddRows(Promises &promises); // summing and streaming, against the engines' clients
void AddStatements(Promises &promises); // of 10 000 users, against a report over the same rows
void AddPages(Promises &promises); // long PDF files
void AddWindow(Promises &promises); // the preview: first page, gaps, Cancel
void AddWriters(Promises &promises); // what others write while a report runs
