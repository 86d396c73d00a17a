#include "config/config_store.h"

#include "base/text.h"
#include "config/key_document.h"
#include "config/key_file.h"

#include <QDir>
#include <QFileInfo>
#include <QLoggingCategory>

using namespace Qt::StringLiterals;

Q_LOGGING_CATEGORY(logConfig, "tollbrook.config")

namespace {

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

QString NameOf(const TextValue &value)
{
    return QString::fromLatin1(value.name);
}

QString NameOf(const NumberFamily &family, int index)
{
    return QString::fromLatin1(family.prefix) + QString::number(index);
}

// Log lines never carry a value: one of them is a password.
void LogUnwritten(const QString &path, const QString &problem)
{
    qCWarning(logConfig).noquote() << path << "was not changed:" << problem;
}

constexpr auto kFilePermissions = QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup; // 0640
constexpr auto kFolderPermissions = kFilePermissions | QFile::ExeOwner | QFile::ExeGroup; // 0750

} // namespace

ConfigStore::ConfigStore(QString newFolder) : folder(std::move(newFolder)) { }

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
    return Load(key).state == KeyState::Whole;
}

ConfigStore::LoadedKey ConfigStore::Load(ConfigKeyId key) const
{
    const QString path = FileOf(key);
    const key_file::Content content = key_file::Read(path);
    if (content.reading == key_file::Reading::Missing) {
        if (key == ConfigKeyId::Base) {
            WarnOnce(path, u"is missing"_s); // the other keys may well be
        }
        return {KeyState::Missing, {}};
    }
    WarnWhenOpenToEverybody(path);
    if (content.reading == key_file::Reading::Unreadable) {
        WarnOnce(path, u"cannot be read: "_s + content.problem);
        return {KeyState::Unreadable, {}};
    }
    QString problem = content.problem;
    if (content.reading == key_file::Reading::Whole) {
        if (auto document = KeyDocument::From(content.bytes, problem)) {
            return {KeyState::Whole, *std::move(document)};
        }
    }
    WarnOnce(path, u"is damaged and counts as missing: "_s + problem);
    return {KeyState::Damaged, {}};
}

void ConfigStore::WarnOnce(const QString &path, const QString &what) const
{
    const QString line = path + u' ' + what;
    if (!warned.contains(line)) {
        warned.insert(line);
        qCWarning(logConfig).noquote() << line;
    }
}

void ConfigStore::WarnWhenOpenToEverybody(const QString &path) const
{
    for (const QString &each : {folder, path}) {
        if (key_file::IsOpenToEverybody(each)) {
            WarnOnce(each, u"is open to everybody on this machine"_s);
        }
    }
}

std::optional<QString> ConfigStore::ReadText(const TextValue &value, qsizetype bufferBytes) const
{
    auto text = Load(value.key).document.Text(NameOf(value));
    const bool fits = text && text->toUtf8().size() < bufferBytes;
    return fits ? text : std::nullopt;
}

qint32 ConfigStore::ReadInteger(const TextValue &value, qsizetype bufferBytes) const
{
    return IntegerFrom(ReadText(value, bufferBytes).value_or(QString()));
}

double ConfigStore::ReadAmount(const TextValue &value, qsizetype bufferBytes) const
{
    return AmountFrom(ReadText(value, bufferBytes).value_or(QString()));
}

std::optional<quint32> ConfigStore::ReadNumber(const NumberFamily &family, int index) const
{
    return Load(family.key).document.Number(NameOf(family, index));
}

bool ConfigStore::Edit(ConfigKeyId key, const std::function<void(KeyEditor &)> &edit) const
{
    const QString path = FileOf(key);
    if (!QFileInfo::exists(path)) {
        return false;
    }
    const key_file::WriterLock lock(QFileInfo(path).path());
    if (!lock.IsHeld()) {
        LogUnwritten(path, u"another program holds its folder"_s);
        return false;
    }
    LoadedKey loaded = Load(key);
    if (loaded.state == KeyState::Missing || loaded.state == KeyState::Unreadable) {
        return false;
    }
    const QByteArray before = loaded.document.Bytes();
    KeyEditor editor(loaded.document);
    edit(editor);
    return loaded.document.Bytes() == before || Replace(path, loaded);
}

bool ConfigStore::Replace(const QString &path, const LoadedKey &loaded) const
{
    if (loaded.state == KeyState::Damaged && !KeepDamaged(path)) {
        return false;
    }
    QString problem;
    if (!key_file::Replace(path, loaded.document.Bytes(), problem)) {
        LogUnwritten(path, problem);
        return false;
    }
    return true;
}

bool ConfigStore::KeepDamaged(const QString &path) const
{
    const QString aside = key_file::KeepAside(path);
    if (aside.isEmpty()) {
        LogUnwritten(path, u"the damaged file cannot be kept under another name"_s);
        return false;
    }
    qCWarning(logConfig).noquote() << path << "was damaged and is kept as" << aside;
    return true;
}

bool ConfigStore::WriteText(const TextValue &value, const QString &text) const
{
    return Edit(value.key, [&](KeyEditor &key) { key.WriteText(value, text); });
}

bool ConfigStore::WriteInteger(const TextValue &value, qint32 number) const
{
    return Edit(value.key, [&](KeyEditor &key) { key.WriteInteger(value, number); });
}

bool ConfigStore::WriteFlag(const TextValue &value, bool on) const
{
    return Edit(value.key, [&](KeyEditor &key) { key.WriteFlag(value, on); });
}

bool ConfigStore::WriteNumber(const NumberFamily &family, int index, quint32 number) const
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

void KeyEditor::WriteText(const TextValue &value, const QString &text)
{
    document.SetText(NameOf(value), text);
}

void KeyEditor::WriteInteger(const TextValue &value, qint32 number)
{
    WriteText(value, QString::number(number));
}

void KeyEditor::WriteFlag(const TextValue &value, bool on)
{
    WriteText(value, on ? u"1"_s : u"0"_s);
}

void KeyEditor::WriteNumber(const NumberFamily &family, int index, quint32 number)
{
    document.SetNumber(NameOf(family, index), number);
}

bool KeyEditor::DeleteNumber(const NumberFamily &family, int index)
{
    return document.Remove(NameOf(family, index));
}
