// What a program and the server that works for it spend.
#pragma once

#include <QStringList>

struct Spent
{
    double cpuSeconds = 0; // of the program
    double serverSeconds = 0; // of the server, all its processes
    double peakMegabytes = 0; // of the program's memory
};

// Runs a program to its end, its output thrown away. Ends this one when it fails.
[[nodiscard]] Spent RunAndMeasure(const QStringList &command, const QString &engine);

// CPU time that a process has used, all its threads, since it began.
[[nodiscard]] double CpuSecondsOf(qint64 process);

// What /proc tells of a process's memory: "VmRSS:" what is resident now, "VmHWM:" the most that ever was.
[[nodiscard]] double MegabytesOf(qint64 process, const char *figure);

// CPU time that an engine's server has used since it began, in all its processes; 0 for the embedded
// engine.
[[nodiscard]] double ServerSeconds(const QString &engine);

// Of this program, all its threads.
[[nodiscard]] double OwnSeconds();
