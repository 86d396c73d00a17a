#include "base/number_entry.h"

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kGroupDigits = 3;

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

bool IsApostrophe(QChar c)
{
    return c == u'\'' || c == u'\u2019';
}

// Keyboards have neither the blanks nor the apostrophe that some locales group with.
bool IsGroupMark(QChar c, QChar localeMark)
{
    return c == localeMark || (localeMark.isSpace() && c.isSpace())
        || (IsApostrophe(localeMark) && IsApostrophe(c));
}

QChar FirstOf(const QString &mark)
{
    return mark.isEmpty() ? QChar() : mark[0];
}

struct Marks
{
    QChar decimal; // besides the point
    QChar group;

    [[nodiscard]] bool IsDecimal(QChar c) const { return c == u'.' || c == decimal; }
    [[nodiscard]] bool IsGroup(QChar c) const { return IsGroupMark(c, group); }
};

// The digits of "1 234 567"; nothing unless each mark stands before a whole group of three. The first
// group is no lone zero.
std::optional<QString> WithoutGroups(const QString &whole, const Marks &marks)
{
    QString digits;
    qsizetype inGroup = 0;
    bool isGrouped = false;
    for (const QChar c : whole) {
        if (IsDigit(c)) {
            digits.append(c);
            ++inGroup;
            continue;
        }
        const bool endsGroup = isGrouped ? inGroup == kGroupDigits : inGroup <= kGroupDigits;
        if (!marks.IsGroup(c) || inGroup == 0 || !endsGroup || digits.startsWith(u'0')) {
            return std::nullopt;
        }
        isGrouped = true;
        inGroup = 0;
    }
    return isGrouped && inGroup != kGroupDigits ? std::nullopt : std::optional(digits);
}

// Where the decimal mark stands, the length when there is none. The last mark is the decimal one, unless
// it can only separate groups, as the second of two.
tl::expected<qsizetype, NumberFault> DecimalPlace(const QString &text, const Marks &marks)
{
    const auto isMark = [](QChar c) { return !IsDigit(c); };
    const auto last = std::find_if(text.rbegin(), text.rend(), isMark);
    if (last == text.rend() || !marks.IsDecimal(*last)) {
        return text.size();
    }
    const qsizetype place = std::distance(last, text.rend()) - 1;
    if (!marks.IsGroup(*last)) {
        return place;
    }
    if (text.count(*last) > 1) {
        return text.size();
    }
    if (WithoutGroups(text, marks)) {
        return tl::unexpected(NumberFault::Ambiguous);
    }
    return place;
}

struct Parts
{
    QString whole;
    QString decimals;
};

tl::expected<Parts, NumberFault> PartsOf(const QString &text, const Marks &marks)
{
    const auto place = DecimalPlace(text, marks);
    if (!place) {
        return tl::unexpected(place.error());
    }
    const auto whole = WithoutGroups(text.left(*place), marks);
    if (!whole) {
        return tl::unexpected(NumberFault::Unreadable);
    }
    Parts parts {*whole, text.mid(*place + 1)};
    const bool isNumber = std::ranges::all_of(std::as_const(parts.decimals), IsDigit)
        && !(parts.whole.isEmpty() && parts.decimals.isEmpty());
    if (!isNumber) {
        return tl::unexpected(NumberFault::Unreadable);
    }
    return parts;
}

} // namespace

tl::expected<double, NumberFault>
NumberFrom(const QString &typed, const NumberBounds &bounds, const QLocale &locale)
{
    const QString text = typed.trimmed();
    if (text.isEmpty()) {
        return tl::unexpected(NumberFault::Blank);
    }
    const auto parts =
        PartsOf(text, {FirstOf(locale.decimalPoint()), FirstOf(locale.groupSeparator())});
    if (!parts) {
        return tl::unexpected(parts.error());
    }
    if (parts->decimals.size() > bounds.decimals) {
        return tl::unexpected(bounds.decimals == 0 ? NumberFault::Unreadable
                                                   : NumberFault::TooPrecise);
    }
    bool fits = false; // a double can be too small for what was typed
    const double number = QString(parts->whole + u'.' + parts->decimals).toDouble(&fits);
    if (!fits || number < bounds.least || number > bounds.most) {
        return tl::unexpected(NumberFault::OutOfRange);
    }
    return number;
}
