// Addresses of workstations: of the network, and of the hardware.
#pragma once

#include "base/ipv4.h"

#include <QHashFunctions>
#include <QString>
#include <QStringView>

#include <array>
#include <compare>
#include <optional>
#include <span>

// An IPv4 or IPv6 address: sixteen bytes in network order, an IPv4 address in its mapped form
// ::ffff:a.b.c.d. All IPv4 addresses thus stand together in a sorted list.
class NetAddress
{
public:
    using Bytes = std::array<quint8, 16>;

    NetAddress() = default;
    explicit NetAddress(const Bytes &wholeAddress) : bytes(wholeAddress) { }

    [[nodiscard]] static NetAddress FromIpv4(Ipv4 address);

    // The address of a dotted or of an IPv6 text without zone; nothing for any other text.
    [[nodiscard]] static std::optional<NetAddress> From(QStringView text);

    [[nodiscard]] QString Text() const;
    [[nodiscard]] bool IsIpv4() const;

    // The number of an IPv4 address; of any other its last four bytes, which mean nothing.
    [[nodiscard]] Ipv4 ToIpv4() const;

    [[nodiscard]] const Bytes &AllBytes() const { return bytes; }

    auto operator<=>(const NetAddress &) const = default; // NOLINT: the compiler writes the 0

private:
    Bytes bytes {};
};

// NOLINTNEXTLINE: QHash's name
[[nodiscard]] inline size_t qHash(const NetAddress &address, size_t seed = 0)
{
    return qHashBits(address.AllBytes().data(), address.AllBytes().size(), seed);
}

// The address of a network card: six bytes.
struct HardwareAddress
{
    std::array<quint8, 6> bytes {};

    // Twelve hexadecimal digits of either case, in any grouping by colons, hyphens, dots or blanks;
    // nothing for any other text.
    [[nodiscard]] static std::optional<HardwareAddress> From(QStringView text);

    // As the database stores it: twelve digits, capitals, no separators.
    [[nodiscard]] QString Text() const;

    auto operator<=>(const HardwareAddress &) const = default; // NOLINT: the compiler writes the 0
};
