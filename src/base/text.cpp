#include "base/text.h"

#include <algorithm>
#include <charconv>

namespace {

bool IsContinuation(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

qsizetype SequenceLength(char lead)
{
    const auto byte = static_cast<unsigned char>(lead);
    if (byte < 0x80U) {
        return 1;
    }
    if (byte < 0xE0U) {
        return 2;
    }
    return byte < 0xF0U ? 3 : 4;
}

std::string_view WithoutCutCharacter(std::string_view bytes)
{
    auto lead = bytes.size();
    for (int back = 0; back < 4 && lead > 0; ++back) {
        --lead;
        if (!IsContinuation(bytes[lead])) {
            const auto have = static_cast<qsizetype>(bytes.size() - lead);
            const bool whole = have >= SequenceLength(bytes[lead]);
            return whole ? bytes : bytes.substr(0, lead);
        }
    }
    return bytes;
}

std::string_view WithoutBlanks(std::string_view text)
{
    const auto first = text.find_first_not_of(" \t\n\r\f\v");
    return first == std::string_view::npos ? std::string_view() : text.substr(first);
}

std::string_view WithoutPlus(std::string_view text)
{
    const bool plus = text.size() > 1 && text[0] == '+' && text[1] != '-';
    return plus ? text.substr(1) : text;
}

} // namespace

QString TextFromUtf8(std::string_view bytes)
{
    const auto whole = WithoutCutCharacter(bytes);
    return QString::fromUtf8(whole.data(), static_cast<qsizetype>(whole.size()));
}

QByteArray Utf8Cut(const QString &text, qsizetype maxBytes)
{
    QByteArray bytes = text.toUtf8();
    if (bytes.size() <= maxBytes) {
        return bytes;
    }
    qsizetype end = maxBytes;
    while (end > 0 && IsContinuation(bytes[end])) {
        --end;
    }
    bytes.truncate(end);
    return bytes;
}

// By way of the capitals: folded alone, a sharp s would not be the two letters that it is in capitals.
TextFault FaultIn(const QString &text)
{
    const bool isShowable = std::ranges::none_of(text, [](QChar c) {
        return c.category() == QChar::Other_Control || c == QChar::ReplacementCharacter;
    });
    if (!isShowable) {
        return TextFault::NotShowable;
    }
    return text.toUtf8().size() > kMaxTextBytes ? TextFault::TooLong : TextFault::None;
}

QString NameKey(const QString &name)
{
    const QString composed = name.trimmed().normalized(QString::NormalizationForm_C);
    return composed.toUpper().toCaseFolded().normalized(QString::NormalizationForm_C);
}

qint32 IntegerFrom(std::string_view text)
{
    const auto digits = WithoutPlus(WithoutBlanks(text));
    qint64 value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return static_cast<qint32>(static_cast<quint64>(value) & 0xFFFFFFFFU);
}

qint32 IntegerFrom(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    return IntegerFrom(std::string_view(bytes.constData(), static_cast<size_t>(bytes.size())));
}

double AmountFrom(std::string_view text)
{
    const auto number = WithoutPlus(WithoutBlanks(text));
    double value = 0.0;
    std::from_chars(number.data(), number.data() + number.size(), value);
    return value;
}

double AmountFrom(const QString &text)
{
    const QByteArray bytes = text.toUtf8();
    return AmountFrom(std::string_view(bytes.constData(), static_cast<size_t>(bytes.size())));
}
