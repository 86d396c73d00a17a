#include "cli/plain_text.h"

#include <QChar>
#include <QList>

#include <clocale>
#include <cwchar>

using namespace Qt::StringLiterals;

namespace {

bool IsPlain(char32_t character)
{
    switch (QChar::category(character)) {
    case QChar::Other_Control:
    case QChar::Other_Format: // such as those that turn the direction of writing
    case QChar::Other_Surrogate:
    case QChar::Other_PrivateUse:
    case QChar::Other_NotAssigned:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

// As JSON spells it, too: one beyond 16 bits as its two halves.
QString Escaped(char32_t character)
{
    QString escaped;
    for (const char16_t unit : QChar::fromUcs4(character)) {
        escaped += u"\\u%1"_s.arg(uint {unit}, 4, 16, QChar(u'0'));
    }
    return escaped;
}

} // namespace

QString PlainText(const QString &text, bool keepsLines)
{
    QString plain;
    plain.reserve(text.size());
    for (const char32_t character : text.toUcs4()) {
        if (IsPlain(character) || (keepsLines && character == U'\n')) {
            plain += QChar::fromUcs4(character);
        } else {
            plain += Escaped(character);
        }
    }
    return plain;
}

// The letters are known by a locale of UTF-8, which the program's own need not be.
qsizetype TerminalWidth(const QString &text)
{
    static const locale_t letters = newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    const locale_t before = uselocale(letters); // null, were there none, leaves it as it is
    qsizetype width = 0;
    for (const char32_t character : text.toUcs4()) {
        width += qMax(0, wcwidth(static_cast<wchar_t>(character)));
    }
    uselocale(before);
    return width;
}
