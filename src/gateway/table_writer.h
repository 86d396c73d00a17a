// The transactions that bring the table from one content to another.
#pragma once

#include "gateway/netlink_socket.h"
#include "gateway/table_content.h"

// Messages in pieces: what is in one piece is done in one transaction, and pieces in their order.
using MessagePieces = std::vector<NetlinkWriter>;

// Removes and adds elements of a set. All of an address is in one piece. Sent stands for both
// counting sets.
void ChangeElements(MessagePieces &pieces, SetId set, const ElementChanges &changes);

// Adds a quota of which `consumed` bytes were used, or changes the bound of the one that stands,
// which keeps what was used.
void PutQuota(NetlinkWriter &writer, QuotaId id, quint64 bound, std::optional<quint64> consumed);
void RemoveQuota(NetlinkWriter &writer, QuotaId id);
void RemoveTable(NetlinkWriter &writer);

// Sends the pieces with as few transactions as the socket's buffer allows.
[[nodiscard]] GatewayResult<void>
CommitPieces(NetlinkSocket &socket, const MessagePieces &pieces, const QString &what);
