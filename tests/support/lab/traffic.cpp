#include "support/lab/traffic.h"

#include "base/net_address.h"

#include <QFile>

#include <arpa/inet.h>
#include <cerrno>
#include <cstring>
#include <netinet/icmp6.h>
#include <netinet/in.h>
#include <netinet/ip_icmp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSilenceMs = 200;
constexpr int kConnectMs = 3000; // a lost packet is sent again after one second

struct SocketAddress
{
    sockaddr_storage storage {};
    socklen_t size = 0;

    [[nodiscard]] const sockaddr *Plain() const
    {
        return reinterpret_cast<const sockaddr *>(&storage);
    }
};

template <typename Address>
SocketAddress Stored(const Address &address)
{
    SocketAddress stored;
    std::memcpy(&stored.storage, &address, sizeof address);
    stored.size = sizeof address;
    return stored;
}

SocketAddress AddressOf(const Endpoint &endpoint)
{
    const QByteArray text = endpoint.address.toLatin1();
    if (!text.contains(':')) {
        sockaddr_in ipv4 {};
        ipv4.sin_family = AF_INET;
        ipv4.sin_port = htons(endpoint.port);
        inet_pton(AF_INET, text.constData(), &ipv4.sin_addr);
        return Stored(ipv4);
    }
    sockaddr_in6 ipv6 {};
    ipv6.sin6_family = AF_INET6;
    ipv6.sin6_port = htons(endpoint.port);
    inet_pton(AF_INET6, text.constData(), &ipv6.sin6_addr);
    return Stored(ipv6);
}

OpenFile
Bound(const Laboratory &laboratory, Place place, int type, int protocol, const Endpoint &own)
{
    const Visit visit(laboratory, place);
    const SocketAddress address = AddressOf(own);
    OpenFile made(socket(address.storage.ss_family, type | SOCK_NONBLOCK | SOCK_CLOEXEC, protocol));
    const int yes = 1;
    const int buffer = 8 << 20;
    setsockopt(made.Number(), SOL_SOCKET, SO_REUSEADDR, &yes, sizeof yes);
    setsockopt(made.Number(), SOL_SOCKET, SO_RCVBUFFORCE, &buffer, sizeof buffer);
    if (!own.address.contains(u':')) {
        setsockopt(made.Number(), IPPROTO_IP, IP_PKTINFO, &yes, sizeof yes); // for TakeArrivals
    }
    // A connection that is closed ends at once: no packet of it comes later, amid another test.
    const linger atOnce {.l_onoff = 1, .l_linger = 0};
    if (type == SOCK_STREAM) {
        setsockopt(made.Number(), SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    }
    // An IPv6 address of a whole network that is local belongs to no interface.
    setsockopt(made.Number(), IPPROTO_IPV6, IPV6_FREEBIND, &yes, sizeof yes);
    if (bind(made.Number(), address.Plain(), address.size) != 0) {
        qFatal("%s cannot be bound: %s", qPrintable(own.address), std::strerror(errno));
    }
    return made;
}

bool IsReady(const OpenFile &file, short events, int milliseconds)
{
    pollfd waited {.fd = file.Number(), .events = events, .revents = 0};
    return poll(&waited, 1, milliseconds) > 0;
}

} // namespace

OpenFile
MakeSocket(const Laboratory &laboratory, Place place, Transport transport, const Endpoint &own)
{
    return Bound(laboratory, place, transport == Transport::Udp ? SOCK_DGRAM : SOCK_STREAM, 0, own);
}

int SendDatagrams(const OpenFile &socket, const Endpoint &to, int bytes, int count)
{
    const std::vector<char> payload(static_cast<size_t>(bytes), 'x');
    const SocketAddress address = AddressOf(to);
    int sent = 0;
    for (int i = 0; i < count; ++i) {
        const ssize_t size = sendto(
            socket.Number(), payload.data(), payload.size(), 0, address.Plain(), address.size);
        if (size == bytes) {
            ++sent;
        } else if (errno == EAGAIN || errno == ENOBUFS) {
            static_cast<void>(IsReady(socket, POLLOUT, kSilenceMs));
            --i;
        }
    }
    return sent;
}

bool SendFrom(const OpenFile &socket, quint32 from, const Endpoint &to, int bytes)
{
    std::vector<char> payload(static_cast<size_t>(bytes), 'x');
    SocketAddress address = AddressOf(to);
    iovec part {payload.data(), payload.size()};
    alignas(cmsghdr) char control[CMSG_SPACE(sizeof(in_pktinfo))] = {};
    msghdr message {};
    message.msg_name = &address.storage;
    message.msg_namelen = address.size;
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof control;
    cmsghdr *header = CMSG_FIRSTHDR(&message);
    header->cmsg_level = IPPROTO_IP;
    header->cmsg_type = IP_PKTINFO;
    header->cmsg_len = CMSG_LEN(sizeof(in_pktinfo));
    in_pktinfo info {};
    info.ipi_spec_dst.s_addr = htonl(from);
    std::memcpy(CMSG_DATA(header), &info, sizeof info);
    return sendmsg(socket.Number(), &message, 0) == bytes;
}

int TakeDatagrams(const OpenFile &socket, int expected)
{
    std::vector<char> payload(1 << 16);
    int taken = 0;
    while (taken < expected && IsReady(socket, POLLIN, kSilenceMs)) {
        if (recv(socket.Number(), payload.data(), payload.size(), 0) >= 0) {
            ++taken;
        }
    }
    return taken;
}

std::vector<Arrival> TakeArrivals(const OpenFile &socket)
{
    std::vector<Arrival> arrivals;
    std::vector<char> payload(1 << 16);
    while (IsReady(socket, POLLIN, kSilenceMs)) {
        sockaddr_in from {};
        iovec part {payload.data(), payload.size()};
        alignas(cmsghdr) char control[CMSG_SPACE(sizeof(in_pktinfo))] = {};
        msghdr message {};
        message.msg_name = &from;
        message.msg_namelen = sizeof from;
        message.msg_iov = &part;
        message.msg_iovlen = 1;
        message.msg_control = control;
        message.msg_controllen = sizeof control;
        if (recvmsg(socket.Number(), &message, 0) < 0) {
            continue; // an error that had waited
        }
        in_pktinfo info {};
        if (const cmsghdr *header = CMSG_FIRSTHDR(&message); header != nullptr) {
            std::memcpy(&info, CMSG_DATA(header), sizeof info);
        }
        arrivals.push_back(
            {ntohl(from.sin_addr.s_addr), ntohs(from.sin_port), ntohl(info.ipi_addr.s_addr)});
    }
    return arrivals;
}

bool Ping(
    const Laboratory &laboratory, Place place, const QString &from, const QString &to, int bytes)
{
    const bool ipv4 = !to.contains(u':');
    const int protocol = ipv4 ? int {IPPROTO_ICMP} : int {IPPROTO_ICMPV6};
    const OpenFile raw = Bound(laboratory, place, SOCK_RAW, protocol, {from, 0});
    std::vector<quint8> request(static_cast<size_t>(bytes) + sizeof(icmphdr));
    request[0] = ipv4 ? quint8 {ICMP_ECHO} : quint8 {ICMP6_ECHO_REQUEST};
    if (ipv4) {
        const quint16 sum = static_cast<quint16>(~quint16 {ICMP_ECHO << 8}); // all else is zero
        request[2] = static_cast<quint8>(sum >> 8);
        request[3] = static_cast<quint8>(sum);
    }
    const SocketAddress address = AddressOf({to, 0});
    sendto(raw.Number(), request.data(), request.size(), 0, address.Plain(), address.size);
    std::vector<quint8> answer(1 << 16);
    while (IsReady(raw, POLLIN, kSilenceMs)) {
        const ssize_t size = recv(raw.Number(), answer.data(), answer.size(), 0);
        const size_t at = ipv4 ? sizeof(iphdr) : 0;
        const quint8 reply = ipv4 ? quint8 {ICMP_ECHOREPLY} : quint8 {ICMP6_ECHO_REPLY};
        if (size > static_cast<ssize_t>(at) && answer[at] == reply) {
            return true;
        }
    }
    return false;
}

int WaitingError(const OpenFile &socket)
{
    static_cast<void>(IsReady(socket, POLLERR, kSilenceMs));
    int error = 0;
    socklen_t size = sizeof error;
    getsockopt(socket.Number(), SOL_SOCKET, SO_ERROR, &error, &size);
    return error;
}

Connected
Connect(const Laboratory &laboratory, Place place, const Endpoint &own, const Endpoint &to)
{
    Connected made {MakeSocket(laboratory, place, Transport::Tcp, own), 0};
    const SocketAddress address = AddressOf(to);
    if (connect(made.socket.Number(), address.Plain(), address.size) == 0) {
        return made;
    }
    if (errno != EINPROGRESS) {
        made.error = errno;
    } else if (!IsReady(made.socket, POLLOUT, kConnectMs)) {
        made.error = ETIMEDOUT;
    } else {
        socklen_t size = sizeof made.error;
        getsockopt(made.socket.Number(), SOL_SOCKET, SO_ERROR, &made.error, &size);
    }
    return made;
}

OpenFile Listen(const Laboratory &laboratory, Place place, const Endpoint &own)
{
    OpenFile made = MakeSocket(laboratory, place, Transport::Tcp, own);
    listen(made.Number(), 16);
    return made;
}

OpenFile Accept(const OpenFile &listener)
{
    static_cast<void>(IsReady(listener, POLLIN, kConnectMs));
    return OpenFile(accept4(listener.Number(), nullptr, nullptr, SOCK_NONBLOCK | SOCK_CLOEXEC));
}

qint64 Transfer(const OpenFile &from, const OpenFile &to, qint64 bytes)
{
    std::vector<char> block(1 << 16);
    qint64 given = 0;
    qint64 come = 0;
    while (come < bytes) {
        const auto next =
            static_cast<size_t>(std::min(bytes - given, static_cast<qint64>(block.size())));
        const ssize_t sent = next > 0 ? send(from.Number(), block.data(), next, MSG_NOSIGNAL) : 0;
        given += std::max<ssize_t>(sent, 0);
        if (!IsReady(to, POLLIN, sent > 0 ? 0 : 2 * kSilenceMs)) {
            if (sent > 0) {
                continue;
            }
            break;
        }
        const ssize_t taken = recv(to.Number(), block.data(), block.size(), 0);
        if (taken <= 0) {
            break;
        }
        come += taken;
    }
    return come;
}

LinkBytes LinkBytesOf(const QString &interface)
{
    constexpr qint64 kLinkHeader = 14;
    QFile file(u"/proc/thread-self/net/dev"_s);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    for (const QByteArray &line : file.readAll().split('\n')) {
        const QList<QByteArray> fields = line.simplified().split(' ');
        if (fields.size() > 10 && fields[0] == interface.toLatin1() + ':') {
            return {fields[1].toLongLong() - kLinkHeader * fields[2].toLongLong(),
                    fields[9].toLongLong() - kLinkHeader * fields[10].toLongLong()};
        }
    }
    return {};
}
