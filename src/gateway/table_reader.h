// What stands in the kernel's table, read by dumps.
#pragma once

#include "gateway/netlink_socket.h"
#include "gateway/reading.h"
#include "gateway/table_content.h"

// The comment of the table; nothing when there is no table of that name.
[[nodiscard]] GatewayResult<std::optional<QByteArray>> ReadTableComment(NetlinkSocket &socket);

using ReadElements = std::vector<ReadElement>; // sorted by element, each once

// The elements of the set in both families.
[[nodiscard]] GatewayResult<ReadElements> ReadSet(NetlinkSocket &socket, SetId set);
[[nodiscard]] GatewayResult<Quotas> ReadQuotas(NetlinkSocket &socket);

// All of the table but what packets add to it.
[[nodiscard]] GatewayResult<TableContent> ReadContent(NetlinkSocket &socket);

// A quota as a dump or a notification tells it; `mine` is false for an object of another table or
// kind. Nothing when it cannot be read.
struct QuotaObject
{
    bool mine = false;
    QuotaId id;
    Quota quota;
};
[[nodiscard]] std::optional<QuotaObject> QuotaObjectFrom(const NetlinkMessage &message);

// The numbers of all rules of the table: those of a table that was emptied or rebuilt differ.
[[nodiscard]] GatewayResult<std::vector<quint64>> ReadRuleHandles(NetlinkSocket &socket);

// Nothing when the rules are not there.
[[nodiscard]] GatewayResult<std::optional<PacketMark>> ReadPacketMark(NetlinkSocket &socket);

// The flowtables of all tables, "table name": packets that take them reach no chain.
[[nodiscard]] GatewayResult<QStringList> ReadFlowtables(NetlinkSocket &socket);
