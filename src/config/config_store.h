// The settings that the console and the accounting service share: one TOML file per key.
#pragma once

#include "config/config_values.h"

#include <QString>

#include <optional>

// Reads and writes go to the file each time: nothing is cached, so a value changed by one window is
// seen by the next that opens. A string in the file is a text value, an integer a 32-bit number, and
// neither is read as the other. Names are matched without regard to letter case.
//
// A key exists when its file does. The store never makes a key: without one a read finds nothing and
// a write is skipped. A damaged file reads as missing and is logged under `tollbrook.config`; the
// first write after that keeps it aside under another name.
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
    [[nodiscard]] qint32 ReadInteger(const TextValue &value) const;
    [[nodiscard]] double ReadAmount(const TextValue &value) const;

    // Nothing when the value is missing or is a text.
    [[nodiscard]] std::optional<quint32> ReadNumber(const NumberFamily &family, int index) const;

    // A write replaces the whole file through a temporary file and a rename, under a lock that other
    // writers honour. False when the key does not exist or the file cannot be written; the old file
    // then still stands.
    bool WriteText(const TextValue &value, const QString &text) const;
    bool WriteInteger(const TextValue &value, qint32 number) const; // as decimal text
    bool WriteFlag(const TextValue &value, bool on) const;          // "1" or "0"
    bool WriteNumber(const NumberFamily &family, int index, quint32 number) const;

    // False when there is no such value to delete, or it cannot be deleted.
    bool DeleteText(const TextValue &value) const;
    bool DeleteNumber(const NumberFamily &family, int index) const;

    // Makes an empty key where there is none; the work of an installer, never of the console.
    bool CreateKey(ConfigKeyId key) const;

private:
    QString folder;
};
