// The kernel's neighbour table: which hardware address answers for an address of the network.
#pragma once

#include "base/net_address.h"
#include "gateway/netlink_socket.h"

struct Neighbour
{
    NetAddress address;
    HardwareAddress hardware;
    QString interface; // its name; empty when it has gone meanwhile

    bool operator==(const Neighbour &) const = default;
};

// The neighbours whose hardware address is known, sorted by address. An entry that failed or that
// the kernel made for itself (broadcast, multicast) is left out.
[[nodiscard]] GatewayResult<std::vector<Neighbour>> ReadNeighbours();

// What one message of the dump tells: nothing inside for an entry that is left out, nothing at all
// when it cannot be read. `interface` stays empty and its number is set instead.
struct NeighbourEntry
{
    std::optional<Neighbour> neighbour;
    quint32 interfaceNumber = 0;
};
[[nodiscard]] std::optional<NeighbourEntry> NeighbourEntryFrom(const NetlinkMessage &message);
