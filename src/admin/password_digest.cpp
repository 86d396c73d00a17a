#include "admin/password_digest.h"

#include <QCryptographicHash>

namespace {

constexpr unsigned char kSixteen = 0x10;

// A byte below 0x10 has no leading zero but a blank behind it: the stored texts are of this form.
QString DigestByteText(unsigned char byte)
{
    const QString digits = QString::number(byte, 16);
    return byte < kSixteen ? digits + u' ' : digits;
}

} // namespace

std::optional<QString> PasswordDigest(const QString &password)
{
    QByteArray bytes = password.toUtf8();
    if (bytes.size() > kMaxPasswordBytes) {
        return std::nullopt;
    }
    QByteArray block = bytes.leftJustified(kMaxPasswordBytes, '0');
    const QByteArray hash = QCryptographicHash::hash(block, QCryptographicHash::Md5);
    bytes.fill('\0');
    block.fill('\0');
    QString text;
    for (const char byte : hash) {
        text += DigestByteText(static_cast<unsigned char>(byte));
    }
    return text;
}
