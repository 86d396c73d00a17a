// What the kernel sends, read with every length checked: a message that was cut short or garbled
// reads as nothing, never as zero.
#pragma once

#include <QByteArray>

#include <array>
#include <optional>
#include <span>

using NetlinkView = std::span<const quint8>;

// The attributes of one message or nest, of types below 32; a later one of a type counts.
class NetlinkAttributes
{
public:
    // Nothing when a length leaves the bytes.
    [[nodiscard]] static std::optional<NetlinkAttributes> From(NetlinkView bytes);

    [[nodiscard]] std::optional<NetlinkView> Bytes(quint16 type) const;
    [[nodiscard]] std::optional<NetlinkAttributes> Nest(quint16 type) const;
    [[nodiscard]] std::optional<quint32> U32(quint16 type) const; // in network order
    [[nodiscard]] std::optional<quint64> U64(quint16 type) const;
    [[nodiscard]] std::optional<QByteArray> Text(quint16 type) const; // up to its zero

private:
    std::array<std::optional<NetlinkView>, 32> values;
};

// One message; `body` is what follows netlink's own header.
struct NetlinkMessage
{
    quint16 type = 0;
    quint16 flags = 0;
    quint32 sequence = 0;
    NetlinkView body;

    // The attributes behind a header of `headerSize` bytes, padding included.
    [[nodiscard]] std::optional<NetlinkAttributes> Attributes(size_t headerSize) const;

    // What a message of type NLMSG_ERROR tells: 0 for an acknowledgement, else a number of errno.h;
    // nothing when it was cut short.
    [[nodiscard]] std::optional<int> Error() const;
};

// Takes the first message off `bytes`; nothing, and `bytes` as they were, when it does not fit.
[[nodiscard]] std::optional<NetlinkMessage> TakeMessage(NetlinkView &bytes);

// Takes the first element off a nest that is a list of attributes of one type.
[[nodiscard]] std::optional<NetlinkView> TakeListed(NetlinkView &bytes);
