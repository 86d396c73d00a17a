#include "db/row_block.h"

#include <QtEndian>

#include <algorithm>
#include <bit>
#include <charconv>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

template <typename Number>
void Append(Number number, QByteArray &bytes)
{
    const Number little = qToLittleEndian(number);
    bytes.append(reinterpret_cast<const char *>(&little), sizeof little);
}

template <typename Number>
bool Take(QByteArrayView &bytes, Number &number)
{
    if (bytes.size() < qsizetype(sizeof number)) {
        return false;
    }
    number = qFromLittleEndian<Number>(bytes.data());
    bytes = bytes.sliced(sizeof number);
    return true;
}

template <typename Number>
bool Parse(std::string_view text, Number &number)
{
    const char *const end = text.data() + text.size();
    const auto [last, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && last == end;
}

} // namespace

std::string_view ColumnValues::Text(size_t row) const
{
    const size_t begin = row == 0 ? 0 : ends[row - 1];
    return std::string_view(texts).substr(begin, ends[row] - begin);
}

QString ColumnValues::InWords(size_t row) const
{
    if (IsNull(row)) {
        return u"NULL"_s;
    }
    if (kind == ColumnKind::Integer) {
        return QString::number(Integer(row));
    }
    if (kind == ColumnKind::Amount) {
        return QString::number(Amount(row), 'g', std::numeric_limits<double>::max_digits10);
    }
    const std::string_view text = Text(row);
    return u'"' + QString::fromUtf8(text.data(), qsizetype(text.size())) + u'"';
}

void ColumnValues::AddNull()
{
    nulls.push_back(1);
    if (kind == ColumnKind::Integer) {
        integers.push_back(0);
    } else if (kind == ColumnKind::Amount) {
        amounts.push_back(0);
    } else {
        ends.push_back(static_cast<quint32>(texts.size()));
    }
}

void ColumnValues::AddText(std::string_view text)
{
    nulls.push_back(0);
    texts += text;
    ends.push_back(static_cast<quint32>(texts.size()));
}

bool ColumnValues::AddNumber(std::string_view text)
{
    nulls.push_back(0);
    if (kind == ColumnKind::Integer) {
        return Parse(text, integers.emplace_back());
    }
    const bool isNumber = Parse(text, amounts.emplace_back());
    amounts.back() += 0.0; // makes 0 of -0
    return isNumber;
}

void ColumnValues::AppendTo(QByteArray &bytes) const
{
    bytes.append(nulls.data(), qsizetype(nulls.size()));
    for (const qint64 integer : integers) {
        Append(integer, bytes);
    }
    for (const double amount : amounts) {
        Append(std::bit_cast<quint64>(amount), bytes);
    }
    for (const quint32 end : ends) {
        Append(end, bytes);
    }
    bytes.append(texts.data(), qsizetype(texts.size()));
}

bool ColumnValues::TakeFrom(QByteArrayView &bytes, size_t rows)
{
    if (static_cast<size_t>(bytes.size()) < rows) {
        return false;
    }
    nulls.assign(bytes.begin(), bytes.begin() + qsizetype(rows));
    bytes = bytes.sliced(qsizetype(rows));
    if (kind == ColumnKind::Integer) {
        integers.resize(rows);
        return std::all_of(integers.begin(), integers.end(), [&](qint64 &integer) {
            return Take(bytes, integer);
        });
    }
    if (kind == ColumnKind::Amount) {
        amounts.resize(rows);
        return std::all_of(amounts.begin(), amounts.end(), [&](double &amount) {
            quint64 bits = 0;
            const bool taken = Take(bytes, bits);
            amount = std::bit_cast<double>(bits);
            return taken;
        });
    }
    return TakeTexts(bytes, rows);
}

bool ColumnValues::TakeTexts(QByteArrayView &bytes, size_t rows)
{
    ends.resize(rows);
    const bool taken =
        std::all_of(ends.begin(), ends.end(), [&](quint32 &end) { return Take(bytes, end); });
    const quint32 length = ends.empty() ? 0 : ends.back();
    if (!taken || !std::is_sorted(ends.begin(), ends.end()) || bytes.size() < qsizetype(length)) {
        return false;
    }
    texts.assign(bytes.data(), length);
    bytes = bytes.sliced(qsizetype(length));
    return true;
}

RowBlock::RowBlock(const TableShape &shape)
{
    for (const ColumnShape &column : shape.columns) {
        columns.emplace_back(column.kind);
    }
}

QByteArray BytesOf(const RowBlock &block)
{
    QByteArray bytes;
    Append(static_cast<quint32>(block.rows), bytes);
    for (const ColumnValues &column : block.columns) {
        column.AppendTo(bytes);
    }
    return bytes;
}

std::optional<RowBlock> BlockFrom(QByteArrayView bytes, const TableShape &shape)
{
    RowBlock block(shape);
    quint32 rows = 0;
    if (!Take(bytes, rows) || rows > RowsInBlock(shape)) {
        return std::nullopt;
    }
    block.rows = rows;
    const bool whole =
        std::all_of(block.columns.begin(), block.columns.end(), [&](ColumnValues &column) {
            return column.TakeFrom(bytes, rows);
        });
    return whole && bytes.isEmpty() ? std::optional(std::move(block)) : std::nullopt;
}

size_t RowsInBlock(const TableShape &shape)
{
    const auto texts =
        std::count_if(shape.columns.begin(), shape.columns.end(), [](const ColumnShape &column) {
            return column.kind == ColumnKind::Text;
        });
    return texts == 0 ? 5000 : 1000;
}
