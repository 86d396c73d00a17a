#include "gateway/table_rules.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <limits>
#include <linux/netfilter.h>
#include <linux/netfilter/nf_tables.h>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>

namespace {

constexpr quint32 kVerdictType = NFT_DATA_VERDICT;
constexpr quint32 kAddressType[] = {7, 8}; // as the nft program numbers types, for its listing
constexpr quint32 kHardwareType = 9;
constexpr quint32 kPortType = 13;
constexpr quint32 kDynamicSize = 65535;
constexpr quint16 kDnsPort = 53;
constexpr quint16 kDhcpPorts[] = {67, 547};
constexpr const char *kGatewayChain = "to_gateway";
constexpr const char *kIpv6Chain = "forward6";
constexpr PacketVerdict kLastVerdict = PacketVerdict::LeftOfGroup;

void Start(NetlinkWriter &writer, int message, int flags)
{
    writer.Begin(static_cast<quint16>(NFNL_SUBSYS_NFTABLES << 8 | message),
                 static_cast<quint16>(flags),
                 NFPROTO_INET);
}

quint32 KeyType(KeyKind kind, Family family)
{
    const quint32 address = kAddressType[family == Family::V4 ? 0 : 1];
    return kind == KeyKind::Address       ? address
        : kind == KeyKind::AddressAndPort ? address << 6 | kPortType
                                          : address << 6 | kHardwareType;
}

quint32 KeyLength(KeyKind kind, Family family)
{
    const quint32 address = family == Family::V4 ? 4 : 16;
    return address + (kind == KeyKind::Address ? 0 : kind == KeyKind::AddressAndPort ? 4 : 8);
}

bool IsVerdict(ValueKind kind)
{
    return kind == ValueKind::PacketVerdict || kind == ValueKind::Accept;
}

bool IsInterval(const SetLayout &layout, Family family)
{
    return layout.interval && family == Family::V4;
}

quint32 SetFlags(const SetLayout &layout, Family family)
{
    quint32 flags = 0;
    const std::pair<bool, quint32> wanted[] = {{IsInterval(layout, family), NFT_SET_INTERVAL},
                                               {IsVerdict(layout.value), NFT_SET_MAP},
                                               {layout.value == ValueKind::Quota, NFT_SET_OBJECT},
                                               {layout.dynamic, NFT_SET_EVAL},
                                               {layout.timeoutMs != 0, NFT_SET_TIMEOUT}};
    for (const auto &[holds, flag] : wanted) {
        flags |= holds ? flag : 0;
    }
    return flags;
}

void PutCounter(NetlinkWriter &writer)
{
    const size_t expression = writer.Nest(NFTA_SET_EXPR);
    writer.PutText(NFTA_EXPR_NAME, "counter");
    writer.EndNest(writer.Nest(NFTA_EXPR_DATA));
    writer.EndNest(expression);
}

void PutSize(NetlinkWriter &writer, quint32 size)
{
    const size_t description = writer.Nest(NFTA_SET_DESC);
    writer.PutU32(NFTA_SET_DESC_SIZE, size);
    writer.EndNest(description);
}

void StartSet(NetlinkWriter &writer, const QByteArray &name, quint32 type, quint32 length)
{
    static_assert(kSetCount * 2 < 1000);
    Start(writer, NFT_MSG_NEWSET, NLM_F_CREATE);
    writer.PutText(NFTA_SET_TABLE, kTableName);
    writer.PutText(NFTA_SET_NAME, name);
    writer.PutU32(NFTA_SET_KEY_TYPE, type);
    writer.PutU32(NFTA_SET_KEY_LEN, length);
}

void MakeSet(NetlinkWriter &writer, SetId set, Family family)
{
    const SetLayout &layout = LayoutOf(set);
    StartSet(
        writer, NameOf(set, family), KeyType(layout.key, family), KeyLength(layout.key, family));
    // A set's number must be its own within a transaction.
    writer.PutU32(NFTA_SET_ID, static_cast<quint32>(set) * 2 + static_cast<quint32>(family) + 1);
    writer.PutU32(NFTA_SET_FLAGS, SetFlags(layout, family));
    if (IsVerdict(layout.value)) {
        writer.PutU32(NFTA_SET_DATA_TYPE, kVerdictType);
    } else if (layout.value == ValueKind::Quota) {
        writer.PutU32(NFTA_SET_OBJ_TYPE, NFT_OBJECT_QUOTA);
    }
    if (layout.dynamic) {
        PutSize(writer, kDynamicSize);
    }
    if (layout.timeoutMs != 0) {
        writer.PutU64(NFTA_SET_TIMEOUT, layout.timeoutMs);
    }
    if (layout.counts) {
        PutCounter(writer);
    }
    writer.End();
}

void MakeChain(NetlinkWriter &writer, const QByteArray &name)
{
    Start(writer, NFT_MSG_NEWCHAIN, NLM_F_CREATE);
    writer.PutText(NFTA_CHAIN_TABLE, kTableName);
    writer.PutText(NFTA_CHAIN_NAME, name);
    writer.End();
}

void MakeHookedChain(NetlinkWriter &writer, const QByteArray &name, quint32 hook, qint32 priority)
{
    Start(writer, NFT_MSG_NEWCHAIN, NLM_F_CREATE);
    writer.PutText(NFTA_CHAIN_TABLE, kTableName);
    writer.PutText(NFTA_CHAIN_NAME, name);
    const size_t hooked = writer.Nest(NFTA_CHAIN_HOOK);
    writer.PutU32(NFTA_HOOK_HOOKNUM, hook);
    writer.PutU32(NFTA_HOOK_PRIORITY, static_cast<quint32>(priority));
    writer.EndNest(hooked);
    writer.PutU32(NFTA_CHAIN_POLICY, NF_ACCEPT);
    writer.PutText(NFTA_CHAIN_TYPE, "filter");
    writer.End();
}

void RemoveAllRules(NetlinkWriter &writer)
{
    Start(writer, NFT_MSG_DELRULE, 0);
    writer.PutText(NFTA_RULE_TABLE, kTableName);
    writer.End();
}

size_t StartElements(NetlinkWriter &writer, int message, const QByteArray &set)
{
    Start(writer, message, NLM_F_CREATE);
    writer.PutText(NFTA_SET_ELEM_LIST_TABLE, kTableName);
    writer.PutText(NFTA_SET_ELEM_LIST_SET, set);
    return writer.Nest(NFTA_SET_ELEM_LIST_ELEMENTS);
}

void Flush(NetlinkWriter &writer, const QByteArray &set)
{
    Start(writer, NFT_MSG_DELSETELEM, 0);
    writer.PutText(NFTA_SET_ELEM_LIST_TABLE, kTableName);
    writer.PutText(NFTA_SET_ELEM_LIST_SET, set);
    writer.End();
}

void PutKey(NetlinkWriter &writer, NetlinkView key, bool endsInterval = false)
{
    const size_t listed = writer.Nest(NFTA_LIST_ELEM);
    const size_t nested = writer.Nest(NFTA_SET_ELEM_KEY);
    writer.PutBytes(NFTA_DATA_VALUE, key);
    writer.EndNest(nested);
    if (endsInterval) {
        writer.PutU32(NFTA_SET_ELEM_FLAGS, NFT_SET_ELEM_INTERVAL_END);
    }
    writer.EndNest(listed);
}

template <typename Number>
NetlinkBytes InNetworkOrder(Number number)
{
    NetlinkBytes bytes(sizeof number);
    qToBigEndian(number, bytes.data());
    return bytes;
}

constexpr size_t kFullMessage = 30000; // an attribute ends below 64 KiB

void ReplaceRanges(NetlinkWriter &writer, SetId set, const std::vector<Ipv4Range> &ranges)
{
    const QByteArray name = NameOf(set, Family::V4);
    Flush(writer, name);
    for (size_t at = 0; at < ranges.size();) {
        const size_t list = StartElements(writer, NFT_MSG_NEWSETELEM, name);
        for (; at < ranges.size() && writer.MessageSize() < kFullMessage; ++at) {
            PutKey(writer, InNetworkOrder(ranges[at].first));
            if (ranges[at].last != std::numeric_limits<Ipv4>::max()) {
                PutKey(writer, InNetworkOrder(ranges[at].last + 1), true);
            }
        }
        writer.EndNest(list);
        writer.End();
    }
}

void ReplaceKeys(NetlinkWriter &writer,
                 const QByteArray &set,
                 const std::vector<NetlinkBytes> &keys)
{
    Flush(writer, set);
    for (size_t at = 0; at < keys.size();) {
        const size_t list = StartElements(writer, NFT_MSG_NEWSETELEM, set);
        for (; at < keys.size() && writer.MessageSize() < kFullMessage; ++at) {
            PutKey(writer, keys[at]);
        }
        writer.EndNest(list);
        writer.End();
    }
}

void ReplaceNetwork(NetlinkWriter &writer, const NetworkRules &network)
{
    const NearRanges near = NearRangesOf(network);
    ReplaceRanges(writer, SetId::Near, MergedRanges(near.lookedUp));
    std::vector<NetlinkBytes> excluded;
    for (const NetAddress &address : network.excluded) {
        if (!address.IsIpv4()) {
            excluded.emplace_back(address.AllBytes().begin(), address.AllBytes().end());
        }
    }
    ReplaceKeys(writer, NameOf(SetId::Near, Family::V6), excluded);
    std::vector<NetlinkBytes> ports;
    for (const quint16 port : network.ports) {
        ports.push_back(InNetworkOrder(port));
    }
    ReplaceKeys(writer, kCountedPorts, ports);
}

// The first rule counts all packets (ReadPacketMark). The tests that most packets meet are those that the
// kernel does without a call. Where an interface is named the ways of IPv6 end with a verdict, so that none is
// gone twice.
void MakeForward(NetlinkWriter &writer, const TableRules &rules)
{
    RuleWriter(writer, kForwardChain)
        .Counter()
        .IsNotPlainIpv4()
        .IsFamily(Family::V6)
        .Goto(kIpv6Chain);
    MakeEntry(writer, rules);
    for (const Direction direction : {Direction::From, Direction::To}) {
        ForInterfaces(rules.network, direction, [&](FunctionRef<void(RuleWriter &)> passes) {
            RuleWriter ipv6(writer, kIpv6Chain);
            passes(ipv6);
            ipv6.Jump(WayChain(direction, Family::V6));
        });
    }
}

void MakeRefusal(NetlinkWriter &writer)
{
    RuleWriter(writer, "refuse").Transport(IPPROTO_TCP).RejectByReset();
    RuleWriter(writer, "refuse").RejectByIcmp();
}

void MakeInput(NetlinkWriter &writer, const NetworkRules &network)
{
    for (const Family family : kFamilies) {
        RuleWriter(writer, "input")
            .IsFamily(family)
            .AddressIn(SetId::Refused, family, Direction::From, End::Workstation)
            .Jump(kGatewayChain);
    }
    const auto accept = [&](quint8 transport, quint16 port) {
        RuleWriter(writer, kGatewayChain)
            .Transport(transport)
            .Port(Direction::From, End::Internet, port)
            .Accept();
    };
    RuleWriter(writer, kGatewayChain).Transport(IPPROTO_ICMP).Accept();
    RuleWriter(writer, kGatewayChain).Transport(IPPROTO_ICMPV6).Accept();
    for (const quint16 port : kDhcpPorts) {
        accept(IPPROTO_UDP, port);
    }
    accept(IPPROTO_UDP, kDnsPort);
    accept(IPPROTO_TCP, kDnsPort);
    if (network.authPort) {
        accept(IPPROTO_TCP, *network.authPort);
    }
    RuleWriter(writer, kGatewayChain).Goto("refuse");
}

// The chains that the map's elements lead to.
void MakeVerdictChains(NetlinkWriter &writer, SetId map, Family family)
{
    for (quint32 value = 1; value <= static_cast<quint32>(kLastVerdict); ++value) {
        const QByteArray chain = ChainOf(static_cast<PacketVerdict>(value), map, family);
        if (!chain.isEmpty()) {
            MakeChain(writer, chain);
        }
    }
}

} // namespace

bool IsContiguous(Ipv4 mask)
{
    return std::countl_one(mask) + std::countr_zero(mask) == 32 || mask == 0;
}

std::vector<Ipv4Range> MergedRanges(const std::vector<Ipv4Mask> &masks)
{
    std::vector<Ipv4Range> ranges;
    for (const Ipv4Mask &mask : masks) {
        if (IsContiguous(mask.mask)) {
            ranges.push_back({mask.network & mask.mask, mask.network | ~mask.mask});
        }
    }
    std::ranges::sort(ranges, {}, &Ipv4Range::first);
    std::vector<Ipv4Range> merged;
    for (const Ipv4Range &range : ranges) {
        // 64 bits, so that the range which ends at the last address has a next one.
        if (!merged.empty() && range.first <= quint64 {merged.back().last} + 1) {
            merged.back().last = std::max(merged.back().last, range.last);
        } else {
            merged.push_back(range);
        }
    }
    return merged;
}

void MakeTable(NetlinkWriter &writer, const QByteArray &comment)
{
    Start(writer, NFT_MSG_NEWTABLE, NLM_F_CREATE);
    writer.PutText(NFTA_TABLE_NAME, kTableName);
    writer.PutU32(NFTA_TABLE_FLAGS, 0);
    // As the nft program writes a comment: its kind, its length, and the text with its zero.
    NetlinkBytes data {0, static_cast<quint8>(comment.size() + 1)};
    data.insert(data.end(), comment.begin(), comment.end());
    data.push_back(0);
    writer.PutBytes(NFTA_TABLE_USERDATA, data);
    writer.End();
    for (int set = 0; set < kSetCount; ++set) {
        for (const Family family : kFamilies) {
            MakeSet(writer, static_cast<SetId>(set), family);
        }
    }
    StartSet(writer, kCountedPorts, kPortType, sizeof(quint16));
    writer.PutU32(NFTA_SET_ID, kSetCount * 2 + 1);
    writer.PutU32(NFTA_SET_FLAGS, 0);
    writer.End();
}

void MakeChains(NetlinkWriter &writer)
{
    MakeChain(writer, "refuse");
    MakeChain(writer, kGatewayChain);
    MakeChain(writer, kIpv6Chain);
    for (const Family family : kFamilies) {
        for (const char *stem : {"from", "to", "count_from", "unknown_from", "unknown_to"}) {
            MakeChain(writer, Numbered(stem, family));
        }
        for (const SetId map : {SetId::From, SetId::To}) {
            MakeVerdictChains(writer, map, family);
        }
    }
}

void MakeRules(NetlinkWriter &writer, const TableRules &rules)
{
    MakeHookedChain(writer, kForwardChain, NF_INET_FORWARD, std::numeric_limits<qint32>::max());
    MakeHookedChain(writer, "input", NF_INET_LOCAL_IN, 0);
    RemoveAllRules(writer);
    ReplaceNetwork(writer, rules.network);
    MakeForward(writer, rules);
    MakeRefusal(writer);
    MakeInput(writer, rules.network);
    for (const Family family : kFamilies) {
        for (const Direction direction : {Direction::From, Direction::To}) {
            MakeWay(writer, rules, direction, family);
        }
    }
}
