#include "support/lab/ruleset.h"

#include "gateway/table_layout.h"

#include <QtEndian>

#include <linux/netfilter.h>
#include <linux/netfilter/nf_tables.h>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>
#include <net/if.h>

namespace {

constexpr const char *kTranslation = "translation"; // a table and its chain

void Start(NetlinkWriter &messages, int type, quint8 family, int flags = 0)
{
    messages.Begin(static_cast<quint16>(NFNL_SUBSYS_NFTABLES << 8 | type),
                   static_cast<quint16>(flags),
                   family);
}

GatewayResult<void> Commit(const NetlinkWriter &messages, const QString &what)
{
    return NetlinkSocket::Open(NETLINK_NETFILTER).and_then([&](NetlinkSocket socket) {
        return socket.Commit(messages, what);
    });
}

void MakeChain(NetlinkWriter &messages)
{
    constexpr quint32 kPriority = 100; // of the translation of sources
    Start(messages, NFT_MSG_NEWTABLE, NFPROTO_INET, NLM_F_CREATE);
    messages.PutText(NFTA_TABLE_NAME, kTranslation);
    messages.End();
    Start(messages, NFT_MSG_NEWCHAIN, NFPROTO_INET, NLM_F_CREATE);
    messages.PutText(NFTA_CHAIN_TABLE, kTranslation);
    messages.PutText(NFTA_CHAIN_NAME, kTranslation);
    const size_t hook = messages.Nest(NFTA_CHAIN_HOOK);
    messages.PutU32(NFTA_HOOK_HOOKNUM, NF_INET_POST_ROUTING);
    messages.PutU32(NFTA_HOOK_PRIORITY, kPriority);
    messages.EndNest(hook);
    messages.PutText(NFTA_CHAIN_TYPE, "nat");
    messages.End();
}

// One expression of a rule; `put` puts its attributes.
void PutExpression(NetlinkWriter &messages, const char *name, FunctionRef<void()> put)
{
    const size_t listed = messages.Nest(NFTA_LIST_ELEM);
    messages.PutText(NFTA_EXPR_NAME, name);
    const size_t data = messages.Nest(NFTA_EXPR_DATA);
    put();
    messages.EndNest(data);
    messages.EndNest(listed);
}

void MakeRule(NetlinkWriter &messages, const QString &interface)
{
    NetlinkBytes name(IFNAMSIZ);
    std::ranges::copy(interface.toUtf8().left(IFNAMSIZ - 1), name.begin());
    Start(messages, NFT_MSG_NEWRULE, NFPROTO_INET, NLM_F_CREATE | NLM_F_APPEND);
    messages.PutText(NFTA_RULE_TABLE, kTranslation);
    messages.PutText(NFTA_RULE_CHAIN, kTranslation);
    const size_t expressions = messages.Nest(NFTA_RULE_EXPRESSIONS);
    PutExpression(messages, "meta", [&] {
        messages.PutU32(NFTA_META_KEY, NFT_META_OIFNAME);
        messages.PutU32(NFTA_META_DREG, NFT_REG_1);
    });
    PutExpression(messages, "cmp", [&] {
        messages.PutU32(NFTA_CMP_SREG, NFT_REG_1);
        messages.PutU32(NFTA_CMP_OP, NFT_CMP_EQ);
        const size_t value = messages.Nest(NFTA_CMP_DATA);
        messages.PutBytes(NFTA_DATA_VALUE, name);
        messages.EndNest(value);
    });
    PutExpression(messages, "masq", [] {});
    messages.EndNest(expressions);
    messages.End();
}

} // namespace

GatewayResult<void> FlushRuleset()
{
    NetlinkWriter messages;
    Start(messages, NFT_MSG_DELTABLE, NFPROTO_UNSPEC);
    messages.End();
    return Commit(messages, QStringLiteral("Removing all tables"));
}

GatewayResult<void> Masquerade(const QString &interface)
{
    NetlinkWriter messages;
    MakeChain(messages);
    MakeRule(messages, interface);
    return Commit(messages, QStringLiteral("Translating addresses"));
}

GatewayResult<void> FlushRules()
{
    NetlinkWriter messages;
    Start(messages, NFT_MSG_DELRULE, NFPROTO_INET);
    messages.PutText(NFTA_RULE_TABLE, kTableName);
    messages.End();
    return Commit(messages, QStringLiteral("Removing the rules"));
}
