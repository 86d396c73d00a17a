// The accounting service as the program that it is, on the gateway of a laboratory, with a message bus and
// settings of its own.
#pragma once

#include "config/config_store.h"

#include <QDBusConnection>
#include <QProcess>
#include <QTemporaryDir>

class RunningService
{
public:
    static constexpr int kPeriodSeconds = 2; // between two counts

    // Returns once it counts on the data source, whose users' addresses are those of the network `local`
    // with `mask`. Ends the program when it does not come to that.
    RunningService(const QString &dsn, quint32 local, quint32 mask);
    // Stops it in an orderly way: it leaves nothing in the kernel.
    ~RunningService();
    RunningService(const RunningService &) = delete;
    RunningService &operator=(const RunningService &) = delete;

    // Waits until it has counted so many times, but calls `meanwhile` ten times a second.
    void AwaitCounts(int counts, const std::function<void()> &meanwhile);

    [[nodiscard]] double CpuSeconds() const; // of all its threads, since it began
    [[nodiscard]] double ResidentMegabytes() const;
    [[nodiscard]] double PeakMegabytes() const; // the most that was ever resident

private:
    void StartBus();
    void WriteSettings(const QString &dsn, quint32 local, quint32 mask) const;
    void StartService();
    [[nodiscard]] QString LastCount() const;

    QTemporaryDir folder;
    ConfigStore store {folder.filePath(QStringLiteral("config"))};
    QProcess busDaemon;
    QString busAddress;
    QDBusConnection bus {QString()};
    QProcess service;
};
