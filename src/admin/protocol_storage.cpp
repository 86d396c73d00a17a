#include "admin/protocol_storage.h"

#include "admin/protocol_rows.h"
#include "db/query.h"

#include <utility>

namespace {

using PortReader = Result<std::vector<ProtocolPort>> (*)(ProtocolId);

Result<std::vector<ProtocolPort>> ReadOptionsPorts(ProtocolId protocolId)
{
    return ReadUpTo(
               kMaxPorts,
               "SELECT port_number, Port_id FROM Ports WHERE Proto_id = (?)",
               [](const Row &row) {
                   return ProtocolPort {static_cast<qint32>(row.Integer(1)), row.Id<PortId>(2)};
               },
               protocolId)
        .map(InOrder);
}

Result<std::vector<ProtocolPort>> ReadWizardPorts(ProtocolId protocolId)
{
    return ReadUpTo(
               kMaxPorts,
               "SELECT Port_id, port_number FROM Ports WHERE Proto_id = (?)",
               [](const Row &row) {
                   return ProtocolPort {static_cast<qint32>(row.Integer(2)), row.Id<PortId>(1)};
               },
               protocolId)
        .map(InOrder);
}

Result<QList<Protocol>> ReadProtocols(PortReader readPorts)
{
    const auto stored = ReadStoredProtocols(kMaxProtocols);
    if (!stored) {
        return tl::unexpected(stored.error());
    }
    QList<Protocol> protocols;
    for (const StoredProtocol &each : *stored) {
        const auto ports = readPorts(each.id);
        if (!ports) {
            return tl::unexpected(ports.error());
        }
        protocols.append({.name = each.name,
                          .ports = QList<ProtocolPort>(ports->begin(), ports->end()),
                          .id = each.id,
                          .monitored = each.isMonitored,
                          .wasMonitored = each.isMonitored});
    }
    return protocols;
}

ProtocolTable WizardTable(const QList<Protocol> &protocols)
{
    QList<Protocol> listed;
    QList<Protocol> unlisted;
    for (const Protocol &protocol : protocols) {
        (protocol.monitored ? listed : unlisted).append(protocol);
    }
    return {listed, unlisted};
}

} // namespace

Result<ProtocolTable> LoadProtocols()
{
    return ReadProtocols(ReadOptionsPorts).map([](const QList<Protocol> &protocols) {
        return ProtocolTable(protocols);
    });
}

Result<ProtocolTable> LoadWizardProtocols()
{
    return ReadProtocols(ReadWizardPorts).map(WizardTable);
}
