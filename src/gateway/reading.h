// What the kernel counted, and what it tells of itself.
#pragma once

#include "base/net_address.h"

#include <QStringList>

#include <chrono>
#include <optional>
#include <vector>

// Bytes of IP packets, with their headers, since the generation began or the address was added.
struct AddressReading
{
    NetAddress address;
    quint64 received = 0;
    quint64 sent = 0;

    bool operator==(const AddressReading &) const = default;
};

struct UnknownReading
{
    NetAddress address;
    std::optional<HardwareAddress> hardware {}; // when a packet has told one; else see Neighbours
    quint64 received = 0;
    quint64 sent = 0; // both 0 of one that is refused

    bool operator==(const UnknownReading &) const = default;
};

struct AddressPair
{
    NetAddress address;
    HardwareAddress hardware;

    auto operator<=>(const AddressPair &) const = default; // NOLINT: the compiler writes the 0
};

struct Reading
{
    quint64 generation = 0; // counters of different generations have nothing to do with each other
    std::chrono::steady_clock::time_point at;
    std::vector<AddressReading> clients; // by address, the retired ones among them
    std::vector<UnknownReading> unknown; // by address; stays when it becomes somebody's
    // Seen in the last half hour: of unknown workstations, and of clients whose hardware address is
    // checked with a wrong one. Of all others see Neighbours.
    std::vector<AddressPair> pairs;
    std::vector<quint32> usedUpClients; // whose own bound was reached
    std::vector<quint32> usedUpGroups;
};

struct SentReading
{
    NetAddress address;
    quint64 sent = 0; // bytes

    bool operator==(const SentReading &) const = default;
};

// How many packets have come to the rules that stand, of whatever they became. Where two marks are equal
// none came in between, so that no counter has changed.
struct PacketMark
{
    quint64 rule = 0; // that counts them: other rules count anew
    quint64 packets = 0;

    bool operator==(const PacketMark &) const = default;
};

struct Began
{
    quint64 generation = 0;
    bool takenOver = false; // the table stood, and its counters go on
};

// What happened since it was asked for last.
struct GatewayEvents
{
    std::vector<quint32> usedUpClients;
    std::vector<quint32> usedUpGroups;
    bool tableChanged = false; // or gone, by another program: Begin again
    QStringList newFlowtables; // "table name": packets that take them bypass all counting

    bool operator==(const GatewayEvents &) const = default;
};
