#include "config/key_values.h"

#include "base/text.h"

using namespace Qt::StringLiterals;

namespace {

QString NameOf(const TextValue &value)
{
    return QString::fromLatin1(value.name);
}

QString NameOf(const NumberFamily &family, int index)
{
    return QString::fromLatin1(family.prefix) + QString::number(index);
}

} // namespace

std::optional<QString> KeyReader::ReadText(const TextValue &value, qsizetype bufferBytes) const
{
    Q_ASSERT(value.key == key);
    auto text = document.Text(NameOf(value));
    const bool fits = text && text->toUtf8().size() < bufferBytes;
    return fits ? text : std::nullopt;
}

bool KeyReader::IsOfAnotherKind(const TextValue &value) const
{
    Q_ASSERT(value.key == key);
    return document.Holds(NameOf(value)) && !document.Text(NameOf(value));
}

bool KeyReader::IsOfAnotherKind(const NumberFamily &family, int index) const
{
    return document.Holds(NameOf(family, index)) && !ReadNumber(family, index);
}

qint32 KeyReader::ReadInteger(const TextValue &value, qsizetype bufferBytes) const
{
    return IntegerFrom(ReadText(value, bufferBytes).value_or(QString()));
}

double KeyReader::ReadAmount(const TextValue &value, qsizetype bufferBytes) const
{
    return AmountFrom(ReadText(value, bufferBytes).value_or(QString()));
}

std::optional<quint32> KeyReader::ReadNumber(const NumberFamily &family, int index) const
{
    Q_ASSERT(family.key == key);
    return document.Number(NameOf(family, index));
}

bool KeyEditor::Has(const TextValue &value) const
{
    Q_ASSERT(value.key == key);
    return document.Text(NameOf(value)).has_value();
}

bool KeyEditor::Has(const NumberFamily &family, int index) const
{
    Q_ASSERT(family.key == key);
    return document.Number(NameOf(family, index)).has_value();
}

void KeyEditor::WriteText(const TextValue &value, const QString &text)
{
    Q_ASSERT(value.key == key);
    Note(NameOf(value), document.SetText(NameOf(value), text));
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
    Q_ASSERT(family.key == key);
    Note(NameOf(family, index), document.SetNumber(NameOf(family, index), number));
}

bool KeyEditor::DeleteNumber(const NumberFamily &family, int index)
{
    Q_ASSERT(family.key == key);
    const QString name = NameOf(family, index);
    const bool removed = document.Remove(name);
    Note(name, removed || !document.Holds(name));
    return removed;
}

void KeyEditor::Note(const QString &name, bool taken)
{
    if (!taken && refusedName.isEmpty()) {
        refusedName = name;
    }
}
