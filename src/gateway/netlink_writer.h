// Messages to the kernel, built up byte by byte in one buffer.
#pragma once

#include <QByteArrayView>

#include <span>
#include <vector>

using NetlinkBytes = std::vector<quint8>;

// Appends messages of netlink, with their attributes, behind one another. Numbers of nftables'
// attributes travel in network order.
class NetlinkWriter
{
public:
    // Starts a message of the netfilter kind; the one before must have been ended.
    void Begin(quint16 type, quint16 flags, quint8 family, quint16 resource = 0);

    // Starts a message with another kind of header behind netlink's own.
    void BeginWith(quint16 type, quint16 flags, std::span<const quint8> header);

    void End();

    void PutBytes(quint16 type, std::span<const quint8> value);
    void PutText(quint16 type, QByteArrayView value); // with the zero behind it
    void PutU8(quint16 type, quint8 value);
    void PutU32(quint16 type, quint32 value);
    void PutU64(quint16 type, quint64 value);

    // Attributes put until EndNest are inside this one; `at` is what Nest gave.
    [[nodiscard]] size_t Nest(quint16 type);
    void EndNest(size_t at);

    // Appends messages that another writer has ended.
    void Append(const NetlinkWriter &other);

    // Numbers the messages from `first` on and has the last one acknowledged.
    void Number(quint32 first);

    [[nodiscard]] size_t MessageSize() const { return bytes.size() - message; }
    [[nodiscard]] const NetlinkBytes &Bytes() const { return bytes; }
    [[nodiscard]] bool IsEmpty() const { return bytes.empty(); }

private:
    NetlinkBytes bytes;
    size_t message = 0; // where the one that was begun last starts
};
