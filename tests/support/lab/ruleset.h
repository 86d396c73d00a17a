// What other programs do to the kernel's tables.
#pragma once

#include "gateway/netlink_socket.h"

// Removes all tables of the present network namespace, as `nft flush ruleset` does.
[[nodiscard]] GatewayResult<void> FlushRuleset();
