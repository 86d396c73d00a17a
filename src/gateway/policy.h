// What the kernel is to do, as data. Two equal policies are the same table.
#pragma once

#include "base/net_address.h"

#include <QStringList>

#include <map>
#include <optional>
#include <vector>

// The addresses of which address & mask == network.
struct Ipv4Mask
{
    Ipv4 network = 0;
    Ipv4 mask = 0;

    bool operator==(const Ipv4Mask &) const = default;
};

// Which packets are counted, by the port on the Internet's side; the others pass without.
enum class CountedPorts {
    All,
    Only, // TCP and UDP with one of the ports
    AllBut, // whatever has none of the ports
};

struct NetworkRules
{
    // Names of the interfaces to the workstations; empty: all. Without a name no IPv6 address is
    // unknown, as only the interface tells on which side it is.
    QStringList lanInterfaces;
    std::vector<Ipv4Mask> local; // the masks may have gaps; traffic within is not counted
    std::vector<NetAddress> excluded; // neither counted nor refused
    CountedPorts counted = CountedPorts::All;
    std::vector<quint16> ports; // that `counted` speaks of
    // Local addresses of nobody are refused from their first packet.
    bool refuseUnknown = false;
    bool refuseUnknownIpv6 = false;
    // A port of the gateway itself that refused clients reach, besides DHCP, DNS and ICMP.
    std::optional<quint16> authPort;

    bool operator==(const NetworkRules &) const = default;
};

// One user.
struct ClientRules
{
    std::vector<NetAddress> addresses; // sorted
    bool refused = false;
    // Packets from its addresses that come from another hardware address are refused.
    std::optional<HardwareAddress> hardware;
    // Bytes: where the sum of the received counters of its present addresses ends, as Reading tells
    // them in this generation; nothing: no bound.
    std::optional<quint64> receivedUntil;
    quint32 group = 0; // whose shared bound holds as well; 0: none
    // The Internet side's TCP and UDP ports that alone pass, or do not pass. Empty: no restriction.
    // ICMP always passes; of other transports nothing does where some ports alone do.
    bool portsAllowOnly = false;
    std::vector<quint16> ports;

    bool operator==(const ClientRules &) const = default;
};

struct Policy
{
    NetworkRules network;
    std::map<quint32, ClientRules> clients; // by the user's id, which is not 0
    std::map<quint32, quint64>
        groupReceivedUntil; // by the group's id: bytes, as receivedUntil, over
    // the received counters of all its members

    bool operator==(const Policy &) const = default;
};
