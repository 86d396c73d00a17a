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

// In the order in which they were added: a server gives rows in any order that suits it at the moment.
[[nodiscard]] std::vector<ProtocolPort> InOrder(std::vector<ProtocolPort> ports);

// All ports of the protocol.
[[nodiscard]] Result<std::vector<ProtocolPort>> ReadStoredPorts(ProtocolId protocolId);

// Names and numbers may stand there more than once.
[[nodiscard]] Result<std::vector<ProtocolId>> ReadIdsOf(const QString &name);
[[nodiscard]] Result<std::vector<PortId>> ReadPortIds(ProtocolId protocolId, qint32 number);
