// Interfaces, addresses and routes of the present network namespace.
#pragma once

#include "gateway/netlink_socket.h"

class Links
{
public:
    [[nodiscard]] static GatewayResult<Links> Open();

    // Makes a pair of linked interfaces: `name` here, and `peer` in the namespace `peerNamespace`, an
    // open file of /proc/.../ns/net.
    [[nodiscard]] GatewayResult<void>
    AddPair(const QString &name, const QString &peer, int peerNamespace);
    [[nodiscard]] GatewayResult<void> SetUp(const QString &name);
    [[nodiscard]] GatewayResult<void> SetHardware(const QString &name, quint64 hardware);
    [[nodiscard]] GatewayResult<void>
    AddAddress(const QString &name, const QString &address, int prefix);

    // What is sent to these addresses goes to `gateway`; all addresses of a local one are this
    // namespace's own.
    [[nodiscard]] GatewayResult<void>
    AddRoute(const QString &network, int prefix, const QString &gateway);
    [[nodiscard]] GatewayResult<void> AddLocal(const QString &network, int prefix);

private:
    explicit Links(NetlinkSocket to) : socket(std::move(to)) { }
    [[nodiscard]] GatewayResult<void> Send(NetlinkWriter &message, const QString &what);

    NetlinkSocket socket;
};
