// What the service makes of the machine around the kernel's table.
#pragma once

#include "daemon/policy_maker.h"
#include "gateway/reading.h"

// The names of the interfaces to the workstations; empty: all. `adapter` is a description, as the console
// stores it, or a name. `fault` tells of one that the machine does not have: then all count.
[[nodiscard]] QStringList LanInterfaces(const QString &adapter, QString &fault);

// The addresses that each hardware address was seen with: IPv6 always, IPv4 too where users are known
// by their hardware.
[[nodiscard]] CompanionAddresses CompanionsIn(const std::vector<AddressPair> &pairs,
                                              Identification identification);

// A few words on why a user is refused.
[[nodiscard]] QString ReasonWords(const Standing &standing, bool timeEnded, bool noticed);
