// A socket to the kernel: whole batches go out, dumps and notifications come in.
#pragma once

#include "base/function_ref.h"
#include "gateway/gateway_failure.h"
#include "gateway/netlink_reader.h"
#include "gateway/netlink_writer.h"

class NetlinkSocket
{
public:
    // `protocol` is one of linux/netlink.h; `groups` the numbers of the notifications to hear.
    [[nodiscard]] static GatewayResult<NetlinkSocket> Open(int protocol,
                                                           std::span<const int> groups = {});
    NetlinkSocket(NetlinkSocket &&other) noexcept;
    NetlinkSocket &operator=(NetlinkSocket &&other) noexcept;
    ~NetlinkSocket();

    // Sends `messages` as one datagram, which a batch of nftables makes one transaction, and waits
    // until the kernel has done all of it or nothing. `what` names it for people.
    [[nodiscard]] GatewayResult<void> Commit(const NetlinkWriter &messages, const QString &what);

    // Sends one request and hands over each message of the answer. `take` gives false for one that
    // it cannot read. A dump that something changed meanwhile is asked for again: `restart` is
    // called before each attempt.
    [[nodiscard]] GatewayResult<void> Dump(const NetlinkWriter &request,
                                           FunctionRef<void()> restart,
                                           FunctionRef<bool(const NetlinkMessage &)> take,
                                           const QString &what);

    // Of notifications only those that start with one of these messages are heard: others, of which
    // there are many during a bulk load, do not fill the buffer.
    [[nodiscard]] GatewayResult<void> HearOnly(std::span<const quint16> types);

    // Hands over the notifications that wait, without waiting for more; false when some were lost
    // because they came faster than they were taken.
    [[nodiscard]] bool TakeWaiting(FunctionRef<void(const NetlinkMessage &)> take);

    [[nodiscard]] int Descriptor() const { return descriptor; }

    // The largest number of bytes that Commit sends in one piece.
    [[nodiscard]] size_t LargestBatch() const { return largestBatch; }

private:
    explicit NetlinkSocket(int socket) : descriptor(socket) { }

    enum class Attempt { Done, Again };
    [[nodiscard]] GatewayResult<void> Send(const NetlinkBytes &bytes, const QString &what) const;
    [[nodiscard]] GatewayResult<NetlinkView> Receive(const QString &what);
    [[nodiscard]] static GatewayResult<Attempt> EndOfDump(const NetlinkMessage &last,
                                                          const QString &what);
    [[nodiscard]] GatewayResult<bool> TakeDumped(NetlinkView rest,
                                                 FunctionRef<bool(const NetlinkMessage &)> take,
                                                 Attempt &attempt,
                                                 const QString &what) const;
    [[nodiscard]] GatewayResult<Attempt> DumpOnce(FunctionRef<bool(const NetlinkMessage &)> take,
                                                  const QString &what);

    int descriptor = -1;
    size_t largestBatch = 0;
    quint32 sequence = 0;
    NetlinkBytes buffer;
};

// The failure that an error number of the kernel stands for.
[[nodiscard]] GatewayFailure FailureOf(int error, const QString &what);
