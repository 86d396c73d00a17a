// The rows of a backup.
#pragma once

#include "upkeep/settings_files.h"
#include "upkeep/site_rows.h"

#include <QFile>

#include <memory>

class BackupRows : public SiteRows
{
public:
    // Reads the whole file once, and refuses one that is no backup, is damaged or cut off, or holds tables
    // that this program does not know.
    [[nodiscard]] static Told<std::unique_ptr<BackupRows>> Open(const QString &path);

    [[nodiscard]] const SettingsFiles &Settings() const { return settings; }

    [[nodiscard]] Told<RowBlock> Next(size_t table) override;
    [[nodiscard]] Told<void> Rewind() override;

private:
    [[nodiscard]] Told<void> Begin(const QString &path);
    [[nodiscard]] Told<void> CheckSum();
    [[nodiscard]] Told<QByteArray> TakeLong();
    [[nodiscard]] Told<QByteArray> TakeChunk();
    [[nodiscard]] Told<void> TakeSettings();
    [[nodiscard]] tl::unexpected<QString> Damaged() const;

    QFile file;
    qint64 firstBlock = 0; // its place in the file
    SettingsFiles settings;
};
