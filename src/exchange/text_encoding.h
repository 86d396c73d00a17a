// What bytes of a text file mean: files come from spreadsheets and other systems, in several encodings.
#pragma once

#include <QByteArray>
#include <QString>

#include <tl/expected.hpp>

enum class TextEncoding {
    Utf8,
    Utf16, // of either order, with its mark or told by its zero bytes
    Windows1252, // what is not valid UTF-8
};

struct DecodedText
{
    QString text; // without the mark that it began with
    TextEncoding encoding = TextEncoding::Utf8;
};

// The text, or in words why the bytes are none.
[[nodiscard]] tl::expected<DecodedText, QString> DecodeText(const QByteArray &bytes);

// For a person: "Windows-1252".
[[nodiscard]] QString NameOf(TextEncoding encoding);
