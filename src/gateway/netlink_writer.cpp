#include "gateway/netlink_writer.h"

#include <QtEndian>

#include <array>
#include <cstring>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>

namespace {

constexpr size_t Padded(size_t size)
{
    return (size + 3) & ~size_t {3};
}

template <typename Plain>
std::span<const quint8> BytesOf(const Plain &plain)
{
    return {reinterpret_cast<const quint8 *>(&plain), sizeof plain};
}

void AppendPadded(NetlinkBytes &bytes, std::span<const quint8> value)
{
    bytes.insert(bytes.end(), value.begin(), value.end());
    bytes.resize(Padded(bytes.size()));
}

} // namespace

void NetlinkWriter::Begin(quint16 type, quint16 flags, quint8 family, quint16 resource)
{
    const nfgenmsg header {
        .nfgen_family = family, .version = NFNETLINK_V0, .res_id = qToBigEndian(resource)};
    BeginWith(type, flags, BytesOf(header));
}

void NetlinkWriter::BeginWith(quint16 type, quint16 flags, std::span<const quint8> header)
{
    message = bytes.size();
    const nlmsghdr start {.nlmsg_len = 0,
                          .nlmsg_type = type,
                          .nlmsg_flags = static_cast<quint16>(flags | NLM_F_REQUEST),
                          .nlmsg_seq = 0,
                          .nlmsg_pid = 0};
    AppendPadded(bytes, BytesOf(start));
    AppendPadded(bytes, header);
}

void NetlinkWriter::End()
{
    const auto length = static_cast<quint32>(bytes.size() - message);
    std::memcpy(&bytes[message], &length, sizeof length);
}

void NetlinkWriter::PutBytes(quint16 type, std::span<const quint8> value)
{
    const std::array<quint16, 2> header = {static_cast<quint16>(4 + value.size()), type};
    AppendPadded(bytes, BytesOf(header));
    AppendPadded(bytes, value);
}

void NetlinkWriter::PutText(quint16 type, QByteArrayView value)
{
    NetlinkBytes text(value.begin(), value.end());
    text.push_back(0);
    PutBytes(type, text);
}

void NetlinkWriter::PutU8(quint16 type, quint8 value)
{
    PutBytes(type, BytesOf(value));
}

void NetlinkWriter::PutU32(quint16 type, quint32 value)
{
    PutBytes(type, BytesOf(qToBigEndian(value)));
}

void NetlinkWriter::PutU64(quint16 type, quint64 value)
{
    PutBytes(type, BytesOf(qToBigEndian(value)));
}

size_t NetlinkWriter::Nest(quint16 type)
{
    const size_t at = bytes.size();
    PutBytes(static_cast<quint16>(type | NLA_F_NESTED), {});
    return at;
}

void NetlinkWriter::EndNest(size_t at)
{
    const auto length = static_cast<quint16>(bytes.size() - at);
    std::memcpy(&bytes[at], &length, sizeof length);
}

void NetlinkWriter::Append(const NetlinkWriter &other)
{
    message = bytes.size() + other.message;
    bytes.insert(bytes.end(), other.bytes.begin(), other.bytes.end());
}

void NetlinkWriter::Number(quint32 first)
{
    size_t at = 0;
    while (at < bytes.size()) {
        nlmsghdr header;
        std::memcpy(&header, &bytes[at], sizeof header);
        header.nlmsg_seq = first++;
        if (at == message) {
            header.nlmsg_flags |= NLM_F_ACK;
        }
        std::memcpy(&bytes[at], &header, sizeof header);
        at += Padded(header.nlmsg_len);
    }
}
