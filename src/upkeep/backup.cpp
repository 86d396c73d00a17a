#include "upkeep/backup.h"

#include "upkeep/backup_file.h"
#include "upkeep/backup_header.h"
#include "upkeep/database_rows.h"
#include "upkeep/settings_files.h"
#include "upkeep/table_sum.h"

#include <QCborMap>
#include <QCborValue>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

QByteArray BytesOf(const SettingsFiles &settings)
{
    QCborMap files;
    for (auto file = settings.cbegin(); file != settings.cend(); ++file) {
        files.insert(file.key(), file.value());
    }
    return QCborValue(files).toCbor();
}

Told<void> WriteBeginning(BackupFile &file, const Site &site, const SettingsFiles &settings)
{
    const QByteArray header = HeaderOf(site);
    QByteArray beginning = kBackupMark.toByteArray();
    AppendLength(header.size(), beginning);
    beginning += header;
    return file.Write(beginning).and_then([&] { return file.WriteChunk(BytesOf(settings)); });
}

// All rows, and behind them a block without any.
Told<void> WriteTable(BackupFile &file, SiteRows &rows, size_t index, const Tell &tell)
{
    TableSum sum;
    for (;;) {
        const auto block = rows.Next(index);
        if (!block) {
            return tl::unexpected(block.error());
        }
        const QByteArray bytes = BytesOf(*block);
        if (auto written = file.WriteChunk(bytes); !written) {
            return written;
        }
        if (block->rows == 0) {
            break;
        }
        sum.Add(*block, bytes);
    }
    const SiteTable &table = rows.About().tables[index];
    if (sum.Rows() != table.rows) {
        return tl::unexpected(u"Of the %1 rows of \"%2\" %3 could be read."_s.arg(table.rows)
                                  .arg(table.shape.name, QString::number(sum.Rows())));
    }
    tell(sum.InWords(table.shape.name));
    return {};
}

} // namespace

Told<void> MakeBackup(const BackupWish &wish, const Tell &tell)
{
    if (!wish.replaces && QFile::exists(wish.file)) {
        return tl::unexpected(
            u"%1 is there already. Name another file, or replace it with --force."_s.arg(
                wish.file));
    }
    if (const QFileInfo there(wish.file); there.exists() && !there.isFile()) {
        return tl::unexpected(u"%1 is no file."_s.arg(wish.file));
    }
    SettingsFiles settings;
    if (wish.configFolder) {
        auto read = ReadSettingsFiles(*wish.configFolder);
        if (!read) {
            return tl::unexpected(read.error());
        }
        settings = *std::move(read);
    }
    const auto rows = DatabaseRows::Open(wish.dsn);
    if (!rows) {
        return tl::unexpected(rows.error());
    }
    const auto file = BackupFile::Make(wish.file);
    if (!file) {
        return tl::unexpected(file.error());
    }
    const Site &site = (*rows)->About();
    if (auto written = WriteBeginning(**file, site, settings); !written) {
        return written;
    }
    for (size_t table = 0; table < site.tables.size(); ++table) {
        if (auto written = WriteTable(**file, **rows, table, tell); !written) {
            return written;
        }
    }
    return (*file)->Finish(wish.replaces);
}
