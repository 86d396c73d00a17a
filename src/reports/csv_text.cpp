#include "reports/csv_text.h"

using namespace Qt::StringLiterals;

namespace {

constexpr QChar kGuard = u'\'';

// A spreadsheet takes such a text for a formula, and blanks before it do not stop it.
bool IsFormula(const QString &text)
{
    const QString start = text.trimmed().left(1);
    return !start.isEmpty() && u"=+-@"_s.contains(start);
}

bool IsGuarded(const QString &text)
{
    const QString guarded = text.mid(1);
    return text.startsWith(kGuard) && (IsFormula(guarded) || guarded.startsWith(kGuard));
}

} // namespace

QString GuardedText(const QString &text)
{
    return IsFormula(text) || IsGuarded(text) ? kGuard + text : text;
}

QString CsvField(const QString &text, bool isText)
{
    QString field = isText ? GuardedText(text) : text;
    const bool plain = !field.contains(u',') && !field.contains(u'"') && !field.contains(u'\n')
        && !field.contains(u'\r') && field == field.trimmed();
    return plain ? field : u'"' + field.replace(u'"', u"\"\""_s) + u'"';
}

QString TextOfCsvField(const QString &field)
{
    return IsGuarded(field) ? field.mid(1) : field;
}
