// The way of one direction's and family's packets through the table: refusal, then quota, then
// counting.
#pragma once

#include "gateway/policy.h"
#include "gateway/rule_writer.h"

// The set of ports that are counted when not all are.
inline constexpr const char *kCountedPorts = "counted_ports";

// The chain where the way starts.
[[nodiscard]] QByteArray WayChain(Direction direction, Family family);

// Messages with the rules of the way's chains, which stand without rules.
void MakeWay(NetlinkWriter &writer,
             const NetworkRules &network,
             Direction direction,
             Family family);
