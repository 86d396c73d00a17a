#include "db/staged_rows.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <charconv>
#include <cmath>

namespace {

constexpr double kMostExact = 9007199254740992.0; // 2^53
constexpr size_t kNumbers = 4;

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

// Between quotation marks; null for a null text.
QByteArray Quoted(const QString &text)
{
    if (text.isNull()) {
        return "null";
    }
    const QByteArray array = QJsonDocument(QJsonArray {text}).toJson(QJsonDocument::Compact);
    return array.sliced(1, array.size() - 2);
}

} // namespace

void StagedRows::Add(quint32 key,
                     std::initializer_list<double> numbers,
                     const QString &text,
                     const QString &further)
{
    Q_ASSERT(numbers.size() <= kNumbers);
    rows += rows.isEmpty() ? "[" : ",[";
    Append(rows, static_cast<qint32>(key)); // as ids are stored
    for (const double number : numbers) {
        rows += ',';
        AppendNumber(rows, number);
    }
    if (!text.isNull() || !further.isNull()) {
        for (size_t missing = numbers.size(); missing < kNumbers; ++missing) {
            rows += ",null";
        }
        rows += ',' + Quoted(text);
    }
    if (!further.isNull()) {
        rows += ',' + Quoted(further);
    }
    rows += ']';
}
