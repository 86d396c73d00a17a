#include "exchange/text_encoding.h"

#include <QCoreApplication>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(TextEncoding)
};

// Of the bytes 0x80 to 0x9F; in all others the encoding is Latin-1. What it leaves open is the
// replacement character.
constexpr std::array<char16_t, 32> kWindows1252 {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD, 0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

QString FromWindows1252(const QByteArray &bytes)
{
    QString text = QString::fromLatin1(bytes);
    for (QChar &letter : text) {
        const char16_t code = letter.unicode();
        if (code >= 0x80 && code < 0x80 + kWindows1252.size()) {
            letter = kWindows1252[code - 0x80U];
        }
    }
    return text;
}

// By its mark, or by the zero byte that every letter of a to z has beside it.
std::optional<QStringConverter::Encoding> Utf16In(const QByteArray &bytes)
{
    if (bytes.startsWith("\xFF\xFE")) {
        return QStringConverter::Utf16LE;
    }
    if (bytes.startsWith("\xFE\xFF")) {
        return QStringConverter::Utf16BE;
    }
    if (bytes.size() < 4 || bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    if (bytes[0] != '\0' && bytes[1] == '\0' && bytes[2] != '\0' && bytes[3] == '\0') {
        return QStringConverter::Utf16LE;
    }
    if (bytes[0] == '\0' && bytes[1] != '\0' && bytes[2] == '\0' && bytes[3] != '\0') {
        return QStringConverter::Utf16BE;
    }
    return std::nullopt;
}

std::optional<QString> Decoded(const QByteArray &bytes, QStringConverter::Encoding encoding)
{
    QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
    QString text = decoder(bytes);
    return decoder.hasError() ? std::nullopt : std::optional(std::move(text));
}

} // namespace

tl::expected<DecodedText, QString> DecodeText(const QByteArray &bytes)
{
    DecodedText decoded;
    if (bytes.startsWith("PK\x03\x04")) {
        return tl::unexpected(
            Words::tr("This is a spreadsheet. Please save it there as CSV, and import that file"));
    }
    if (const auto encoding = Utf16In(bytes)) {
        const auto text = Decoded(bytes, *encoding);
        if (!text) {
            return tl::unexpected(Words::tr("The file is not whole: it ends within a letter"));
        }
        decoded = {*text, TextEncoding::Utf16};
    } else if (const auto text = Decoded(bytes, QStringConverter::Utf8)) {
        decoded = {*text, TextEncoding::Utf8};
    } else {
        decoded = {FromWindows1252(bytes), TextEncoding::Windows1252};
    }
    if (decoded.text.startsWith(QChar::ByteOrderMark)) {
        decoded.text.remove(0, 1);
    }
    if (decoded.text.contains(QChar::Null)) {
        return tl::unexpected(Words::tr("This is not a file of text"));
    }
    return decoded;
}

QString NameOf(TextEncoding encoding)
{
    switch (encoding) {
    case TextEncoding::Utf8:
        return u"UTF-8"_s;
    case TextEncoding::Utf16:
        return u"UTF-16"_s;
    case TextEncoding::Windows1252:
        break;
    }
    return u"Windows-1252"_s;
}
