// What the service manager wants of a stop.
#pragma once

#include <QDBusConnection>

// Whether this process is stopped to be started again at once, as by "systemctl restart" or an upgrade.
// False also when the manager does not say.
[[nodiscard]] bool IsUnitRestarting(const QDBusConnection &bus);
