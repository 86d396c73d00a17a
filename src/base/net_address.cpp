#include "base/net_address.h"

#include <algorithm>
#include <arpa/inet.h>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<quint8, 12> kMapped = {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF};

bool IsSeparator(QChar character)
{
    return QStringView(u":-. ").contains(character);
}

} // namespace

NetAddress NetAddress::FromIpv4(Ipv4 address)
{
    NetAddress made;
    std::ranges::copy(kMapped, made.bytes.begin());
    for (int i = 0; i < 4; ++i) {
        made.bytes[12 + static_cast<size_t>(i)] = static_cast<quint8>(Octet(address, i));
    }
    return made;
}

std::optional<NetAddress> NetAddress::From(QStringView text)
{
    const QStringView trimmed = text.trimmed();
    if (const std::optional<Ipv4> ipv4 = Ipv4From(trimmed)) {
        return FromIpv4(*ipv4);
    }
    NetAddress made;
    if (inet_pton(AF_INET6, trimmed.toUtf8().constData(), made.bytes.data()) != 1) {
        return std::nullopt;
    }
    return made;
}

QString NetAddress::Text() const
{
    if (IsIpv4()) {
        return DottedText(ToIpv4());
    }
    char text[INET6_ADDRSTRLEN];
    inet_ntop(AF_INET6, bytes.data(), text, sizeof text);
    return QString::fromLatin1(text);
}

bool NetAddress::IsIpv4() const
{
    return std::ranges::equal(kMapped, std::span(bytes).first<12>());
}

Ipv4 NetAddress::ToIpv4() const
{
    Ipv4 address = 0;
    for (size_t i = 12; i < bytes.size(); ++i) {
        address = address << 8 | bytes[i];
    }
    return address;
}

std::optional<HardwareAddress> HardwareAddress::From(QStringView text)
{
    QByteArray digits;
    for (const QChar character : text) {
        if (!IsSeparator(character)) {
            digits.append(character.toLatin1());
        }
    }
    const QByteArray read = QByteArray::fromHex(digits);
    HardwareAddress made;
    if (digits.size() != 12 || digits.toLower() != read.toHex()) {
        return std::nullopt;
    }
    std::ranges::copy(read, made.bytes.begin());
    return made;
}

QString HardwareAddress::Text() const
{
    const QByteArray raw(reinterpret_cast<const char *>(bytes.data()), 6);
    return QString::fromLatin1(raw.toHex().toUpper());
}
