#include "base/ipv4.h"

#include <array>
#include <charconv>

// Both are done for thousands of addresses at a time.
QString DottedText(Ipv4 address)
{
    std::array<char, 16> text {};
    char *end = text.data();
    for (int octet = 0; octet < 4; ++octet) {
        if (octet > 0) {
            *end++ = '.';
        }
        end = std::to_chars(end, text.data() + text.size(), Octet(address, octet)).ptr;
    }
    return QString::fromLatin1(text.data(), end - text.data());
}

std::optional<Ipv4> Ipv4From(QStringView dotted)
{
    constexpr int kMostDigits = 3;
    Ipv4 address = 0;
    quint32 octet = 0;
    int digits = 0;
    int octets = 0;
    for (const QChar character : dotted) {
        const char16_t code = character.unicode();
        if (code >= u'0' && code <= u'9' && digits < kMostDigits) {
            octet = octet * 10 + (code - u'0');
            ++digits;
        } else if (code == u'.' && digits > 0 && octet <= 255 && octets < 3) {
            address = address << 8 | octet;
            ++octets;
            octet = 0;
            digits = 0;
        } else {
            return std::nullopt;
        }
    }
    if (octets != 3 || digits == 0 || octet > 255) {
        return std::nullopt;
    }
    return address << 8 | octet;
}
