// The way of one direction's and family's packets through the table: refusal, then quota, then
// counting.
#pragma once

#include "base/function_ref.h"
#include "gateway/policy.h"
#include "gateway/rule_writer.h"

// The set of ports that are counted when not all are.
inline constexpr const char *kCountedPorts = "counted_ports";

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

// Messages with the rules of the way's chains, which stand without rules.
void MakeWay(NetlinkWriter &writer,
             const NetworkRules &network,
             Direction direction,
             Family family);
