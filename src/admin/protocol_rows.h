// Single reads of the tables Protocols and Ports, for whoever loads and saves them.
#pragma once

#include "admin/protocol_table.h"
#include "db/failure.h"

#include <vector>

struct StoredProtocol
{
    ProtocolId id;
    QString name;
    bool isMonitored = false;
};

// By name; the first `most` of them, 0 for all.
[[nodiscard]] Result<std::vector<StoredProtocol>> ReadStoredProtocols(quint32 most);

// All ports of the protocol, in the database's order.
[[nodiscard]] Result<std::vector<ProtocolPort>> ReadStoredPorts(ProtocolId protocolId);

// Names and numbers may stand there more than once.
[[nodiscard]] Result<std::vector<ProtocolId>> ReadIdsOf(const QString &name);
[[nodiscard]] Result<std::vector<PortId>> ReadPortIds(ProtocolId protocolId, qint32 number);
