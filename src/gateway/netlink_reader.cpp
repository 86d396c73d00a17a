#include "gateway/netlink_reader.h"

#include <QtEndian>

#include <algorithm>
#include <cstring>
#include <linux/netlink.h>

namespace {

constexpr size_t Padded(size_t size)
{
    return (size + 3) & ~size_t {3};
}

template <typename Plain>
std::optional<Plain> PlainAt(NetlinkView bytes, size_t offset = 0)
{
    Plain plain;
    if (bytes.size() < offset + sizeof plain) {
        return std::nullopt;
    }
    std::memcpy(&plain, bytes.data() + offset, sizeof plain);
    return plain;
}

NetlinkView Behind(NetlinkView bytes, size_t size)
{
    return bytes.subspan(std::min(Padded(size), bytes.size()));
}

template <typename Number>
std::optional<Number> NumberIn(const std::optional<NetlinkView> &bytes)
{
    if (!bytes || bytes->size() != sizeof(Number)) {
        return std::nullopt;
    }
    return qFromBigEndian(*PlainAt<Number>(*bytes));
}

struct Attribute
{
    quint16 type;
    NetlinkView value;
};

std::optional<Attribute> TakeAttribute(NetlinkView &bytes)
{
    const std::optional<nlattr> header = PlainAt<nlattr>(bytes);
    if (!header || header->nla_len < sizeof(nlattr) || header->nla_len > bytes.size()) {
        return std::nullopt;
    }
    const Attribute attribute {static_cast<quint16>(header->nla_type & NLA_TYPE_MASK),
                               bytes.subspan(sizeof(nlattr), header->nla_len - sizeof(nlattr))};
    bytes = Behind(bytes, header->nla_len);
    return attribute;
}

} // namespace

std::optional<NetlinkAttributes> NetlinkAttributes::From(NetlinkView bytes)
{
    NetlinkAttributes read;
    while (!bytes.empty()) {
        const std::optional<Attribute> attribute = TakeAttribute(bytes);
        if (!attribute) {
            return std::nullopt;
        }
        if (attribute->type < read.values.size()) {
            read.values[attribute->type] = attribute->value;
        }
    }
    return read;
}

std::optional<NetlinkView> NetlinkAttributes::Bytes(quint16 type) const
{
    return values.at(type);
}

std::optional<NetlinkAttributes> NetlinkAttributes::Nest(quint16 type) const
{
    const std::optional<NetlinkView> bytes = Bytes(type);
    return bytes ? From(*bytes) : std::nullopt;
}

std::optional<quint32> NetlinkAttributes::U32(quint16 type) const
{
    return NumberIn<quint32>(Bytes(type));
}

std::optional<quint64> NetlinkAttributes::U64(quint16 type) const
{
    return NumberIn<quint64>(Bytes(type));
}

std::optional<QByteArray> NetlinkAttributes::Text(quint16 type) const
{
    const std::optional<NetlinkView> bytes = Bytes(type);
    if (!bytes) {
        return std::nullopt;
    }
    const auto end = std::ranges::find(*bytes, quint8 {0});
    return QByteArray(reinterpret_cast<const char *>(bytes->data()), end - bytes->begin());
}

std::optional<NetlinkAttributes> NetlinkMessage::Attributes(size_t headerSize) const
{
    if (body.size() < headerSize) {
        return std::nullopt;
    }
    return NetlinkAttributes::From(Behind(body, headerSize));
}

std::optional<int> NetlinkMessage::Error() const
{
    const std::optional<qint32> negative = PlainAt<qint32>(body);
    if (!negative || *negative > 0 || *negative < -4095) {
        return std::nullopt;
    }
    return -*negative;
}

std::optional<NetlinkMessage> TakeMessage(NetlinkView &bytes)
{
    const std::optional<nlmsghdr> header = PlainAt<nlmsghdr>(bytes);
    if (!header || header->nlmsg_len < sizeof(nlmsghdr) || header->nlmsg_len > bytes.size()) {
        return std::nullopt;
    }
    const NetlinkMessage message {
        header->nlmsg_type,
        header->nlmsg_flags,
        header->nlmsg_seq,
        bytes.subspan(sizeof(nlmsghdr), header->nlmsg_len - sizeof(nlmsghdr))};
    bytes = Behind(bytes, header->nlmsg_len);
    return message;
}

std::optional<NetlinkView> TakeListed(NetlinkView &bytes)
{
    const std::optional<Attribute> attribute = TakeAttribute(bytes);
    return attribute ? std::optional(attribute->value) : std::nullopt;
}
