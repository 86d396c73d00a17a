#include "db/staged_rows.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <charconv>
#include <cmath>

namespace {

constexpr double kMostExact = 9007199254740992.0; // 2^53
constexpr size_t kNumbers = 4;
constexpr size_t kTexts = 3;

template <typename Number>
void Append(QByteArray &text, Number number)
{
    char digits[40];
    const auto end = std::to_chars(digits, digits + sizeof digits, number);
    text.append(digits, end.ptr - digits);
}

void AppendNumber(QByteArray &text, double number)
{
    Q_ASSERT(std::isfinite(number));
    if (std::abs(number) <= kMostExact && std::trunc(number) == number) {
        Append(text, static_cast<qint64>(number));
    } else {
        Append(text, number);
    }
}

bool IsPlain(QChar each)
{
    return each >= u' ' && each <= u'~' && each != u'"' && each != u'\\';
}

// Between quotation marks; null for a null text.
void AppendText(QByteArray &rows, const QString &text)
{
    if (text.isNull()) {
        rows += "null";
    } else if (std::ranges::all_of(text, IsPlain)) {
        rows += '"' + text.toLatin1() + '"';
    } else {
        const QByteArray array = QJsonDocument(QJsonArray {text}).toJson(QJsonDocument::Compact);
        rows += QByteArrayView(array).sliced(1, array.size() - 2);
    }
}

} // namespace

void StagedRows::Add(quint32 key,
                     std::initializer_list<double> numbers,
                     std::initializer_list<QString> texts)
{
    Q_ASSERT(numbers.size() <= kNumbers && texts.size() <= kTexts);
    rows += rows.isEmpty() ? "[" : ",[";
    Append(rows, static_cast<qint32>(key)); // as ids are stored
    for (const double number : numbers) {
        rows += ',';
        AppendNumber(rows, number);
    }
    for (size_t missing = numbers.size(); missing < kNumbers && texts.size() > 0; ++missing) {
        rows += ",null";
    }
    for (const QString &text : texts) {
        rows += ',';
        AppendText(rows, text);
    }
    rows += ']';
}
