// Where the settings are.
#pragma once

#include <QString>

// `given`, unless it is empty; else what $TOLLBROOK_CONFIG names, or /etc/tollbrook.
[[nodiscard]] QString ConfigFolder(const QString &given);
