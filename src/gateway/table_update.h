// The plan of one change: from what stands to what is wanted.
#pragma once

#include "gateway/table_content.h"
#include "gateway/table_writer.h"

#include <set>

// The same content with the packets to all members of these quotas dropped silently, before and after.
[[nodiscard]] Elements
HeldFor(const std::set<QuotaId> &quotas, const TableContent &standing, const TableContent &wanted);

// Bytes received by the members of the quotas, by what their counters read.
using Received = std::map<QuotaId, quint64>;
[[nodiscard]] GatewayResult<Received>
ReceivedBy(NetlinkSocket &socket, const std::set<QuotaId> &quotas, const TableContent &wanted);

// The pieces that lead from `standing` to `wanted`, in an order in which no step lets pass what
// neither allows; the quotas of `received` are made anew.
[[nodiscard]] MessagePieces
PiecesFor(const TableContent &standing, const TableContent &wanted, const Received &received);

// Notes in `wanted` which of its quotas are used up once these pieces are done.
void SetDepleted(TableContent &wanted, const TableContent &standing, const Received &received);

// Whether an address is retired in `wanted` that was not in `standing`.
[[nodiscard]] bool RetiresAny(const TableContent &standing, const TableContent &wanted);

// The pieces that forget those of `addresses` that are retired, and what `content` is without them.
[[nodiscard]] MessagePieces PiecesToForget(TableContent &content,
                                           const std::vector<NetAddress> &addresses);
