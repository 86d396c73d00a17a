// Packets from one place of a laboratory to another.
#pragma once

#include "support/lab/laboratory.h"

#include <chrono>
#include <vector>

struct Endpoint
{
    QString address; // IPv4 or IPv6
    quint16 port = 0;
};

enum class Transport { Udp, Tcp };

// A bound socket in a place; without one (number -1) where that fails. It does not block.
[[nodiscard]] OpenFile
MakeSocket(const Laboratory &laboratory, Place place, Transport transport, const Endpoint &own);

// Sends datagrams with this many bytes each; how many the kernel took.
int SendDatagrams(const OpenFile &socket, const Endpoint &to, int bytes, int count);

// Sends one datagram from any IPv4 address of the socket's place, which is bound to 0.0.0.0.
bool SendFrom(const OpenFile &socket, quint32 from, const Endpoint &to, int bytes);

// The datagrams that come until there are `expected`, or until none has come for a fifth of a second.
[[nodiscard]] int TakeDatagrams(const OpenFile &socket, int expected);

// The IPv4 datagrams that come until none has come for a fifth of a second, by their headers.
struct Arrival
{
    quint32 from = 0;
    quint16 fromPort = 0;
    quint32 to = 0;
};
[[nodiscard]] std::vector<Arrival> TakeArrivals(const OpenFile &socket);

// What becomes of an echo request (ping): whether an answer came within a fifth of a second.
[[nodiscard]] bool
Ping(const Laboratory &laboratory, Place place, const QString &from, const QString &to, int bytes);

// Connects and waits for the end of it, three seconds at most: 0, or the number of errno.h.
struct Connected
{
    OpenFile socket;
    int error = 0;
};
[[nodiscard]] Connected
Connect(const Laboratory &laboratory, Place place, const Endpoint &own, const Endpoint &to);

// The error that waits at a socket, such as the answer to a datagram; 0 when none comes soon.
[[nodiscard]] int WaitingError(const OpenFile &socket);

[[nodiscard]] OpenFile Listen(const Laboratory &laboratory, Place place, const Endpoint &own);
[[nodiscard]] OpenFile Accept(const OpenFile &listener);

// Sends bytes from one end of a connection to the other until all have come or nothing more comes
// for two fifths of a second; how many came.
qint64 Transfer(const OpenFile &from, const OpenFile &to, qint64 bytes);

// IP bytes that an interface of the gateway has taken in and given out: its own counters less 14 bytes
// of each packet's link header.
struct LinkBytes
{
    qint64 in = 0;
    qint64 out = 0;
};
[[nodiscard]] LinkBytes LinkBytesOf(const QString &interface);

// IP bytes of datagrams that are not fragmented.
[[nodiscard]] constexpr quint64 Ipv4Bytes(int payload, int count)
{
    return static_cast<quint64>(payload + 28) * static_cast<quint64>(count);
}

[[nodiscard]] constexpr quint64 Ipv6Bytes(int payload, int count)
{
    return static_cast<quint64>(payload + 48) * static_cast<quint64>(count);
}
