#include "config/config_store.h"

#include "config/key_document.h"
#include "config/key_file.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>
#include <QMutexLocker>

#include <utility>

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(logConfig, "tollbrook.config")
Q_LOGGING_CATEGORY(logRights, "tollbrook.config.rights")

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ConfigStore)
};

QString RelativePath(ConfigKeyId key)
{
    switch (key) {
    case ConfigKeyId::Base:
        return u"Software/Tollbrook/Network"_s;
    case ConfigKeyId::LocalIp:
        return u"Software/Tollbrook/Network/localip"_s;
    case ConfigKeyId::Price:
        return u"Software/Tollbrook/Network/Price"_s;
    case ConfigKeyId::DefProfile:
        return u"Software/Tollbrook/Network/DefProfile"_s;
    case ConfigKeyId::Ui:
        return u"Software/Tollbrook/Network/UI"_s;
    case ConfigKeyId::AdapterBind:
        return u"Software/Harrowmere/Tallyspring"_s;
    case ConfigKeyId::CaptureDriver:
        return u"System/CurrentControlSet/Services/Packet/Linkage"_s;
    }
    Q_UNREACHABLE();
}

constexpr auto kFilePermissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup; // 0640
constexpr auto kFolderPermissions = kFilePermissions | QFile::ExeOwner | QFile::ExeGroup; // 0750

// The document of the file's bytes; a failure when they are damaged.
tl::expected<std::optional<KeyDocument>, SettingsFailure> Parsed(const QString &path,
                                                                 const QByteArray &bytes)
{
    auto document = KeyDocument::From(bytes);
    if (!document) {
        const auto &[line, problem] = document.error();
        return tl::unexpected(key_file::Damaged(path, line, problem));
    }
    return *std::move(document);
}

} // namespace

ConfigStore::ConfigStore(QString newFolder, int newLockWait)
    : folder(std::move(newFolder))
    , lockWait(newLockWait)
{ }

QString ConfigStore::Folder() const
{
    return folder;
}

QString ConfigStore::FileOf(ConfigKeyId key) const
{
    return QDir(folder).filePath(RelativePath(key) + u".toml"_s);
}

bool ConfigStore::HasKey(ConfigKeyId key) const
{
    const LoadedKey loaded = Load(key);
    return loaded && *loaded;
}

tl::expected<KeyReader, SettingsFailure> ConfigStore::ReadKey(ConfigKeyId key) const
{
    return Load(key).map([key](std::optional<KeyDocument> document) {
        return KeyReader(key, std::move(document).value_or(KeyDocument()));
    });
}

std::optional<SettingsFailure> ConfigStore::Problem(ConfigKeyId key) const
{
    const LoadedKey loaded = Load(key);
    return loaded ? std::nullopt : std::optional(loaded.error());
}

ConfigStore::LoadedKey ConfigStore::Load(ConfigKeyId key) const
{
    const QString path = FileOf(key);
    const auto bytes = key_file::Read(path);
    if (bytes && !*bytes) {
        if (key == ConfigKeyId::Base) {
            WarnOnce(logConfig(), path + u" is missing"_s); // the other keys may well be
        }
        return std::nullopt;
    }
    WarnWhenOpenToEverybody(path);
    LoadedKey loaded = bytes ? Parsed(path, **bytes) : tl::unexpected(bytes.error());
    if (!loaded) {
        WarnOnce(logConfig(), TextOf(loaded.error()) + u" Its values count as missing."_s);
    }
    return loaded;
}

void ConfigStore::WarnOnce(const QLoggingCategory &category, const QString &line) const
{
    QMutexLocker locked(&warnedLock);
    const bool isNew = !warned.contains(line);
    warned.insert(line);
    locked.unlock();
    if (isNew) {
        qCWarning(category).noquote() << line;
    }
}

QStringList ConfigStore::OpenToEverybody() const
{
    QStringList open;
    for (const ConfigKeyId key :
         {ConfigKeyId::Base, ConfigKeyId::LocalIp, ConfigKeyId::Price, ConfigKeyId::DefProfile}) {
        for (const QString &each : {folder, FileOf(key)}) {
            if (key_file::IsOpenToEverybody(each) && !open.contains(each)) {
                open << each;
            }
        }
    }
    return open;
}

void ConfigStore::WarnWhenOpenToEverybody(const QString &path) const
{
    for (const QString &each : {folder, path}) {
        if (key_file::IsOpenToEverybody(each)) {
            WarnOnce(logRights(), each + u" is open to everybody on this machine"_s);
        }
    }
}

KeyReader ConfigStore::ReaderOf(ConfigKeyId key) const
{
    return ReadKey(key).value_or(KeyReader(key, {}));
}

std::optional<QString> ConfigStore::ReadText(const TextValue &value, qsizetype bufferBytes) const
{
    return ReaderOf(value.key).ReadText(value, bufferBytes);
}

qint32 ConfigStore::ReadInteger(const TextValue &value, qsizetype bufferBytes) const
{
    return ReaderOf(value.key).ReadInteger(value, bufferBytes);
}

double ConfigStore::ReadAmount(const TextValue &value, qsizetype bufferBytes) const
{
    return ReaderOf(value.key).ReadAmount(value, bufferBytes);
}

std::optional<quint32> ConfigStore::ReadNumber(const NumberFamily &family, int index) const
{
    return ReaderOf(family.key).ReadNumber(family, index);
}

SettingsResult ConfigStore::Edit(ConfigKeyId key,
                                 const std::function<void(KeyEditor &)> &edit) const
{
    SettingsResult result = Change(key, edit);
    if (!result) {
        qCWarning(logConfig).noquote() << TextOf(result.error()) << "Nothing was written.";
    }
    return result;
}

SettingsResult ConfigStore::Change(ConfigKeyId key,
                                   const std::function<void(KeyEditor &)> &edit) const
{
    const QString path = FileOf(key);
    if (key_file::IsMissing(path)) {
        return {};
    }
    const key_file::WriterLock lock(QFileInfo(path).path(), lockWait);
    if (!lock.IsHeld()) {
        return tl::unexpected(SettingsFailure {path, 0, lock.Problem()});
    }
    LoadedKey loaded = Load(key);
    if (!loaded) {
        return tl::unexpected(loaded.error());
    }
    if (!*loaded) {
        return {};
    }
    KeyDocument &document = **loaded;
    const QByteArray before = document.Bytes();
    KeyEditor editor(key, document);
    edit(editor);
    if (!editor.refusedName.isEmpty()) {
        const QString reason = Words::tr("cannot be written: it does not take the value \"%1\"");
        return tl::unexpected(SettingsFailure {path, 0, reason.arg(editor.refusedName)});
    }
    return document.Bytes() == before ? SettingsResult()
                                      : key_file::Replace(path, document.Bytes());
}

SettingsResult ConfigStore::WriteText(const TextValue &value, const QString &text) const
{
    return Edit(value.key, [&](KeyEditor &key) { key.WriteText(value, text); });
}

SettingsResult ConfigStore::WriteInteger(const TextValue &value, qint32 number) const
{
    return Edit(value.key, [&](KeyEditor &key) { key.WriteInteger(value, number); });
}

SettingsResult ConfigStore::WriteFlag(const TextValue &value, bool on) const
{
    return Edit(value.key, [&](KeyEditor &key) { key.WriteFlag(value, on); });
}

SettingsResult ConfigStore::WriteNumber(const NumberFamily &family, int index, quint32 number) const
{
    return Edit(family.key, [&](KeyEditor &key) { key.WriteNumber(family, index, number); });
}

bool ConfigStore::CreateKey(ConfigKeyId key) const
{
    const QString path = FileOf(key);
    if (QFileInfo::exists(path)) {
        return true;
    }
    QString parent = QDir::rootPath();
    for (const QString &part : QFileInfo(path).absolutePath().split(u'/', Qt::SkipEmptyParts)) {
        parent = QDir(parent).filePath(part);
        if (!QFileInfo::exists(parent) && !QDir().mkdir(parent, kFolderPermissions)) {
            return false;
        }
    }
    QFile file(path);
    return file.open(QIODevice::WriteOnly | QIODevice::NewOnly, kFilePermissions);
}
