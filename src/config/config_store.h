// The settings that the console and the accounting service share: one TOML file per key.
#pragma once

#include "config/config_values.h"
#include "config/key_document.h"

#include <QSet>
#include <QString>

#include <functional>
#include <optional>

class KeyEditor;

// Reads and writes go to the file each time: nothing is cached, so a value changed by one window is
// seen by the next that opens. A string in the file is a text value, an integer a 32-bit number, and
// neither is read as the other. Names are matched without regard to letter case.
//
// A key's file is its path below the configuration folder with `.toml` added: the base key is
// Software/Tollbrook/Network.toml, its subkey localip is Software/Tollbrook/Network/localip.toml.
//
// A key exists when its file does. The store never makes a key: without one a read finds nothing and
// a write is skipped. A damaged file reads as missing and is logged under `tollbrook.config`; the
// first write after that keeps it aside as <file>.damaged. A folder or file that is open to everybody
// is logged once. Comments and the order of a file written by hand survive every write.
class ConfigStore
{
public:
    // What a reader's buffer holds unless it says otherwise, its terminator included.
    static constexpr qsizetype kBufferBytes = 255;

    // `folder` holds the keys' folders, such as Software/Tollbrook/Network.
    explicit ConfigStore(QString folder);

    [[nodiscard]] QString Folder() const;

    // True when the key can be opened for reading.
    [[nodiscard]] bool HasKey(ConfigKeyId key) const;

    // Nothing when the value is missing, is a number, or needs more than `bufferBytes` of UTF-8 with
    // its terminator.
    [[nodiscard]] std::optional<QString> ReadText(const TextValue &value,
                                                  qsizetype bufferBytes = kBufferBytes) const;

    // The text read the C way; 0 when it is missing.
    [[nodiscard]] qint32 ReadInteger(const TextValue &value,
                                     qsizetype bufferBytes = kBufferBytes) const;
    [[nodiscard]] double ReadAmount(const TextValue &value,
                                    qsizetype bufferBytes = kBufferBytes) const;

    // Nothing when the value is missing or is a text.
    [[nodiscard]] std::optional<quint32> ReadNumber(const NumberFamily &family, int index) const;

    // A write replaces the whole file through a temporary file and a rename, under a lock that other
    // writers honour. False when the key does not exist, or when the file cannot be written, which is
    // logged; the old file then still stands.
    bool WriteText(const TextValue &value, const QString &text) const;
    bool WriteInteger(const TextValue &value, qint32 number) const; // as decimal text
    bool WriteFlag(const TextValue &value, bool on) const; // "1" or "0"
    bool WriteNumber(const NumberFamily &family, int index, quint32 number) const;

    // Opens the key for writing once, lets `edit` write and delete what it likes, and replaces the file
    // once: a group of values costs one file. `edit` is not called when the key cannot be opened.
    bool Edit(ConfigKeyId key, const std::function<void(KeyEditor &)> &edit) const;

    // Makes an empty key where there is none, its folders mode 0750 and its file 0640; the work of an
    // installer, never of the console. True when the key is there.
    bool CreateKey(ConfigKeyId key) const;

    [[nodiscard]] QString FileOf(ConfigKeyId key) const;

private:
    enum class KeyState { Missing, Unreadable, Damaged, Whole };
    struct LoadedKey
    {
        KeyState state = KeyState::Missing;
        KeyDocument document; // empty unless whole
    };

    [[nodiscard]] LoadedKey Load(ConfigKeyId key) const;
    bool Replace(const QString &path, const LoadedKey &loaded) const;
    [[nodiscard]] bool KeepDamaged(const QString &path) const;
    void WarnOnce(const QString &path, const QString &what) const;
    void WarnWhenOpenToEverybody(const QString &path) const;

    QString folder;
    mutable QSet<QString> warned; // a reader comes by many times a minute; its log line once
};

// A key that is open for writing, see ConfigStore::Edit.
class KeyEditor
{
public:
    void WriteText(const TextValue &value, const QString &text);
    void WriteInteger(const TextValue &value, qint32 number); // as decimal text
    void WriteFlag(const TextValue &value, bool on); // "1" or "0"
    void WriteNumber(const NumberFamily &family, int index, quint32 number);

    // False when there is no such value.
    bool DeleteNumber(const NumberFamily &family, int index);

private:
    friend class ConfigStore;
    explicit KeyEditor(KeyDocument &opened) : document(opened) { }

    KeyDocument &document;
};
