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

// Whether the local ranges without gaps are in the set Near rather than compared with one by one.
[[nodiscard]] bool AreLookedUp(const NetworkRules &network);

// Makes the rules that `act` ends, which hold for packets one end of which is a local IPv4 address.
void ForLocal(NetlinkWriter &writer,
              const NetworkRules &network,
              const QByteArray &chain,
              Direction direction,
              End end,
              FunctionRef<void(RuleWriter &)> act);

// Messages with the rules of the way's chains, which stand without rules.
void MakeWay(NetlinkWriter &writer,
             const NetworkRules &network,
             Direction direction,
             Family family);
