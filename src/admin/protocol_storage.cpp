#include "admin/protocol_storage.h"

#include "db/session.h"

namespace {

QList<Protocol> ReadProtocols()
{
    QList<Protocol> protocols;
    RowCursor rows("SELECT id, Proto_name, mon FROM Protocols ORDER BY Proto_name ASC");
    while (protocols.size() < kMaxProtocols && rows.Next()) {
        protocols.append({.name = queryResult.Text(2),
                          .ports = {},
                          .id = queryResult.Id<ProtocolId>(1),
                          .monitored = queryResult.Integer(3) == 1});
    }
    return protocols;
}

ProtocolId IdOf(const Protocol &protocol)
{
    RunQuery("SELECT id FROM Protocols WHERE proto_name = (?)", FetchMode::All, protocol.name);
    return queryResult.Id<ProtocolId>(1);
}

void InsertPort(ProtocolId protocolId, const ProtocolPort &port)
{
    Execute("INSERT INTO Ports (proto_id, port_number) VALUES ((?), (?))",
            protocolId,
            static_cast<quint32>(port.number));
}

void InsertPorts(const Protocol &protocol, ProtocolId id)
{
    for (const ProtocolPort &port : protocol.ports) {
        InsertPort(id, port);
    }
}

void Insert(const Protocol &protocol)
{
    Execute("INSERT INTO Protocols (proto_name, mon) VALUES ((?), (?))",
            protocol.name,
            quint32 {protocol.monitored});
    InsertPorts(protocol, IdOf(protocol));
}

void InsertMissingPorts(const Protocol &protocol)
{
    for (const ProtocolPort &port : protocol.ports) {
        const int found =
            RunQuery("SELECT port_id FROM Ports WHERE proto_id = (?) AND port_number = (?)",
                     FetchMode::One,
                     protocol.id,
                     static_cast<quint32>(port.number));
        if (found == kQueryNoData) {
            InsertPort(protocol.id, port);
        }
    }
}

void SaveFromWizard(const Protocol &protocol, bool listed)
{
    if (protocol.isNew) {
        Execute("INSERT INTO Protocols (proto_name) VALUES ((?))", protocol.name);
    }
    const ProtocolId id = IdOf(protocol);
    if (!protocol.isNew) {
        Execute("DELETE FROM Ports WHERE proto_id = (?)", id);
    }
    InsertPorts(protocol, id);
    Execute(listed ? "UPDATE Protocols SET mon = 1 WHERE id = (?)"
                   : "UPDATE Protocols SET mon = 0 WHERE id = (?)",
            IdOf(protocol));
}

} // namespace

ProtocolTable LoadProtocols()
{
    QList<Protocol> protocols = ReadProtocols();
    for (Protocol &protocol : protocols) {
        RowCursor rows("SELECT port_number, Port_id FROM Ports WHERE Proto_id = (?)", protocol.id);
        while (protocol.ports.size() < kMaxPorts && rows.Next()) {
            protocol.ports.append(
                {static_cast<qint32>(queryResult.Integer(1)), queryResult.Id<PortId>(2)});
        }
    }
    return ProtocolTable(protocols);
}

void SaveProtocols(const ProtocolTable &table)
{
    for (const Protocol &protocol : table.Protocols()) {
        if (protocol.isNew) {
            Insert(protocol);
        }
    }
    for (const Protocol &protocol : table.Protocols()) {
        if (!protocol.isNew) {
            InsertMissingPorts(protocol);
        }
    }
    for (const Protocol &protocol : table.RemovedProtocols()) {
        Execute("DELETE FROM Protocols WHERE id = (?)", protocol.id);
        Execute("DELETE FROM Ports WHERE proto_id = (?)", protocol.id);
    }
    for (const RemovedPort &removed : table.RemovedPorts()) {
        Execute("DELETE FROM Ports WHERE port_id = (?)", removed.port.id);
    }
    for (const Protocol &protocol : table.Protocols()) {
        Execute("UPDATE Protocols SET mon=(?) WHERE proto_name=(?)",
                quint32 {protocol.monitored},
                protocol.name);
    }
}

ProtocolTable LoadWizardProtocols()
{
    QList<Protocol> listed;
    QList<Protocol> unlisted;
    for (Protocol &protocol : ReadProtocols()) {
        RowCursor rows("SELECT Port_id, port_number FROM Ports WHERE Proto_id = (?)", protocol.id);
        while (protocol.ports.size() < kMaxPorts && rows.Next()) {
            protocol.ports.append(
                {static_cast<qint32>(queryResult.Integer(2)), queryResult.Id<PortId>(1)});
        }
        (protocol.monitored ? listed : unlisted).append(protocol);
    }
    return {listed, unlisted};
}

void SaveWizardProtocols(const ProtocolTable &table)
{
    for (const Protocol &protocol : table.Protocols()) {
        SaveFromWizard(protocol, true);
    }
    for (const Protocol &protocol : table.RemovedProtocols()) {
        SaveFromWizard(protocol, false);
    }
}
