// All that the table has counted, put together address by address.
#pragma once

#include "gateway/netlink_socket.h"
#include "gateway/reading.h"

[[nodiscard]] GatewayResult<Reading> ReadCounters(NetlinkSocket &socket, quint64 generation);
