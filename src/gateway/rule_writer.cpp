#include "gateway/rule_writer.h"

#include <QtEndian>

#include <linux/netfilter.h>
#include <linux/netfilter/nf_tables.h>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>
#include <net/if.h>

namespace {

// All tests of a rule use the first register on; keys of several parts go on behind it.
constexpr quint32 kRegister = NFT_REG32_00;
constexpr quint32 kHardwareOffset = 6; // the sender's, in an Ethernet header

constexpr quint32 RegistersOf(Family family)
{
    return family == Family::V4 ? 1 : 4;
}

template <typename Number>
NetlinkBytes InNetworkOrder(Number number)
{
    NetlinkBytes bytes(sizeof number);
    qToBigEndian(number, bytes.data());
    return bytes;
}

} // namespace

RuleWriter::RuleWriter(NetlinkWriter &target, const QByteArray &chain) : writer(target)
{
    writer.Begin(
        NFNL_SUBSYS_NFTABLES << 8 | NFT_MSG_NEWRULE, NLM_F_CREATE | NLM_F_APPEND, NFPROTO_INET);
    writer.PutText(NFTA_RULE_TABLE, kTableName);
    writer.PutText(NFTA_RULE_CHAIN, chain);
    expressions = writer.Nest(NFTA_RULE_EXPRESSIONS);
}

RuleWriter::~RuleWriter()
{
    writer.EndNest(expressions);
    writer.End();
}

size_t RuleWriter::Open(const char *name)
{
    open = writer.Nest(NFTA_LIST_ELEM);
    writer.PutText(NFTA_EXPR_NAME, name);
    return writer.Nest(NFTA_EXPR_DATA);
}

void RuleWriter::Close(size_t expression)
{
    writer.EndNest(expression);
    writer.EndNest(open);
}

RuleWriter &RuleWriter::Counter()
{
    Close(Open("counter"));
    return *this;
}

void RuleWriter::Meta(quint32 key)
{
    const size_t expression = Open("meta");
    writer.PutU32(NFTA_META_KEY, key);
    writer.PutU32(NFTA_META_DREG, kRegister);
    Close(expression);
}

void RuleWriter::Payload(quint32 base, quint32 offset, quint32 length, quint32 toRegister)
{
    const size_t expression = Open("payload");
    writer.PutU32(NFTA_PAYLOAD_DREG, toRegister);
    writer.PutU32(NFTA_PAYLOAD_BASE, base);
    writer.PutU32(NFTA_PAYLOAD_OFFSET, offset);
    writer.PutU32(NFTA_PAYLOAD_LEN, length);
    Close(expression);
}

void RuleWriter::Compare(NetlinkView value, bool equal)
{
    const size_t expression = Open("cmp");
    writer.PutU32(NFTA_CMP_SREG, kRegister);
    writer.PutU32(NFTA_CMP_OP, equal ? NFT_CMP_EQ : NFT_CMP_NEQ);
    const size_t data = writer.Nest(NFTA_CMP_DATA);
    writer.PutBytes(NFTA_DATA_VALUE, value);
    writer.EndNest(data);
    Close(expression);
}

void RuleWriter::Name(Side side, const QString &name, bool equal)
{
    NetlinkBytes padded(IFNAMSIZ);
    const QByteArray bytes = name.toUtf8().left(IFNAMSIZ - 1);
    std::ranges::copy(bytes, padded.begin());
    Meta(side == Side::In ? NFT_META_IIFNAME : NFT_META_OIFNAME);
    Compare(padded, equal);
}

RuleWriter &RuleWriter::Interface(Side side, const QString &name)
{
    Name(side, name, true);
    return *this;
}

RuleWriter &RuleWriter::NotInterface(Side side, const QString &name)
{
    Name(side, name, false);
    return *this;
}

RuleWriter &RuleWriter::IsFamily(Family family)
{
    Meta(NFT_META_NFPROTO);
    const quint8 protocol = family == Family::V4 ? NFPROTO_IPV4 : NFPROTO_IPV6;
    Compare(NetlinkBytes {protocol});
    return *this;
}

RuleWriter &RuleWriter::IsNotPlainIpv4()
{
    constexpr quint8 kVersionAndLength = 0x45;
    Payload(NFT_PAYLOAD_NETWORK_HEADER, 0, 1, kRegister);
    Compare(NetlinkBytes {kVersionAndLength}, false);
    return *this;
}

RuleWriter &RuleWriter::Transport(quint8 protocol)
{
    Meta(NFT_META_L4PROTO);
    Compare(NetlinkBytes {protocol});
    return *this;
}

RuleWriter &RuleWriter::NotTransport(quint8 protocol)
{
    Meta(NFT_META_L4PROTO);
    Compare(NetlinkBytes {protocol}, false);
    return *this;
}

namespace {

// The workstation is the source of what it sends.
bool IsSource(Direction direction, End end)
{
    return (direction == Direction::From) == (end == End::Workstation);
}

constexpr quint32 kPortSize = 2;

quint32 PortOffset(Direction direction, End end)
{
    return IsSource(direction, end) ? 0 : kPortSize;
}

} // namespace

RuleWriter &RuleWriter::Port(Direction direction, End end, quint16 port)
{
    Payload(NFT_PAYLOAD_TRANSPORT_HEADER, PortOffset(direction, end), kPortSize, kRegister);
    Compare(InNetworkOrder(port));
    return *this;
}

RuleWriter &RuleWriter::AddressMasked(Direction direction, End end, Ipv4 mask, Ipv4 network)
{
    LoadAddress(Family::V4, direction, end);
    const size_t expression = Open("bitwise");
    writer.PutU32(NFTA_BITWISE_SREG, kRegister);
    writer.PutU32(NFTA_BITWISE_DREG, kRegister);
    writer.PutU32(NFTA_BITWISE_LEN, 4);
    for (const auto &[type, value] :
         {std::pair(NFTA_BITWISE_MASK, mask), std::pair(NFTA_BITWISE_XOR, Ipv4 {0})}) {
        const size_t data = writer.Nest(static_cast<quint16>(type));
        writer.PutBytes(NFTA_DATA_VALUE, InNetworkOrder(value));
        writer.EndNest(data);
    }
    Close(expression);
    Compare(InNetworkOrder(network));
    return *this;
}

void RuleWriter::LoadAddress(Family family, Direction direction, End end)
{
    const quint32 size = family == Family::V4 ? 4 : 16;
    const quint32 source = family == Family::V4 ? 12 : 8;
    Payload(NFT_PAYLOAD_NETWORK_HEADER,
            IsSource(direction, end) ? source : source + size,
            size,
            kRegister);
}

void RuleWriter::LoadHardware(Family family)
{
    LoadAddress(family, Direction::From, End::Workstation);
    Payload(NFT_PAYLOAD_LL_HEADER, kHardwareOffset, 6, kRegister + RegistersOf(family));
}

void RuleWriter::Lookup(QByteArrayView set, bool inverted)
{
    const size_t expression = Open("lookup");
    writer.PutText(NFTA_LOOKUP_SET, set);
    writer.PutU32(NFTA_LOOKUP_SREG, kRegister);
    if (inverted) {
        writer.PutU32(NFTA_LOOKUP_FLAGS, NFT_LOOKUP_F_INV);
    }
    Close(expression);
}

RuleWriter &RuleWriter::AddressIn(SetId set, Family family, Direction direction, End end)
{
    LoadAddress(family, direction, end);
    Lookup(NameOf(set, family), false);
    return *this;
}

RuleWriter &RuleWriter::PortPicked(Family family, Direction direction, bool picked)
{
    LoadAddress(family, direction, End::Workstation);
    Payload(NFT_PAYLOAD_TRANSPORT_HEADER,
            PortOffset(direction, End::Internet),
            kPortSize,
            kRegister + RegistersOf(family));
    Lookup(NameOf(SetId::Ports, family), !picked);
    return *this;
}

RuleWriter &RuleWriter::HardwareDiffers(Family family)
{
    LoadHardware(family);
    Lookup(NameOf(SetId::Hardware, family), true);
    return *this;
}

RuleWriter &RuleWriter::PortOf(const char *set, Direction direction, bool isIn)
{
    Payload(
        NFT_PAYLOAD_TRANSPORT_HEADER, PortOffset(direction, End::Internet), kPortSize, kRegister);
    Lookup(set, !isIn);
    return *this;
}

void RuleWriter::Update(SetId set, Family family)
{
    const size_t expression = Open("dynset");
    writer.PutText(NFTA_DYNSET_SET_NAME, NameOf(set, family));
    writer.PutU32(NFTA_DYNSET_OP, NFT_DYNSET_OP_UPDATE);
    writer.PutU32(NFTA_DYNSET_SREG_KEY, kRegister);
    if (LayoutOf(set).timeoutMs != 0) {
        writer.PutU64(NFTA_DYNSET_TIMEOUT, LayoutOf(set).timeoutMs);
    }
    Close(expression);
}

RuleWriter &RuleWriter::Note(SetId set, Family family, Direction direction)
{
    LoadAddress(family, direction, End::Workstation);
    Update(set, family);
    return *this;
}

RuleWriter &RuleWriter::NotePair(Family family)
{
    LoadHardware(family);
    Update(SetId::Pairs, family);
    return *this;
}

void RuleWriter::Follow(SetId map, Family family, Direction direction)
{
    LoadAddress(family, direction, End::Workstation);
    const size_t expression = Open("lookup");
    writer.PutText(NFTA_LOOKUP_SET, NameOf(map, family));
    writer.PutU32(NFTA_LOOKUP_SREG, kRegister);
    writer.PutU32(NFTA_LOOKUP_DREG, NFT_REG_VERDICT);
    Close(expression);
}

void RuleWriter::DropOverQuota(SetId map, Family family)
{
    LoadAddress(family, Direction::To, End::Workstation);
    const size_t expression = Open("objref");
    writer.PutU32(NFTA_OBJREF_SET_SREG, kRegister);
    writer.PutText(NFTA_OBJREF_SET_NAME, NameOf(map, family));
    Close(expression);
    Drop();
}

void RuleWriter::Give(quint32 verdict, const QByteArray &chain)
{
    const size_t expression = Open("immediate");
    writer.PutU32(NFTA_IMMEDIATE_DREG, NFT_REG_VERDICT);
    const size_t data = writer.Nest(NFTA_IMMEDIATE_DATA);
    const size_t nested = writer.Nest(NFTA_DATA_VERDICT);
    writer.PutU32(NFTA_VERDICT_CODE, verdict);
    if (!chain.isEmpty()) {
        writer.PutText(NFTA_VERDICT_CHAIN, chain);
    }
    writer.EndNest(nested);
    writer.EndNest(data);
    Close(expression);
}

void RuleWriter::Accept()
{
    Give(NF_ACCEPT);
}

void RuleWriter::Drop()
{
    Give(NF_DROP);
}

void RuleWriter::Goto(const QByteArray &chain)
{
    Give(static_cast<quint32>(NFT_GOTO), chain);
}

void RuleWriter::Jump(const QByteArray &chain)
{
    Give(static_cast<quint32>(NFT_JUMP), chain);
}

void RuleWriter::Reject(quint32 type, quint8 code)
{
    const size_t expression = Open("reject");
    writer.PutU32(NFTA_REJECT_TYPE, type);
    writer.PutU8(NFTA_REJECT_ICMP_CODE, code);
    Close(expression);
}

void RuleWriter::RejectByReset()
{
    Reject(NFT_REJECT_TCP_RST, 0);
}

void RuleWriter::RejectByIcmp()
{
    Reject(NFT_REJECT_ICMPX_UNREACH, NFT_REJECT_ICMPX_ADMIN_PROHIBITED);
}
