// What other programs do to the kernel's tables.
#pragma once

#include "gateway/netlink_socket.h"

// Removes all tables of the present network namespace, as `nft flush ruleset` does.
[[nodiscard]] GatewayResult<void> FlushRuleset();

// Translates the addresses of what goes out by an interface, as `oifname "..." masquerade` does.
[[nodiscard]] GatewayResult<void> Masquerade(const QString &interface);

// Removes the rules of the service's table and nothing else, as `nft flush table inet tollbrook` does.
[[nodiscard]] GatewayResult<void> FlushRules();
