// IPv4 addresses as 32-bit numbers whose most significant byte is the first octet.
#pragma once

#include <QString>
#include <QStringView>

#include <optional>

using Ipv4 = quint32;

// Octet 0 to 3, counted from the first of the dotted form.
[[nodiscard]] constexpr quint32 Octet(Ipv4 address, int index)
{
    return (address >> (24 - 8 * index)) & 0xFFU;
}

// The dotted form, such as 192.168.1.0 for 0xC0A80100.
[[nodiscard]] QString DottedText(Ipv4 address);

// The address of a dotted text of exactly four numbers 0 to 255; nothing for any other text.
[[nodiscard]] std::optional<Ipv4> Ipv4From(QStringView dotted);
