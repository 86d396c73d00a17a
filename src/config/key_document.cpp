#include "config/key_document.h"

#include <QRegularExpression>

#include <algorithm>
#include <limits>
#include <string_view>
#include <toml++/toml.h>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr auto kByteOrderMark = "\xEF\xBB\xBF";

bool ContinuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

// Positions count lines and characters, both from 1.
qsizetype OffsetOf(const QByteArray &bytes, const toml::source_position &position)
{
    qsizetype offset = 0;
    for (toml::source_index line = 1; line < position.line; ++line) {
        offset = bytes.indexOf('\n', offset) + 1;
    }
    for (toml::source_index column = 1; column < position.column; ++column) {
        do {
            ++offset;
        } while (offset < bytes.size() && ContinuesCharacter(bytes[offset]));
    }
    return offset;
}

QString TextOf(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

std::variant<std::monostate, QString, quint32> ValueOf(const toml::node &node)
{
    if (const auto *text = node.as_string()) {
        return TextOf(text->get());
    }
    if (const auto *number = node.as_integer()) {
        if (number->get() >= 0 && number->get() <= std::numeric_limits<quint32>::max()) {
            return static_cast<quint32>(number->get());
        }
    }
    return {};
}

QByteArray Quoted(const QString &text)
{
    QByteArray literal = "\"";
    for (const char byte : text.toUtf8()) {
        if (byte == '"' || byte == '\\') {
            literal += '\\';
            literal += byte;
        } else if (static_cast<unsigned char>(byte) < 0x20U || byte == 0x7F) {
            literal += "\\u" + QByteArray::number(byte, 16).rightJustified(4, '0');
        } else {
            literal += byte;
        }
    }
    return literal + '"';
}

bool IsBareName(const QString &name)
{
    return !name.isEmpty() && std::all_of(name.cbegin(), name.cend(), [](QChar c) {
        return (c.unicode() < 0x80 && c.isLetterOrNumber()) || c == u'_' || c == u'-';
    });
}

// The parser quotes what it read, and that may be a part of a password.
QString WithoutValues(QString problem)
{
    static const QRegularExpression quoted(u", saw .*|'[^']*' (?=is not representable)"_s,
                                           QRegularExpression::DotMatchesEverythingOption);
    return problem.remove(quoted);
}

} // namespace

tl::expected<KeyDocument, KeyDocument::Damage> KeyDocument::From(const QByteArray &text)
{
    KeyDocument document;
    document.bytes = text.startsWith(kByteOrderMark) ? text.mid(3) : text;
    try {
        const toml::table table = toml::parse(document.bytes.toStdString());
        for (const auto &[key, node] : table) {
            if (node.is_table() || node.is_array_of_tables()) {
                document.hasSections = true;
                continue;
            }
            document.entries.append({TextOf(key.str()),
                                     OffsetOf(document.bytes, key.source().begin),
                                     OffsetOf(document.bytes, node.source().begin),
                                     OffsetOf(document.bytes, node.source().end),
                                     ValueOf(node)});
        }
    } catch (const toml::parse_error &error) {
        return tl::unexpected(Damage {static_cast<int>(error.source().begin.line),
                                      WithoutValues(TextOf(error.description()))});
    }
    return document;
}

const KeyDocument::Entry *KeyDocument::Find(const QString &name) const
{
    const auto entry = std::find_if(entries.cbegin(), entries.cend(), [&name](const Entry &e) {
        return e.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    return entry == entries.cend() ? nullptr : &*entry;
}

std::optional<QString> KeyDocument::Text(const QString &name) const
{
    const Entry *entry = Find(name);
    const QString *text = entry ? std::get_if<QString>(&entry->value) : nullptr;
    return text ? std::optional(*text) : std::nullopt;
}

std::optional<quint32> KeyDocument::Number(const QString &name) const
{
    const Entry *entry = Find(name);
    const quint32 *number = entry ? std::get_if<quint32>(&entry->value) : nullptr;
    return number ? std::optional(*number) : std::nullopt;
}

bool KeyDocument::SetText(const QString &name, const QString &text)
{
    KeyDocument before = *this;
    const bool taken = Set(name, Quoted(text)) && Text(name) == text;
    if (!taken) {
        *this = std::move(before);
    }
    return taken;
}

bool KeyDocument::SetNumber(const QString &name, quint32 number)
{
    return Set(name, "0x" + QByteArray::number(number, 16).toUpper().rightJustified(8, '0'));
}

bool KeyDocument::Set(const QString &name, const QByteArray &literal)
{
    QByteArray changed = bytes;
    if (const Entry *entry = Find(name)) {
        changed.replace(entry->valueBegin, entry->valueEnd - entry->valueBegin, literal);
        return Replace(changed);
    }
    const QByteArray line =
        (IsBareName(name) ? name.toUtf8() : Quoted(name)) + " = " + literal + '\n';
    if (hasSections) {
        return Replace(line + bytes); // what follows a section's heading would belong to it
    }
    if (!changed.isEmpty() && !changed.endsWith('\n')) {
        changed += '\n';
    }
    return Replace(changed + line);
}

bool KeyDocument::Remove(const QString &name)
{
    bool removed = false;
    while (const Entry *entry = Find(name)) { // a file written by hand may hold several spellings
        const qsizetype begin = bytes.lastIndexOf('\n', entry->nameBegin) + 1;
        const qsizetype lineEnd = bytes.indexOf('\n', entry->valueEnd);
        const qsizetype end = lineEnd < 0 ? bytes.size() : lineEnd + 1;
        if (!Replace(QByteArray(bytes).remove(begin, end - begin))) {
            return false;
        }
        removed = true;
    }
    return removed;
}

bool KeyDocument::Replace(const QByteArray &changed)
{
    auto document = From(changed);
    if (!document) {
        return false;
    }
    *this = *std::move(document);
    return true;
}
