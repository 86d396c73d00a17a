// The accounting service as the operating system's service manager sees it.
#pragma once

#include <QDBusConnection>
#include <QDateTime>
#include <QString>

#include <optional>

// A timer, and how the service that it starts ended the last time since the machine was started.
struct TimerState
{
    enum class Result { NotYet, Running, Done, Failed };

    bool isThere = false; // the manager knows the timer and it runs
    QDateTime next; // invalid while nobody knows
    QDateTime last; // when the service ended; invalid for Running and NotYet
    Result result = Result::NotYet;
    static constexpr int kKilled = -1;
    int exitStatus = 0; // of the service's program; kKilled when it did not end by itself

    bool operator==(const TimerState &) const = default;
};

// Queries, starts and stops `tollbrooksvc.service` through systemd's D-Bus interface.
class ServiceControl
{
public:
    // The service manager's codes. Only a running service is a started one: a service that is being
    // started is not, and one that failed counts as stopped.
    enum class State { Stopped = 1, StartPending = 2, StopPending = 3, Running = 4 };

    explicit ServiceControl(const QDBusConnection &bus);

    // Nothing when the manager does not answer within a second or does not know the service.
    [[nodiscard]] std::optional<State> Query() const;
    [[nodiscard]] bool IsRunning() const { return Query() == State::Running; }

    // Nothing when the manager does not answer within a second.
    [[nodiscard]] std::optional<TimerState> QueryTimer(const QString &timerUnit,
                                                       const QString &serviceUnit) const;

    // True when the manager accepted the job; its end shows in Query. Administrators who need to
    // prove who they are, are asked by the system, with the window painted meanwhile; a refusal, or
    // no answer in 90 seconds, is a failure.
    [[nodiscard]] bool Start() const;
    [[nodiscard]] bool Stop() const;

private:
    QDBusConnection bus;
};
