#include "upkeep/settings_files.h"

#include "config/key_file.h"

#include <QDir>
#include <QDirIterator>

#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

tl::unexpected<QString> Failed(const SettingsFailure &failure)
{
    return tl::unexpected(TextOf(failure));
}

// A path that stays below the folder and is a key's.
bool IsKeyPath(const QString &path)
{
    return path.endsWith(u".toml"_s) && QDir::isRelativePath(path) && QDir::cleanPath(path) == path
        && !path.startsWith(u"../"_s);
}

// What is made meanwhile is for its owner and its group alone: one of the values is a password. The group
// may write where it may in the settings' folder, as the administrators of an installed console do.
class NoRightsForOthers
{
public:
    explicit NoRightsForOthers(const QString &folder)
        : before(
            ::umask(QFile::permissions(folder) & QFile::WriteGroup ? S_IRWXO : S_IWGRP | S_IRWXO))
    { }
    ~NoRightsForOthers() { ::umask(before); }
    NoRightsForOthers(const NoRightsForOthers &) = delete;
    NoRightsForOthers &operator=(const NoRightsForOthers &) = delete;

private:
    mode_t before;
};

bool MakeFolder(const QString &path)
{
    const QDir folder(path);
    return folder.exists()
        || (MakeFolder(QFileInfo(path).path())
            && ::mkdir(QFile::encodeName(path).constData(), S_IRWXU | S_IRWXG) == 0);
}

// What stands in such a folder would be missing, and nobody would know.
std::optional<QString> UnreadableFolder(const QString &folder)
{
    QStringList folders {folder};
    QDirIterator paths(
        folder, QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden, QDirIterator::Subdirectories);
    while (paths.hasNext()) {
        folders << paths.next();
    }
    for (const QString &each : folders) {
        if (const QFileInfo info(each);
            info.isDir() && !(info.isReadable() && info.isExecutable())) {
            return each;
        }
    }
    return std::nullopt;
}

} // namespace

Told<SettingsFiles> ReadSettingsFiles(const QString &folder)
{
    if (const auto unreadable = UnreadableFolder(folder)) {
        return tl::unexpected(u"The folder %1 of settings cannot be read."_s.arg(*unreadable));
    }
    SettingsFiles files;
    const QDir root(folder);
    QDirIterator paths(folder, {u"*.toml"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (paths.hasNext()) {
        const QString path = paths.next();
        const auto bytes = key_file::Read(path);
        if (!bytes) {
            return Failed(bytes.error());
        }
        if (*bytes) {
            files.insert(root.relativeFilePath(path), **bytes);
        }
    }
    if (files.isEmpty()) {
        return tl::unexpected(
            u"There are no settings in %1. Name their folder with --config, or leave them out with "
            "--no-settings."_s.arg(folder));
    }
    return files;
}

Told<void> MayWriteSettings(const QString &folder, const SettingsFiles &files)
{
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        if (!IsKeyPath(file.key())) {
            return tl::unexpected(u"\"%1\" is no file of settings."_s.arg(file.key()));
        }
        const QString path = QDir(folder).filePath(file.key());
        const auto present = key_file::Read(path);
        if (!present) {
            return Failed(present.error());
        }
        if (*present && **present != file.value()) {
            return tl::unexpected(
                u"%1 is there already and says something else. Move it away first."_s.arg(path));
        }
    }
    return {};
}

Told<void> WriteSettingsFiles(const QString &folder, const SettingsFiles &files)
{
    const NoRightsForOthers rights(folder);
    for (auto file = files.cbegin(); file != files.cend(); ++file) {
        const QString path = QDir(folder).filePath(file.key());
        if (!MakeFolder(QFileInfo(path).path())) {
            return tl::unexpected(
                u"The folder of %1 cannot be made: %2"_s.arg(path, qt_error_string()));
        }
        if (const auto written = key_file::Replace(path, file.value()); !written) {
            return Failed(written.error());
        }
    }
    return {};
}
