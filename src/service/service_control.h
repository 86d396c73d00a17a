// The accounting service as the operating system's service manager sees it.
#pragma once

#include <QDBusConnection>
#include <QString>

#include <optional>

// Queries, starts and stops `tollbrooksvc.service` through systemd's D-Bus interface.
class ServiceControl
{
public:
    // The service manager's codes. A service that is starting, failed or dead is not started.
    enum class State { Stopped = 1, StopPending = 3, Running = 4 };

    explicit ServiceControl(const QDBusConnection &bus);

    // Nothing when the manager or the service cannot be reached.
    [[nodiscard]] std::optional<State> Query() const;
    [[nodiscard]] bool IsRunning() const { return Query() == State::Running; }

    // True when the manager accepted the job; its end shows in Query. Administrators who need to
    // prove who they are, are asked by the system; a refusal is a failure.
    [[nodiscard]] bool Start() const;
    [[nodiscard]] bool Stop() const;

private:
    QDBusConnection bus;
};
