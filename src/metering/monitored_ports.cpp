#include "metering/monitored_ports.h"

#include "db/query.h"

#include <algorithm>
#include <limits>

Result<MonitoredPorts> ReadMonitoredPorts()
{
    return ReadAll(
               "SELECT DISTINCT port_number FROM ports, protocols WHERE proto_id = id AND mon = 1",
               [](const Row &row) { return row.Integer(1); })
        .map([](const std::vector<quint32> &read) {
            MonitoredPorts ports;
            for (const quint32 port : read) {
                if (port > 0 && port <= std::numeric_limits<quint16>::max()) {
                    ports.marked.push_back(static_cast<quint16>(port));
                }
            }
            std::ranges::sort(ports.marked);
            return ports;
        });
}
