// The settings that the console and the accounting service share: one TOML file per key.
#pragma once

#include "config/config_values.h"
#include "config/key_values.h"
#include "config/settings_failure.h"

#include <QLoggingCategory>
#include <QMutex>
#include <QSet>
#include <QString>

#include <functional>
#include <optional>

// Reads and writes go to the file each time: nothing is cached, so a value changed by one window is
// seen by the next that opens. A string in the file is a text value, an integer a 32-bit number, and
// neither is read as the other. Names are matched without regard to letter case.
//
// A key's file is its path below the configuration folder with `.toml` added: the base key is
// Software/Tollbrook/Network.toml, its subkey localip is Software/Tollbrook/Network/localip.toml.
//
// A key exists when its file does. The store never makes a key: without one a read finds nothing and
// a write is skipped. A file that is damaged or cannot be read is never replaced: its values read as
// missing, which is logged once under `tollbrook.config`, and writes fail until it is mended.
// Comments and the order of a file written by hand survive every write. A folder or file that is
// open to everybody is logged once, under `tollbrook.config.rights`.
//
// Any thread may read and write at any time.
class ConfigStore
{
public:
    static constexpr qsizetype kBufferBytes = KeyReader::kBufferBytes;
    static constexpr int kLockWait = 1000; // milliseconds

    // `folder` holds the keys' folders, such as Software/Tollbrook/Network. A write waits for other
    // writers for at most `lockWait` milliseconds.
    explicit ConfigStore(QString folder, int lockWait = kLockWait);

    [[nodiscard]] QString Folder() const;

    // True when the key can be opened for reading.
    [[nodiscard]] bool HasKey(ConfigKeyId key) const;

    // The values of the key for whoever will write some of them back: a key that does not exist has
    // none, and one that could not be read is a failure, not a key without values.
    [[nodiscard]] tl::expected<KeyReader, SettingsFailure> ReadKey(ConfigKeyId key) const;

    // Why the key's values cannot be read now, and so could not be written either. Nothing for a key
    // that is whole or does not exist.
    [[nodiscard]] std::optional<SettingsFailure> Problem(ConfigKeyId key) const;

    // Single values as KeyReader gives them, for whoever only looks: a key that could not be read has
    // none.
    [[nodiscard]] std::optional<QString> ReadText(const TextValue &value,
                                                  qsizetype bufferBytes = kBufferBytes) const;
    [[nodiscard]] qint32 ReadInteger(const TextValue &value,
                                     qsizetype bufferBytes = kBufferBytes) const;
    [[nodiscard]] double ReadAmount(const TextValue &value,
                                    qsizetype bufferBytes = kBufferBytes) const;
    [[nodiscard]] std::optional<quint32> ReadNumber(const NumberFamily &family, int index) const;

    // A write replaces the whole file through a temporary file and a rename, under a lock that other
    // writers honour. A key that does not exist is a success that wrote nothing. After a failure the
    // old file still stands as it was; the failure is logged besides.
    SettingsResult WriteText(const TextValue &value, const QString &text) const;
    SettingsResult WriteInteger(const TextValue &value, qint32 number) const; // as decimal text
    SettingsResult WriteFlag(const TextValue &value, bool on) const; // "1" or "0"
    SettingsResult WriteNumber(const NumberFamily &family, int index, quint32 number) const;

    // Opens the key for writing once, lets `edit` write and delete what it likes, and replaces the file
    // once: a group of values costs one file and is written as a whole or not at all. `edit` is not
    // called when the key does not exist or cannot be opened.
    SettingsResult Edit(ConfigKeyId key, const std::function<void(KeyEditor &)> &edit) const;

    // Makes an empty key where there is none, its folders mode 0750 and its file 0640; the work of an
    // installer, never of the console. True when the key is there.
    bool CreateKey(ConfigKeyId key) const;

    [[nodiscard]] QString FileOf(ConfigKeyId key) const;

    // The folder, and those of the files, that everybody on the machine may read or write.
    [[nodiscard]] QStringList OpenToEverybody() const;

private:
    // Nothing for a key that does not exist.
    using LoadedKey = tl::expected<std::optional<KeyDocument>, SettingsFailure>;

    [[nodiscard]] LoadedKey Load(ConfigKeyId key) const;
    [[nodiscard]] KeyReader ReaderOf(ConfigKeyId key) const;
    [[nodiscard]] SettingsResult Change(ConfigKeyId key,
                                        const std::function<void(KeyEditor &)> &edit) const;
    void WarnOnce(const QLoggingCategory &category, const QString &line) const;
    void WarnWhenOpenToEverybody(const QString &path) const;

    const QString folder;
    const int lockWait; // milliseconds
    mutable QMutex warnedLock;
    mutable QSet<QString> warned; // a reader comes by many times a minute; its log line once
};
