// Text that comes from and goes to fixed byte buffers, and numbers read the C way.
#pragma once

#include <QByteArray>
#include <QString>

#include <string_view>

// The longest text a database column hands over: a 255-byte buffer less its terminator.
constexpr qsizetype kMaxTextBytes = 254;

// UTF-8 bytes as text. A last character that a full buffer cut in two is left out; any other
// invalid byte becomes the replacement character, so that the result is always valid text.
[[nodiscard]] QString TextFromUtf8(std::string_view bytes);

// The text's UTF-8 form, cut before the first character that would exceed `maxBytes`.
[[nodiscard]] QByteArray Utf8Cut(const QString &text, qsizetype maxBytes);

// What keeps a text of one line from being stored as it is.
enum class TextFault {
    None,
    NotShowable, // a control character, or one that stands for bytes that were no text
    TooLong, // more than kMaxTextBytes in UTF-8
};
[[nodiscard]] TextFault FaultIn(const QString &text);

// The same for names that count as one: blanks around them, the case of their letters, and how an
// accented letter is put together make no difference. Empty for a name that cannot be given.
[[nodiscard]] QString NameKey(const QString &name);

// Like C's atoi: leading blanks, a sign, digits; what follows is ignored, anything else gives 0.
// Values beyond 32 bits wrap as unsigned numbers do, so 4294967295 and -1 are the same bits.
[[nodiscard]] qint32 IntegerFrom(std::string_view text);
[[nodiscard]] qint32 IntegerFrom(const QString &text);

// Like C's atof in the C locale; 0 when there is no number.
[[nodiscard]] double AmountFrom(std::string_view text);
[[nodiscard]] double AmountFrom(const QString &text);
