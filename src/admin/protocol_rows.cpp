#include "admin/protocol_rows.h"

#include "db/query.h"

#include <algorithm>

Result<std::vector<StoredProtocol>> ReadStoredProtocols(quint32 most)
{
    return ReadUpTo(
        most,
        "SELECT id, Proto_name, mon FROM Protocols ORDER BY Proto_name ASC",
        [](const Row &row) {
            return StoredProtocol {row.Id<ProtocolId>(1), row.Text(2), row.Integer(3) == 1};
        });
}

std::vector<ProtocolPort> InOrder(std::vector<ProtocolPort> ports)
{
    std::ranges::sort(ports, {}, [](const ProtocolPort &port) { return port.id.value; });
    return ports;
}

Result<std::vector<ProtocolPort>> ReadStoredPorts(ProtocolId protocolId)
{
    return ReadAll(
               "SELECT Port_id, port_number FROM Ports WHERE Proto_id = (?)",
               [](const Row &row) {
                   return ProtocolPort {static_cast<qint32>(row.Integer(2)), row.Id<PortId>(1)};
               },
               protocolId)
        .map(InOrder);
}

Result<std::vector<ProtocolId>> ReadIdsOf(const QString &name)
{
    return ReadAll(
        "SELECT id FROM Protocols WHERE proto_name = (?)",
        [](const Row &row) { return row.Id<ProtocolId>(1); },
        name);
}

Result<std::vector<PortId>> ReadPortIds(ProtocolId protocolId, qint32 number)
{
    return ReadAll(
        "SELECT port_id FROM Ports WHERE proto_id = (?) AND port_number = (?)",
        [](const Row &row) { return row.Id<PortId>(1); },
        protocolId,
        static_cast<quint32>(number));
}
