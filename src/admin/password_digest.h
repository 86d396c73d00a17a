// The digest of a login's password, as the accounting service's authentication server compares it.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// The most bytes of UTF-8 that a password has.
constexpr qsizetype kMaxPasswordBytes = 256;

// The MD5 of a block of 256 bytes "0" with the password laid over its beginning, each byte as "%x "
// cut to two characters: below 0x10 its one digit and a blank, else its two digits; 32 characters in
// all. Nothing when the password is longer than the block.
[[nodiscard]] std::optional<QString> PasswordDigest(const QString &password);
