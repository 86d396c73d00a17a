// What tollbrook-report does with saved reports beside making them. Each tells on standard output and standard error
// what it did, and gives the program's exit status.
#pragma once

#include "config/config_store.h"

#include <optional>

[[nodiscard]] int ListSaved(const ConfigStore &settings);

// Brings the report's timer in line with its schedule, in the service manager's folder or in `units`, of which it
// tells nobody. A report without a schedule, or that is gone, also loses the note of its last run.
[[nodiscard]] int
Schedule(const QString &name, const ConfigStore &settings, const std::optional<QString> &units);

// Keeps how the report's run has ended (run_record.h), by the environment in which the service manager starts
// the command behind it.
[[nodiscard]] int NoteRun(const QString &name, const ConfigStore &settings);
