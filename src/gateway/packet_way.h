// The way of one direction's and family's packets through the table: refusal, then quota, then
// counting.
#pragma once

#include "base/function_ref.h"
#include "gateway/policy.h"
#include "gateway/rule_writer.h"

#include <array>

// The set of ports that are counted when not all are.
inline constexpr const char *kCountedPorts = "counted_ports";

// What the rules depend on.
struct TableRules
{
    NetworkRules network;
    // By family: whether the map From or To has an element. No packet is looked up in an empty one.
    std::array<bool, kFamilies.size()> looksFrom {};
    std::array<bool, kFamilies.size()> looksTo {};
    // All known IPv4 addresses are in the local ranges, or excluded. False where nobody asked.
    bool knowsNearOnly = false;

    [[nodiscard]] bool Looks(Direction direction, Family family) const
    {
        return (direction == Direction::From ? looksFrom : looksTo)[static_cast<size_t>(family)];
    }

    bool operator==(const TableRules &) const = default;
};

// The chain where the way starts.
[[nodiscard]] QByteArray WayChain(Direction direction, Family family);

// The local ranges and the excluded IPv4 addresses: what is no traffic between two of them. A few are
// compared with one by one, which costs a packet less; many are looked up in the set Near, but
// for those with gaps, which no set can hold.
struct NearRanges
{
    std::vector<Ipv4Mask> compared;
    std::vector<Ipv4Mask> lookedUp;
};
[[nodiscard]] NearRanges NearRangesOf(const NetworkRules &network);

// Makes the rules that `act` ends, which hold for packets one end of which is in these ranges.
void ForNear(NetlinkWriter &writer,
             const NearRanges &near,
             const QByteArray &chain,
             Direction direction,
             End end,
             FunctionRef<void(RuleWriter &)> act);

// Makes the rules that `act` ends, which hold for packets that pass an interface to the workstations,
// or for all where none is named. The numbers that the interfaces bear now come first; the names
// find those that are made anew later.
void ForInterfaces(const NetworkRules &network,
                   Direction direction,
                   FunctionRef<void(FunctionRef<void(RuleWriter &)>)> act);

// Messages with the rules of the chain `forward` that lead IPv4 packets onto their way.
void MakeEntry(NetlinkWriter &writer, const TableRules &rules);

// Messages with the rules of the way's chains, which stand without rules.
void MakeWay(NetlinkWriter &writer, const TableRules &rules, Direction direction, Family family);
