#include "reports/row_store.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(RowStore)
};

constexpr qint64 kStrideRows = 64;
constexpr qsizetype kBufferBytes = 1 << 18;

enum class Tag : char { Nothing, Whole, Amount, Text };

template <typename Value>
void Put(QByteArray &bytes, Value value)
{
    char raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    bytes.append(raw, sizeof value);
}

void PutCell(QByteArray &bytes, const Cell &cell)
{
    bytes.append(static_cast<char>(cell.index()));
    if (const auto *whole = std::get_if<qint64>(&cell)) {
        Put(bytes, *whole);
    } else if (const auto *amount = std::get_if<double>(&cell)) {
        Put(bytes, *amount);
    } else if (const auto *text = std::get_if<QString>(&cell)) {
        const QByteArray utf8 = text->toUtf8();
        Put(bytes, static_cast<quint32>(utf8.size()));
        bytes.append(utf8);
    }
}

// Reads back what PutCell wrote.
class Reader
{
public:
    explicit Reader(const QByteArray &source) : at(source.constData()), end(at + source.size()) { }

    [[nodiscard]] bool AtEnd() const { return at >= end; }

    CellRow Row()
    {
        CellRow row(static_cast<size_t>(*at++));
        for (Cell &cell : row) {
            cell = NextCell();
        }
        return row;
    }

private:
    template <typename Value>
    Value Take()
    {
        Value value;
        std::memcpy(&value, at, sizeof value);
        at += sizeof value;
        return value;
    }

    Cell NextCell()
    {
        switch (static_cast<Tag>(*at++)) {
        case Tag::Whole:
            return Take<qint64>();
        case Tag::Amount:
            return Take<double>();
        case Tag::Text: {
            const auto size = static_cast<qsizetype>(Take<quint32>());
            const char *text = std::exchange(at, at + size);
            return QString::fromUtf8(text, size);
        }
        case Tag::Nothing:
            break;
        }
        return {};
    }

    const char *at;
    const char *end;
};

} // namespace

RowStore::~RowStore()
{
    if (file >= 0) {
        ::close(file);
    }
}

bool RowStore::Append(const CellRow &row)
{
    if (count % kStrideRows == 0) {
        strideStarts.push_back(written + buffer.size());
    }
    buffer.append(static_cast<char>(row.size()));
    for (const Cell &cell : row) {
        PutCell(buffer, cell);
    }
    ++count;
    return buffer.size() < kBufferBytes || Flush();
}

bool RowStore::Finish()
{
    return file < 0 || Flush();
}

bool RowStore::Open()
{
    QByteArray name = QFile::encodeName(QDir::tempPath() + u"/tollbrook-report-XXXXXX"_s);
    file = ::mkostemp(name.data(), O_CLOEXEC);
    if (file < 0) {
        problem = Words::tr("no temporary file in %1: %2")
                      .arg(QDir::tempPath(), QString::fromLocal8Bit(std::strerror(errno)));
        return false;
    }
    ::unlink(name.constData());
    return true;
}

bool RowStore::Flush()
{
    if (file < 0 && !Open()) {
        return false;
    }
    qsizetype done = 0;
    while (done < buffer.size()) {
        const auto now =
            ::write(file, buffer.constData() + done, static_cast<size_t>(buffer.size() - done));
        if (now < 0 && errno != EINTR) {
            problem = Words::tr("the temporary folder %1 cannot be written: %2")
                          .arg(QDir::tempPath(), QString::fromLocal8Bit(std::strerror(errno)));
            return false;
        }
        done += now > 0 ? now : 0;
    }
    written += buffer.size();
    buffer.resize(0);
    return true;
}

QString RowStore::ReadProblem() const
{
    return readError == 0
        ? QString()
        : Words::tr("the temporary folder %1 cannot be read: %2")
              .arg(QDir::tempPath(), QString::fromLocal8Bit(std::strerror(readError)));
}

std::optional<QByteArray> RowStore::BytesFrom(qint64 stride, qint64 strides) const
{
    const auto start = strideStarts[static_cast<size_t>(stride)];
    const auto last = static_cast<size_t>(stride + strides);
    const auto end = last < strideStarts.size() ? strideStarts[last] : written + buffer.size();
    if (file < 0) {
        return buffer.mid(start, end - start);
    }
    QByteArray bytes(end - start, Qt::Uninitialized);
    qint64 done = 0;
    while (done < bytes.size()) {
        const auto now = ::pread(
            file, bytes.data() + done, static_cast<size_t>(bytes.size() - done), start + done);
        if (now == 0 || (now < 0 && errno != EINTR)) {
            int none = 0;
            readError.compare_exchange_strong(none,
                                              now == 0 ? EIO : errno); // 0: it has been cut short
            return std::nullopt;
        }
        done += now > 0 ? now : 0;
    }
    return bytes;
}

std::vector<CellRow> RowStore::Read(qint64 first, qint64 wanted) const
{
    const qint64 end = std::min(first + wanted, count);
    std::vector<CellRow> rows;
    if (first >= end) {
        return rows;
    }
    const qint64 stride = first / kStrideRows;
    const auto bytes = BytesFrom(stride, (end - 1) / kStrideRows - stride + 1);
    if (!bytes) {
        return rows;
    }
    Reader reader(*bytes);
    rows.reserve(static_cast<size_t>(end - first));
    for (qint64 row = stride * kStrideRows; row < end && !reader.AtEnd(); ++row) {
        CellRow cells = reader.Row();
        if (row >= first) {
            rows.push_back(std::move(cells));
        }
    }
    return rows;
}
