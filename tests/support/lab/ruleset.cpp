#include "support/lab/ruleset.h"

#include <linux/netfilter.h>
#include <linux/netfilter/nf_tables.h>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>

GatewayResult<void> FlushRuleset()
{
    NetlinkWriter messages;
    messages.Begin(
        static_cast<quint16>(NFNL_SUBSYS_NFTABLES << 8 | NFT_MSG_DELTABLE), 0, NFPROTO_UNSPEC);
    messages.End();
    return NetlinkSocket::Open(NETLINK_NETFILTER).and_then([&](NetlinkSocket socket) {
        return socket.Commit(messages, QStringLiteral("Removing all tables"));
    });
}
