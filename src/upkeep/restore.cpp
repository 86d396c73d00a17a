#include "upkeep/restore.h"

#include "db/direct_connection.h"
#include "db/schema_version.h"
#include "upkeep/backup_rows.h"
#include "upkeep/database_rows.h"
#include "upkeep/filled_database.h"

using namespace Qt::StringLiterals;

namespace {

void TellOfSource(const Site &site, const Tell &tell)
{
    qint64 rows = 0;
    for (const SiteTable &table : site.tables) {
        rows += table.rows;
    }
    tell(u"%1 rows in %2 tables of version %3, from %4."_s.arg(QString::number(rows),
                                                               QString::number(site.tables.size()),
                                                               QString::number(site.version),
                                                               site.engine));
}

// Nothing when the database is there, or is not a file.
std::optional<QString> MissingFileOf(const QString &dsn)
{
    DirectConnection database;
    static_cast<void>(database.Open(dsn));
    return database.MissingFile();
}

Told<void> FillFrom(SiteRows &source, const QString &dsn, FillMode mode, const Tell &tell)
{
    if (const auto file = mode == FillMode::DryRun ? MissingFileOf(dsn) : std::nullopt) {
        TellOfSource(source.About(), tell);
        tell(u"The file \"%1\" is not there yet: it would be made. Nothing was changed."_s.arg(
            *file));
        return {};
    }
    return FilledDatabase::Open(dsn).and_then([&](const auto &database) -> Told<void> {
        TellOfSource(source.About(), tell);
        if (mode == FillMode::DryRun) {
            tell(u"The database of \"%1\" is empty and can take them. Nothing was changed."_s.arg(
                dsn));
            return {};
        }
        return database->Fill(source, tell).map([&] {
            if (const auto older = OtherSchemaText(source.About().version, dsn)) {
                tell(*older);
            }
        });
    });
}

Told<void> RestoreSettings(const RestoreWish &wish, const SettingsFiles &settings, const Tell &tell)
{
    if (settings.isEmpty() && wish.onlySettings) {
        return tl::unexpected(u"The backup holds no settings. Nothing was changed."_s);
    }
    if (settings.isEmpty()) {
        tell(u"The backup holds no settings."_s);
        return {};
    }
    if (!wish.configFolder) {
        tell(u"The backup holds settings, too: --config FOLDER puts them there."_s);
        return {};
    }
    if (wish.mode == FillMode::DryRun) {
        return {};
    }
    return WriteSettingsFiles(*wish.configFolder, settings).map([&] {
        tell(u"%1 files of settings are in %2."_s.arg(QString::number(settings.size()),
                                                      *wish.configFolder));
    });
}

} // namespace

Told<void> Restore(const RestoreWish &wish, const Tell &tell)
{
    const auto backup = BackupRows::Open(wish.file);
    if (!backup) {
        return tl::unexpected(backup.error());
    }
    const SettingsFiles &settings = (*backup)->Settings();
    if (wish.configFolder) {
        if (auto may = MayWriteSettings(*wish.configFolder, settings); !may) {
            return may;
        }
    }
    if (wish.onlySettings) {
        return RestoreSettings(wish, settings, tell);
    }
    return FillFrom(**backup, wish.dsn, wish.mode, tell).and_then([&] {
        return RestoreSettings(wish, settings, tell)
            .map_error([](const QString &problem) -> QString {
                return problem
                    + u"\nThe database is restored; only the settings are not. Repeat it with "
                      "--only-settings."_s;
            });
    });
}

Told<void> CopyDatabase(const CopyWish &wish, const Tell &tell)
{
    if (wish.from == wish.to) {
        return tl::unexpected(u"\"%1\" cannot be copied to itself."_s.arg(wish.to));
    }
    return DatabaseRows::Open(wish.from).and_then(
        [&](const auto &source) { return FillFrom(*source, wish.to, wish.mode, tell); });
}
