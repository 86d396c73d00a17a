// What goes from the tables Protocols and Ports, as they stand now, when a table is saved.
#pragma once

#include "admin/port_denials.h"

#include <vector>

struct Removal
{
    QList<ProtocolPort> ports; // as they stand now
    Denials denials; // of those ports and of others
    std::optional<Question> question; // when somebody is denied one of the ports
};

// The options windows: the protocol and all its ports go.
[[nodiscard]] Result<Removal> ReadRemovalOfProtocol(const Protocol &protocol);

// The options windows: `removed` of the protocol's ports go. Another console may have given them new
// rows, and one that it removed itself has none: its place in the removal has no id.
[[nodiscard]] Result<Removal> ReadRemovalOfPorts(const Protocol &protocol,
                                                 const QList<ProtocolPort> &removed);

// The setup wizard's: the ports of a protocol before and after it.
struct Replacement
{
    std::vector<ProtocolPort> present;
    QList<qint32> wanted; // numbers, in the order in which they are written
    Removal removal;
};

// The protocol's ports but those that somebody else removed meanwhile; then ports of the database that
// were neither in the wizard's list nor removed from it: beyond its hundred, or of another console.
[[nodiscard]] QList<qint32> WantedPorts(const QList<ProtocolPort> &listed,
                                        const QList<ProtocolPort> &removed,
                                        const std::vector<ProtocolPort> &present);

// `protocolId` is the protocol's row, which may be another one than when it was loaded.
[[nodiscard]] Result<Replacement> ReadReplacement(const Protocol &protocol,
                                                  ProtocolId protocolId,
                                                  const QList<ProtocolPort> &removed);
