// The table `inet tollbrook` as it stands in the kernel: its sets, its verdicts, its quotas, and how
// their elements are spelled.
#pragma once

#include "base/net_address.h"
#include "gateway/netlink_reader.h"
#include "gateway/netlink_writer.h"

#include <vector>

inline constexpr const char *kTableName = "tollbrook";
inline constexpr const char *kForwardChain = "forward"; // where each packet's way begins

enum class Family { V4, V6 };
inline constexpr std::array kFamilies = {Family::V4, Family::V6};

[[nodiscard]] inline Family FamilyOf(const NetAddress &address)
{
    return address.IsIpv4() ? Family::V4 : Family::V6;
}

// Each stands in the kernel once for each family, its name ending in 4 or 6.
enum class SetId {
    Sent, // map of known addresses to `accept`, with a counter that a lookup raises
    Received,
    From, // map of what is to become of packets from a known address that is not just counted
    To,
    Ports, // address and port of the Internet's side: the picked ones of a client
    Hardware, // address and hardware address that belong together
    Left, // map of a client's addresses to its quota
    GroupLeft,
    Refused, // addresses that reach little of the gateway itself
    SeenSent, // of unknown addresses, added by the packets themselves, with a counter
    SeenReceived,
    SeenRefused, // unknown addresses none of whose packets passed
    Pairs, // address and hardware address, noted of packets; they expire
    Near, // local ranges and excluded addresses when they are many; of IPv6 the excluded ones
};
constexpr int kSetCount = static_cast<int>(SetId::Near) + 1;

enum class KeyKind { Address, AddressAndPort, AddressAndHardware };
enum class ValueKind { None, PacketVerdict, Accept, Quota };

struct SetLayout
{
    const char *stem; // of its name
    KeyKind key = KeyKind::Address;
    ValueKind value = ValueKind::None;
    bool counts = false;
    bool dynamic = false; // packets add to it
    bool interval = false; // for IPv4; no IPv6 ranges are known
    quint64 timeoutMs = 0; // 0: elements stay
};

[[nodiscard]] const SetLayout &LayoutOf(SetId set);
[[nodiscard]] QByteArray NameOf(SetId set, Family family);

// `stem` with the family's digit.
[[nodiscard]] QByteArray Numbered(const char *stem, Family family);

// What becomes of the packets of an address, as the element of From or To says. The verdicts with
// Hardware are From's alone, those with Left To's.
enum class PacketVerdict : quint32 {
    Pass = 1, // neither counted nor refused
    Silent, // dropped without a word
    Refuse, // answered
    Hardware, // goes on only with the right hardware address
    HardwareAllow,
    HardwareDeny,
    Allow, // goes on only with a picked port
    Deny, // goes on without a picked port
    Left, // goes on while its quota lasts
    LeftOfGroup, // goes on while its own quota and its group's last
    Unknown, // none of ours, as read
};

// The chain of a verdict; empty for Pass and Silent.
[[nodiscard]] QByteArray ChainOf(PacketVerdict verdict, SetId map, Family family);

struct QuotaId
{
    enum class Kind : quint8 { User, Group };
    Kind kind = Kind::User;
    quint32 id = 0;

    auto operator<=>(const QuotaId &) const = default; // NOLINT: the compiler writes the 0
};

[[nodiscard]] QByteArray NameOf(QuotaId quota);
[[nodiscard]] std::optional<QuotaId> QuotaFrom(const QByteArray &name);

// One element of a set; also the whole of what this program knows about one.
struct Element
{
    NetAddress address;
    quint64 detail = 0; // the port, or the hardware address as a number; else 0
    quint32 value = 0; // a PacketVerdict, or the id of a quota's user or group; else 0

    auto operator<=>(const Element &) const = default; // NOLINT: the compiler writes the 0
};
using Elements = std::vector<Element>; // sorted

[[nodiscard]] quint64 NumberOf(const HardwareAddress &hardware);
[[nodiscard]] HardwareAddress HardwareFrom(quint64 number);

// Puts one element into the list attribute of a message that adds it (`whole`) or removes it.
void PutElement(NetlinkWriter &writer, SetId set, const Element &element, bool whole);

struct ReadElement
{
    Element element;
    quint64 bytes = 0; // its counter's
};

// An element as a dump of `set` spells it; nothing when a part is missing or of the wrong size.
[[nodiscard]] std::optional<ReadElement>
ReadElementFrom(NetlinkView bytes, SetId set, Family family);
