// What users and groups are denied: rows of Port_blocked, which name a port by its id.
#pragma once

#include "actions/action.h"
#include "admin/protocol_table.h"

#include <QHash>

#include <optional>

// How many rows name each port of a protocol; ports that none names are left out.
using Denials = QHash<PortId, int>;

[[nodiscard]] Result<Denials> ReadDenials(ProtocolId protocolId);

// Whether these ports of the protocol may go; nothing when nobody is denied any of them.
[[nodiscard]] std::optional<Question>
QuestionOnPorts(const Protocol &protocol, const QList<ProtocolPort> &going, const Denials &denials);

// Whether the protocol may go with all its ports.
[[nodiscard]] std::optional<Question> QuestionOnProtocol(const Protocol &protocol,
                                                         const Denials &denials);
