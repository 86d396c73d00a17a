#include "upkeep/backup_rows.h"

#include "upkeep/backup_header.h"

#include <QCborMap>
#include <QCborValue>
#include <QCryptographicHash>
#include <QtEndian>

#include <algorithm>

using namespace Qt::StringLiterals;

Told<std::unique_ptr<BackupRows>> BackupRows::Open(const QString &path)
{
    auto rows = std::make_unique<BackupRows>();
    return rows->Begin(path).map([&] { return std::move(rows); });
}

Told<void> BackupRows::Begin(const QString &path)
{
    file.setFileName(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return tl::unexpected(u"%1 cannot be read: %2"_s.arg(path, file.errorString()));
    }
    if (file.peek(kBackupMark.size()) != kBackupMark) {
        return tl::unexpected(u"%1 is no backup, or one of another version."_s.arg(path));
    }
    if (auto checked = CheckSum(); !checked) {
        return checked;
    }
    file.seek(kBackupMark.size());
    const auto header = TakeLong();
    if (!header) {
        return tl::unexpected(header.error());
    }
    auto described = SiteFrom(*header);
    if (!described) {
        return tl::unexpected(u"%1 cannot be used: %2"_s.arg(path, described.error()));
    }
    site = *std::move(described);
    if (auto taken = TakeSettings(); !taken) {
        return taken;
    }
    firstBlock = file.pos();
    return {};
}

tl::unexpected<QString> BackupRows::Damaged() const
{
    return tl::unexpected(u"%1 is damaged or cut off, and was not used."_s.arg(file.fileName()));
}

Told<void> BackupRows::CheckSum()
{
    constexpr qint64 kPart = qint64(1) << 20;
    QCryptographicHash sum(QCryptographicHash::Sha256);
    qint64 left = file.size() - kBackupSumBytes;
    while (left > 0) {
        const QByteArray bytes = file.read(std::min(left, kPart));
        if (bytes.isEmpty()) {
            return Damaged();
        }
        sum.addData(bytes);
        left -= bytes.size();
    }
    return left == 0 && file.read(kBackupSumBytes) == sum.result() ? Told<void>() : Damaged();
}

// The bytes behind their length.
Told<QByteArray> BackupRows::TakeLong()
{
    const QByteArray prefix = file.read(sizeof(quint32));
    const qint64 length = prefix.size() == sizeof(quint32)
        ? qFromBigEndian<quint32>(prefix.constData())
        : std::numeric_limits<qint64>::max();
    if (length > file.size() - file.pos()) {
        return Damaged();
    }
    QByteArray bytes = file.read(length);
    return bytes.size() == length ? Told<QByteArray>(std::move(bytes)) : Damaged();
}

Told<QByteArray> BackupRows::TakeChunk()
{
    return TakeLong().and_then([this](const QByteArray &compressed) -> Told<QByteArray> {
        QByteArray bytes = qUncompress(compressed);
        return bytes.isEmpty() ? Damaged() : Told<QByteArray>(std::move(bytes));
    });
}

Told<void> BackupRows::TakeSettings()
{
    return TakeChunk().map([this](const QByteArray &bytes) {
        const QCborMap files = QCborValue::fromCbor(bytes).toMap();
        for (const auto &[path, text] : files) {
            settings.insert(path.toString(), text.toByteArray());
        }
    });
}

Told<RowBlock> BackupRows::Next(size_t table)
{
    return TakeChunk().and_then([&](const QByteArray &bytes) -> Told<RowBlock> {
        auto block = BlockFrom(bytes, site.tables[table].shape);
        const bool isLast = block && block->rows == 0 && table + 1 == site.tables.size();
        const bool isWhole = !isLast || file.pos() == file.size() - kBackupSumBytes;
        return block && isWhole ? Told<RowBlock>(*std::move(block)) : Damaged();
    });
}

Told<void> BackupRows::Rewind()
{
    return file.seek(firstBlock) ? Told<void>() : Damaged();
}
