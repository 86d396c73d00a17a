// The text of one key's file: values by name, changed in place so that comments and order survive.
#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <optional>
#include <tl/expected.hpp>
#include <variant>

class KeyDocument
{
public:
    // Where and why a text is no TOML, without the values that stand there.
    struct Damage
    {
        int line; // from 1
        QString problem;
    };

    // The document of a TOML text.
    [[nodiscard]] static tl::expected<KeyDocument, Damage> From(const QByteArray &text);

    // Nothing when there is no such name, whatever its letter case, or its value is of another kind.
    [[nodiscard]] std::optional<QString> Text(const QString &name) const;
    [[nodiscard]] std::optional<quint32> Number(const QString &name) const;

    // True when there is such a name with a value of any kind.
    [[nodiscard]] bool Holds(const QString &name) const { return Find(name) != nullptr; }

    // A name that is there keeps its spelling and its place. False when the document cannot take the
    // value, so that it would not read back as it is; the document is then unchanged.
    bool SetText(const QString &name, const QString &text);
    bool SetNumber(const QString &name, quint32 number); // written in hexadecimal

    // False when there is no such name.
    bool Remove(const QString &name);

    [[nodiscard]] const QByteArray &Bytes() const { return bytes; }

private:
    struct Entry
    {
        QString name;
        qsizetype nameBegin; // offsets into the bytes
        qsizetype valueBegin;
        qsizetype valueEnd;
        std::variant<std::monostate, QString, quint32> value; // empty for any other kind
    };

    [[nodiscard]] const Entry *Find(const QString &name) const;
    bool Set(const QString &name, const QByteArray &literal);
    bool Replace(const QByteArray &changed);

    QByteArray bytes;
    QList<Entry> entries;
    bool hasSections = false;
};
