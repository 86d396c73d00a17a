// A key of the settings that is open: its values by name, as they stood when its file was read.
#pragma once

#include "config/config_values.h"
#include "config/key_document.h"

#include <QString>

#include <optional>

// A key that is open for reading, see ConfigStore::ReadKey. All its values come from one state of the
// file.
class KeyReader
{
public:
    // What a reader's buffer holds unless it says otherwise, its terminator included.
    static constexpr qsizetype kBufferBytes = 255;

    // Nothing when the value is missing, is a number, or needs more than `bufferBytes` of UTF-8 with
    // its terminator.
    [[nodiscard]] std::optional<QString> ReadText(const TextValue &value,
                                                  qsizetype bufferBytes = kBufferBytes) const;

    // True when there is such a value and it is no text, or no number.
    [[nodiscard]] bool IsOfAnotherKind(const TextValue &value) const;
    [[nodiscard]] bool IsOfAnotherKind(const NumberFamily &family, int index) const;

    // The text read the C way; 0 when it is missing.
    [[nodiscard]] qint32 ReadInteger(const TextValue &value,
                                     qsizetype bufferBytes = kBufferBytes) const;
    [[nodiscard]] double ReadAmount(const TextValue &value,
                                    qsizetype bufferBytes = kBufferBytes) const;

    // Nothing when the value is missing or is a text.
    [[nodiscard]] std::optional<quint32> ReadNumber(const NumberFamily &family, int index) const;

private:
    friend class ConfigStore;
    KeyReader(ConfigKeyId opened, KeyDocument content) : key(opened), document(std::move(content))
    { }

    ConfigKeyId key;
    KeyDocument document;
};

// A key that is open for writing, see ConfigStore::Edit. What it is told to write reaches the file
// when the edit ends, all of it or nothing.
class KeyEditor
{
public:
    // True when the key holds such a text or number now, which other programs may have changed since
    // it was last read.
    [[nodiscard]] bool Has(const TextValue &value) const;
    [[nodiscard]] bool Has(const NumberFamily &family, int index) const;

    void WriteText(const TextValue &value, const QString &text);
    void WriteInteger(const TextValue &value, qint32 number); // as decimal text
    void WriteFlag(const TextValue &value, bool on); // "1" or "0"
    void WriteNumber(const NumberFamily &family, int index, quint32 number);

    // False when there is no such value.
    bool DeleteNumber(const NumberFamily &family, int index);

private:
    friend class ConfigStore;
    KeyEditor(ConfigKeyId opened, KeyDocument &content) : key(opened), document(content) { }

    void Note(const QString &name, bool taken);

    ConfigKeyId key;
    KeyDocument &document;
    QString
        refusedName; // the first value that the document could not take; empty when there is none
};
