// Two administration commands depend on what the service does; a refusal is told.
#pragma once

#include "base/prompt.h"
#include "service/service_control.h"

#include <optional>

// True when the purge may open: only while the service is stopped, since both write the same rows.
[[nodiscard]] bool PurgeMayOpen(const ServiceControl &control, Prompt &prompt);

// Whether the adapter dialog may change anything: only while the service is stopped. Nothing when it
// must not open at all, as there is no service on this machine.
[[nodiscard]] std::optional<bool> AdapterMayChange(const ServiceControl &control, Prompt &prompt);
