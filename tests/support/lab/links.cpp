#include "support/lab/links.h"

#include "gateway/table_layout.h"

#include <linux/if_addr.h>
#include <linux/if_link.h>
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <net/if.h>

using namespace Qt::StringLiterals;

namespace {

template <typename Plain>
std::span<const quint8> BytesOf(const Plain &plain)
{
    return {reinterpret_cast<const quint8 *>(&plain), sizeof plain};
}

quint32 IndexOf(const QString &name)
{
    return if_nametoindex(name.toUtf8().constData());
}

void PutAddress(NetlinkWriter &message, quint16 type, const QString &text)
{
    const NetAddress address = NetAddress::From(text).value();
    const std::span<const quint8> all = address.AllBytes();
    message.PutBytes(type, address.IsIpv4() ? all.last(4) : all);
}

quint8 FamilyNumber(const QString &text)
{
    return text.contains(u':') ? AF_INET6 : AF_INET;
}

void StartLink(NetlinkWriter &message, quint16 flags, const QString &name, quint32 up = 0)
{
    ifinfomsg header {};
    header.ifi_index = static_cast<int>(name.isEmpty() ? 0 : IndexOf(name));
    header.ifi_flags = header.ifi_change = up;
    message.BeginWith(RTM_NEWLINK, flags, BytesOf(header));
}

void StartRoute(NetlinkWriter &message, const QString &network, int prefix, quint8 type)
{
    rtmsg header {};
    header.rtm_family = FamilyNumber(network);
    header.rtm_dst_len = static_cast<quint8>(prefix);
    header.rtm_table = type == RTN_LOCAL ? RT_TABLE_LOCAL : RT_TABLE_MAIN;
    header.rtm_protocol = RTPROT_STATIC;
    header.rtm_scope = type == RTN_LOCAL ? RT_SCOPE_HOST : RT_SCOPE_UNIVERSE;
    header.rtm_type = type;
    message.BeginWith(RTM_NEWROUTE, NLM_F_CREATE | NLM_F_EXCL, BytesOf(header));
    PutAddress(message, RTA_DST, network);
}

} // namespace

GatewayResult<Links> Links::Open()
{
    return NetlinkSocket::Open(NETLINK_ROUTE).map([](NetlinkSocket opened) {
        return Links(std::move(opened));
    });
}

GatewayResult<void> Links::Send(NetlinkWriter &message, const QString &what)
{
    message.End();
    return socket.Dump(
        message, [] {}, [](const NetlinkMessage &) { return true; }, what);
}

GatewayResult<void> Links::AddPair(const QString &name, const QString &peer, int peerNamespace)
{
    NetlinkWriter pair;
    StartLink(pair, NLM_F_CREATE | NLM_F_EXCL, {});
    pair.PutText(IFLA_IFNAME, name.toUtf8());
    const size_t info = pair.Nest(IFLA_LINKINFO);
    pair.PutText(IFLA_INFO_KIND, "veth");
    pair.EndNest(info);
    return Send(pair, u"Making "_s + name).and_then([&] {
        NetlinkWriter move;
        StartLink(move, 0, u"veth0"_s); // the kernel's own name for the other end
        move.PutBytes(IFLA_NET_NS_FD, BytesOf(peerNamespace));
        move.PutText(IFLA_IFNAME, peer.toUtf8());
        return Send(move, u"Moving "_s + peer);
    });
}

GatewayResult<void> Links::SetUp(const QString &name)
{
    NetlinkWriter message;
    StartLink(message, 0, name, IFF_UP);
    return Send(message, u"Starting "_s + name);
}

GatewayResult<void> Links::SetHardware(const QString &name, quint64 hardware)
{
    NetlinkWriter message;
    StartLink(message, 0, name);
    message.PutBytes(IFLA_ADDRESS, HardwareFrom(hardware).bytes);
    return Send(message, u"Changing the hardware address of "_s + name);
}

GatewayResult<void> Links::AddAddress(const QString &name, const QString &address, int prefix)
{
    const ifaddrmsg header {.ifa_family = FamilyNumber(address),
                            .ifa_prefixlen = static_cast<quint8>(prefix),
                            .ifa_flags = IFA_F_NODAD,
                            .ifa_scope = RT_SCOPE_UNIVERSE,
                            .ifa_index = IndexOf(name)};
    NetlinkWriter message;
    message.BeginWith(RTM_NEWADDR, NLM_F_CREATE | NLM_F_EXCL, BytesOf(header));
    PutAddress(message, IFA_LOCAL, address);
    PutAddress(message, IFA_ADDRESS, address);
    return Send(message, u"Adding the address "_s + address);
}

GatewayResult<void> Links::AddRoute(const QString &network, int prefix, const QString &gateway)
{
    NetlinkWriter message;
    StartRoute(message, network, prefix, RTN_UNICAST);
    PutAddress(message, RTA_GATEWAY, gateway);
    return Send(message, u"Adding the route to "_s + network);
}

GatewayResult<void> Links::AddLocal(const QString &network, int prefix)
{
    NetlinkWriter message;
    StartRoute(message, network, prefix, RTN_LOCAL);
    message.PutBytes(RTA_OIF, BytesOf(IndexOf(u"lo"_s)));
    return Send(message, u"Adding the addresses "_s + network);
}
