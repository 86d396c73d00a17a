#include "gateway/netlink_socket.h"

#include <QtEndian>

#include <algorithm>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <limits>
#include <linux/filter.h>
#include <linux/netfilter/nf_tables.h>
#include <linux/netfilter/nfnetlink.h>
#include <linux/netlink.h>
#include <sys/socket.h>
#include <sys/time.h>
#include <unistd.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr int kWantedBuffer = 4 << 20;
constexpr size_t kLargestBatch = 1 << 20;
constexpr int kDumpAttempts = 50;
constexpr timeval kLongestAnswer {.tv_sec = 10, .tv_usec = 0};

template <typename Value>
bool Option(int socket, int level, int name, const Value &value)
{
    return setsockopt(socket, level, name, &value, sizeof value) == 0;
}

// Beyond the system's limit only the machine's own administrator may go, not one of a namespace.
void WidenBuffers(int socket)
{
    if (!Option(socket, SOL_SOCKET, SO_SNDBUFFORCE, kWantedBuffer)) {
        Option(socket, SOL_SOCKET, SO_SNDBUF, kWantedBuffer);
    }
    if (!Option(socket, SOL_SOCKET, SO_RCVBUFFORCE, kWantedBuffer)) {
        Option(socket, SOL_SOCKET, SO_RCVBUF, kWantedBuffer);
    }
}

size_t SendBuffer(int socket)
{
    int size = 0;
    socklen_t length = sizeof size;
    getsockopt(socket, SOL_SOCKET, SO_SNDBUF, &size, &length);
    return static_cast<size_t>(size);
}

NetlinkWriter Batch(const NetlinkWriter &messages, quint32 first)
{
    NetlinkWriter batch;
    batch.Begin(NFNL_MSG_BATCH_BEGIN, 0, AF_UNSPEC, NFNL_SUBSYS_NFTABLES);
    batch.End();
    batch.Append(messages);
    batch.Number(first);
    batch.Begin(NFNL_MSG_BATCH_END, 0, AF_UNSPEC, NFNL_SUBSYS_NFTABLES);
    batch.End();
    return batch;
}

quint32 CountMessages(const NetlinkWriter &messages)
{
    quint32 count = 0;
    NetlinkView rest = messages.Bytes();
    while (TakeMessage(rest)) {
        ++count;
    }
    return count;
}

GatewayFailure Unreadable(const QString &what)
{
    return {GatewayFailure::Kind::Unreadable, what + u": the kernel's answer could not be read"_s};
}

bool IsPassing(int error)
{
    return error == EINTR || error == EAGAIN;
}

} // namespace

GatewayFailure FailureOf(int error, const QString &what)
{
    using Kind = GatewayFailure::Kind;
    Kind kind = Kind::Refused;
    QString means;
    if (error == EPERM || error == EACCES) {
        kind = Kind::NotPermitted;
        means = u". That needs CAP_NET_ADMIN, which the service's unit gives"_s;
    } else if (error == EPROTONOSUPPORT || error == EAFNOSUPPORT || error == EOPNOTSUPP) {
        kind = Kind::NotSupported;
    } else if (error == ENOBUFS || error == EAGAIN) {
        kind = Kind::Unreadable;
    }
    return {kind, what + u": "_s + QString::fromLocal8Bit(std::strerror(error)) + means};
}

GatewayResult<NetlinkSocket> NetlinkSocket::Open(int protocol, std::span<const int> groups)
{
    NetlinkSocket opened(socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC, protocol));
    const sockaddr_nl anyPort {.nl_family = AF_NETLINK, .nl_pad = 0, .nl_pid = 0, .nl_groups = 0};
    const auto *address = reinterpret_cast<const sockaddr *>(&anyPort);
    if (opened.descriptor < 0 || bind(opened.descriptor, address, sizeof anyPort) != 0) {
        return tl::unexpected(FailureOf(errno, u"Opening a connection to the kernel"_s));
    }
    for (const int group : groups) {
        if (!Option(opened.descriptor, SOL_NETLINK, NETLINK_ADD_MEMBERSHIP, group)) {
            return tl::unexpected(FailureOf(errno, u"Listening to the kernel"_s));
        }
    }
    WidenBuffers(opened.descriptor);
    Option(opened.descriptor, SOL_NETLINK, NETLINK_CAP_ACK, 1);
    Option(opened.descriptor, SOL_SOCKET, SO_RCVTIMEO, kLongestAnswer);
    opened.largestBatch = std::min(SendBuffer(opened.descriptor) - 4096, kLargestBatch);
    opened.buffer.resize(size_t {256} << 10);
    return opened;
}

NetlinkSocket::NetlinkSocket(NetlinkSocket &&other) noexcept
    : descriptor(std::exchange(other.descriptor, -1))
    , largestBatch(other.largestBatch)
    , sequence(other.sequence)
    , buffer(std::move(other.buffer))
{ }

NetlinkSocket &NetlinkSocket::operator=(NetlinkSocket &&other) noexcept
{
    std::swap(descriptor, other.descriptor);
    std::swap(largestBatch, other.largestBatch);
    std::swap(sequence, other.sequence);
    std::swap(buffer, other.buffer);
    return *this;
}

NetlinkSocket::~NetlinkSocket()
{
    if (descriptor >= 0) {
        close(descriptor);
    }
}

GatewayResult<void> NetlinkSocket::Send(const NetlinkBytes &bytes, const QString &what) const
{
    if (send(descriptor, bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size())) {
        return tl::unexpected(FailureOf(errno, what));
    }
    return {};
}

GatewayResult<NetlinkView> NetlinkSocket::Receive(const QString &what)
{
    ssize_t size = -1;
    do {
        size = recv(descriptor, buffer.data(), buffer.size(), MSG_TRUNC);
    } while (size < 0 && errno == EINTR);
    if (size < 0) {
        return tl::unexpected(FailureOf(errno, what));
    }
    if (static_cast<size_t>(size) > buffer.size()) {
        return tl::unexpected(Unreadable(what));
    }
    return NetlinkView(buffer).first(static_cast<size_t>(size));
}

GatewayResult<void> NetlinkSocket::Commit(const NetlinkWriter &messages, const QString &what)
{
    const quint32 first = ++sequence;
    const quint32 last = sequence += CountMessages(messages);
    GatewayResult<void> outcome = Send(Batch(messages, first).Bytes(), what);
    bool answered = !outcome;
    while (!answered) {
        const GatewayResult<NetlinkView> received = Receive(what);
        if (!received) {
            return tl::unexpected(received.error());
        }
        NetlinkView rest = *received;
        while (const std::optional<NetlinkMessage> message = TakeMessage(rest)) {
            if (message->type != NLMSG_ERROR || message->sequence < first) {
                continue; // an answer to what was given up before
            }
            const std::optional<int> error = message->Error();
            if (!error) {
                outcome = tl::unexpected(Unreadable(what));
            } else if (*error != 0 && outcome) {
                outcome = tl::unexpected(FailureOf(*error, what));
            }
            // What concerns the batch as a whole is told of its first message.
            answered = answered || message->sequence == last || message->sequence == first;
        }
    }
    return outcome;
}

// What the message that ends a dump says of it.
GatewayResult<NetlinkSocket::Attempt> NetlinkSocket::EndOfDump(const NetlinkMessage &last,
                                                               const QString &what)
{
    const std::optional<int> error = last.Error();
    if (!error) {
        return tl::unexpected(Unreadable(what));
    }
    if (*error != 0 && !IsPassing(*error)) {
        return tl::unexpected(FailureOf(*error, what));
    }
    return *error == 0 ? Attempt::Done : Attempt::Again;
}

// Whether the dump ends with these messages. `attempt` becomes what is to be done with it.
GatewayResult<bool> NetlinkSocket::TakeDumped(NetlinkView rest,
                                              FunctionRef<bool(const NetlinkMessage &)> take,
                                              Attempt &attempt,
                                              const QString &what) const
{
    while (const std::optional<NetlinkMessage> message = TakeMessage(rest)) {
        if (message->sequence != sequence) {
            continue;
        }
        if ((message->flags & NLM_F_DUMP_INTR) != 0) {
            attempt = Attempt::Again;
        }
        if (message->type == NLMSG_ERROR || message->type == NLMSG_DONE) {
            return EndOfDump(*message, what).map([&attempt](Attempt end) {
                attempt = end == Attempt::Done ? attempt : end;
                return true;
            });
        }
        if (!take(*message)) {
            return tl::unexpected(Unreadable(what));
        }
    }
    return rest.empty() ? GatewayResult<bool>(false) : tl::unexpected(Unreadable(what));
}

GatewayResult<NetlinkSocket::Attempt>
NetlinkSocket::DumpOnce(FunctionRef<bool(const NetlinkMessage &)> take, const QString &what)
{
    Attempt attempt = Attempt::Done;
    while (true) {
        const GatewayResult<bool> ended = Receive(what).and_then(
            [&](NetlinkView received) { return TakeDumped(received, take, attempt, what); });
        if (!ended) {
            return tl::unexpected(ended.error());
        }
        if (*ended) {
            return attempt;
        }
    }
}

GatewayResult<void> NetlinkSocket::Dump(const NetlinkWriter &request,
                                        FunctionRef<void()> restart,
                                        FunctionRef<bool(const NetlinkMessage &)> take,
                                        const QString &what)
{
    for (int attempt = 0; attempt < kDumpAttempts; ++attempt) {
        restart();
        NetlinkWriter numbered = request;
        numbered.Number(++sequence);
        const GatewayResult<Attempt> result =
            Send(numbered.Bytes(), what).and_then([&] { return DumpOnce(take, what); });
        if (!result) {
            return tl::unexpected(result.error());
        }
        if (*result == Attempt::Done) {
            return {};
        }
    }
    return tl::unexpected(Unreadable(what));
}

GatewayResult<void> NetlinkSocket::HearOnly(std::span<const quint16> types)
{
    // The kernel's filter loads in network order what netlink writes in the machine's.
    std::vector<sock_filter> code {
        {BPF_LD | BPF_H | BPF_ABS, 0, 0, offsetof(nlmsghdr, nlmsg_type)}};
    for (const quint16 type : types) {
        code.push_back({BPF_JMP | BPF_JEQ | BPF_K, 0, 1, qToBigEndian(type)});
        code.push_back({BPF_RET | BPF_K, 0, 0, std::numeric_limits<quint32>::max()});
    }
    code.push_back({BPF_RET | BPF_K, 0, 0, 0});
    const sock_fprog program {static_cast<quint16>(code.size()), code.data()};
    if (!Option(descriptor, SOL_SOCKET, SO_ATTACH_FILTER, program)) {
        return tl::unexpected(FailureOf(errno, u"Listening to the kernel"_s));
    }
    return {};
}

bool NetlinkSocket::TakeWaiting(FunctionRef<void(const NetlinkMessage &)> take)
{
    bool complete = true;
    while (true) {
        const ssize_t size =
            recv(descriptor, buffer.data(), buffer.size(), MSG_DONTWAIT | MSG_TRUNC);
        if (size < 0 && (errno == ENOBUFS || errno == EINTR)) {
            complete = complete && errno == EINTR;
            continue;
        }
        if (size <= 0) {
            return complete;
        }
        NetlinkView rest =
            NetlinkView(buffer).first(std::min(static_cast<size_t>(size), buffer.size()));
        while (const std::optional<NetlinkMessage> message = TakeMessage(rest)) {
            take(*message);
        }
        complete = complete && rest.empty();
    }
}
