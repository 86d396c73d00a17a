#include "gateway/table_layout.h"

#include <algorithm>
#include <linux/netfilter.h>
#include <linux/netfilter/nf_tables.h>

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 kPairsStayMs = 30ULL * 60 * 1000;

constexpr SetLayout kLayouts[kSetCount] = {
    {.stem = "sent", .value = ValueKind::Accept, .counts = true},
    {.stem = "received", .value = ValueKind::Accept, .counts = true},
    {.stem = "from", .value = ValueKind::PacketVerdict},
    {.stem = "to", .value = ValueKind::PacketVerdict},
    {.stem = "ports", .key = KeyKind::AddressAndPort},
    {.stem = "hardware", .key = KeyKind::AddressAndHardware},
    {.stem = "left", .value = ValueKind::Quota},
    {.stem = "group_left", .value = ValueKind::Quota},
    {.stem = "refused"},
    {.stem = "seen_sent", .counts = true, .dynamic = true},
    {.stem = "seen_received", .counts = true, .dynamic = true},
    {.stem = "seen_refused", .dynamic = true},
    {.stem = "pairs",
     .key = KeyKind::AddressAndHardware,
     .dynamic = true,
     .timeoutMs = kPairsStayMs},
    {.stem = "near", .interval = true},
};

// Stems of the chains by verdict; those of From and To that bear the same verdict differ.
struct VerdictChain
{
    PacketVerdict verdict;
    SetId map;
    const char *stem;
};
constexpr VerdictChain kChains[] = {
    {PacketVerdict::Hardware, SetId::From, "from_hardware"},
    {PacketVerdict::HardwareAllow, SetId::From, "from_hardware_allow"},
    {PacketVerdict::HardwareDeny, SetId::From, "from_hardware_deny"},
    {PacketVerdict::Allow, SetId::From, "from_allow"},
    {PacketVerdict::Deny, SetId::From, "from_deny"},
    {PacketVerdict::Allow, SetId::To, "to_allow"},
    {PacketVerdict::Deny, SetId::To, "to_deny"},
    {PacketVerdict::Left, SetId::To, "to_left"},
    {PacketVerdict::LeftOfGroup, SetId::To, "to_left_group"},
};
constexpr const char *kRefuseChain = "refuse"; // one for both families

NetlinkView AddressBytes(const NetAddress &address)
{
    const NetlinkView all = address.AllBytes();
    return address.IsIpv4() ? all.last(4) : all;
}

// Each part of a key that is made of several fills whole registers of four bytes.
NetlinkBytes KeyBytes(KeyKind kind, const Element &element)
{
    const NetlinkView address = AddressBytes(element.address);
    NetlinkBytes key(address.begin(), address.end());
    if (kind == KeyKind::AddressAndPort) {
        key.insert(
            key.end(),
            {static_cast<quint8>(element.detail >> 8), static_cast<quint8>(element.detail), 0, 0});
    } else if (kind == KeyKind::AddressAndHardware) {
        const HardwareAddress hardware = HardwareFrom(element.detail);
        key.insert(key.end(), hardware.bytes.begin(), hardware.bytes.end());
        key.insert(key.end(), {0, 0});
    }
    return key;
}

quint32 CodeOf(PacketVerdict verdict)
{
    switch (verdict) {
    case PacketVerdict::Pass:
        return NF_ACCEPT;
    case PacketVerdict::Silent:
        return NF_DROP;
    default:
        return static_cast<quint32>(NFT_GOTO);
    }
}

void PutVerdict(NetlinkWriter &writer, SetId set, const Element &element)
{
    const auto verdict = LayoutOf(set).value == ValueKind::Accept
        ? PacketVerdict::Pass
        : static_cast<PacketVerdict>(element.value);
    const QByteArray chain = ChainOf(verdict, set, FamilyOf(element.address));
    const size_t data = writer.Nest(NFTA_SET_ELEM_DATA);
    const size_t nested = writer.Nest(NFTA_DATA_VERDICT);
    writer.PutU32(NFTA_VERDICT_CODE, CodeOf(verdict));
    if (!chain.isEmpty()) {
        writer.PutText(NFTA_VERDICT_CHAIN, chain);
    }
    writer.EndNest(nested);
    writer.EndNest(data);
}

std::optional<NetAddress> AddressFrom(NetlinkView bytes)
{
    if (bytes.size() == 4) {
        return NetAddress::FromIpv4(static_cast<quint32>(bytes[0]) << 24
                                    | static_cast<quint32>(bytes[1]) << 16
                                    | static_cast<quint32>(bytes[2]) << 8 | bytes[3]);
    }
    NetAddress::Bytes whole;
    std::ranges::copy(bytes, whole.begin());
    return NetAddress(whole);
}

std::optional<Element> ElementFromKey(NetlinkView key, KeyKind kind, Family family)
{
    const size_t addressSize = family == Family::V4 ? 4 : 16;
    const size_t detailSize = kind == KeyKind::Address ? 0
        : kind == KeyKind::AddressAndPort              ? 4
                                                       : 8;
    if (key.size() != addressSize + detailSize) {
        return std::nullopt;
    }
    const std::optional<NetAddress> address = AddressFrom(key.first(addressSize));
    Element element {.address = *address};
    const size_t significant = kind == KeyKind::AddressAndPort ? 2 : 6;
    for (size_t i = 0; i < std::min(significant, detailSize); ++i) {
        element.detail = element.detail << 8 | key[addressSize + i];
    }
    return element;
}

std::optional<quint32> VerdictFrom(const NetlinkAttributes &element, SetId set, Family family)
{
    const auto data = element.Nest(NFTA_SET_ELEM_DATA);
    const auto verdict = data ? data->Nest(NFTA_DATA_VERDICT) : std::nullopt;
    const auto code = verdict ? verdict->U32(NFTA_VERDICT_CODE) : std::nullopt;
    if (!code) {
        return std::nullopt;
    }
    const QByteArray chain = verdict->Text(NFTA_VERDICT_CHAIN).value_or(QByteArray());
    for (quint32 value = 1; value < static_cast<quint32>(PacketVerdict::Unknown); ++value) {
        const auto ours = static_cast<PacketVerdict>(value);
        if (CodeOf(ours) == *code && ChainOf(ours, set, family) == chain) {
            return value;
        }
    }
    return static_cast<quint32>(PacketVerdict::Unknown);
}

std::optional<quint32> QuotaIdFrom(const NetlinkAttributes &element)
{
    const auto name = element.Text(NFTA_SET_ELEM_OBJREF);
    if (!name) {
        return std::nullopt;
    }
    const std::optional<QuotaId> quota = QuotaFrom(*name);
    return quota ? quota->id : 0; // 0 is nobody's: it is replaced
}

std::optional<quint64> CounterFrom(const NetlinkAttributes &element)
{
    const auto expression = element.Nest(NFTA_SET_ELEM_EXPR);
    const auto data = expression ? expression->Nest(NFTA_EXPR_DATA) : std::nullopt;
    return data ? data->U64(NFTA_COUNTER_BYTES) : std::nullopt;
}

} // namespace

const SetLayout &LayoutOf(SetId set)
{
    return kLayouts[static_cast<size_t>(set)];
}

QByteArray NameOf(SetId set, Family family)
{
    return Numbered(LayoutOf(set).stem, family);
}

QByteArray Numbered(const char *stem, Family family)
{
    return QByteArray(stem) + (family == Family::V4 ? '4' : '6');
}

QByteArray ChainOf(PacketVerdict verdict, SetId map, Family family)
{
    if (verdict == PacketVerdict::Refuse) {
        return kRefuseChain;
    }
    for (const VerdictChain &chain : kChains) {
        if (chain.verdict == verdict && chain.map == map) {
            return Numbered(chain.stem, family);
        }
    }
    return {};
}

QByteArray NameOf(QuotaId quota)
{
    return (quota.kind == QuotaId::Kind::User ? "u" : "g") + QByteArray::number(quota.id);
}

std::optional<QuotaId> QuotaFrom(const QByteArray &name)
{
    bool isNumber = false;
    const QuotaId quota {.kind = name.startsWith('g') ? QuotaId::Kind::Group : QuotaId::Kind::User,
                         .id = name.mid(1).toUInt(&isNumber)};
    return isNumber && NameOf(quota) == name ? std::optional(quota) : std::nullopt;
}

quint64 NumberOf(const HardwareAddress &hardware)
{
    quint64 number = 0;
    for (const quint8 byte : hardware.bytes) {
        number = number << 8 | byte;
    }
    return number;
}

HardwareAddress HardwareFrom(quint64 number)
{
    HardwareAddress hardware;
    for (quint8 &byte : hardware.bytes) {
        byte = static_cast<quint8>(number >> 40);
        number <<= 8;
    }
    return hardware;
}

void PutElement(NetlinkWriter &writer, SetId set, const Element &element, bool whole)
{
    const SetLayout &layout = LayoutOf(set);
    const size_t listed = writer.Nest(NFTA_LIST_ELEM);
    const size_t key = writer.Nest(NFTA_SET_ELEM_KEY);
    writer.PutBytes(NFTA_DATA_VALUE, KeyBytes(layout.key, element));
    writer.EndNest(key);
    const bool isVerdict =
        layout.value == ValueKind::PacketVerdict || layout.value == ValueKind::Accept;
    if (whole && isVerdict) {
        PutVerdict(writer, set, element);
    } else if (whole && layout.value == ValueKind::Quota) {
        const auto kind = set == SetId::GroupLeft ? QuotaId::Kind::Group : QuotaId::Kind::User;
        writer.PutText(NFTA_SET_ELEM_OBJREF, NameOf(QuotaId {kind, element.value}));
    }
    writer.EndNest(listed);
}

std::optional<ReadElement> ReadElementFrom(NetlinkView bytes, SetId set, Family family)
{
    const SetLayout &layout = LayoutOf(set);
    const auto attributes = NetlinkAttributes::From(bytes);
    const auto key = attributes ? attributes->Nest(NFTA_SET_ELEM_KEY) : std::nullopt;
    const auto keyBytes = key ? key->Bytes(NFTA_DATA_VALUE) : std::nullopt;
    const auto element = keyBytes ? ElementFromKey(*keyBytes, layout.key, family) : std::nullopt;
    const auto value = !element                    ? std::nullopt
        : layout.value == ValueKind::PacketVerdict ? VerdictFrom(*attributes, set, family)
        : layout.value == ValueKind::Quota         ? QuotaIdFrom(*attributes)
                                                   : std::optional<quint32>(0);
    const auto counted =
        !element || !layout.counts ? std::optional<quint64>(0) : CounterFrom(*attributes);
    if (!value || !counted) {
        return std::nullopt;
    }
    ReadElement read {*element, *counted};
    read.element.value = *value;
    return read;
}
