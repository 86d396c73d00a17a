#include "base/ipv4.h"

#include <QRegularExpression>
#include <QStringList>

using namespace Qt::StringLiterals;

QString DottedText(Ipv4 address)
{
    return u"%1.%2.%3.%4"_s.arg(Octet(address, 0))
        .arg(Octet(address, 1))
        .arg(Octet(address, 2))
        .arg(Octet(address, 3));
}

std::optional<Ipv4> Ipv4From(const QString &dotted)
{
    static const QRegularExpression number(u"^[0-9]{1,3}$"_s);
    const QStringList octets = dotted.split(u'.');
    if (octets.size() != 4) {
        return std::nullopt;
    }
    Ipv4 address = 0;
    for (const QString &octet : octets) {
        if (!number.match(octet).hasMatch() || octet.toUInt() > 255) {
            return std::nullopt;
        }
        address = address << 8 | octet.toUInt();
    }
    return address;
}
