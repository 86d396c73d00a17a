// The ports of the protocols that are marked as monitored.
#pragma once

#include "db/failure.h"

#include <vector>

struct MonitoredPorts
{
    std::vector<quint16> marked; // sorted, each once

    bool operator==(const MonitoredPorts &) const = default;
};

[[nodiscard]] Result<MonitoredPorts> ReadMonitoredPorts();
