#include "base/moment_entry.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeastYear = 1000;
constexpr int kThisCentury = 2000;

bool IsDigit(QChar c)
{
    return c >= u'0' && c <= u'9';
}

// "31. 12. 2025" as numbers with the mark between them; no mark unless it is one and the same.
struct Numbers
{
    QStringList parts;
    QChar mark;
};

std::optional<Numbers> NumbersIn(const QString &text)
{
    const auto first = std::ranges::find_if_not(text, IsDigit);
    if (first == text.end()) {
        return std::nullopt;
    }
    Numbers numbers {text.split(*first), *first};
    for (QString &part : numbers.parts) {
        part = part.trimmed();
        if (part.isEmpty() || !std::ranges::all_of(std::as_const(part), IsDigit)) {
            return std::nullopt;
        }
    }
    return numbers;
}

std::optional<QDate> Existing(const QString &year, const QString &month, const QString &day)
{
    const bool isShort = year.size() == 2;
    if ((!isShort && year.size() != 4) || month.size() > 2 || day.size() > 2) {
        return std::nullopt;
    }
    const int number = year.toInt() + (isShort ? kThisCentury : 0);
    const QDate date(number, month.toInt(), day.toInt());
    return date.isValid() && number >= kLeastYear ? std::optional(date) : std::nullopt;
}

// Whether the locale's short form has this mark, and the day before the month.
bool Writes(const QLocale &locale, QChar mark)
{
    return locale.dateFormat(QLocale::ShortFormat).contains(mark);
}

bool WritesDayFirst(const QLocale &locale)
{
    const QString format = locale.dateFormat(QLocale::ShortFormat);
    return format.indexOf(u'd') < format.indexOf(u'M');
}

std::optional<QDate> DayFromNumbers(const Numbers &numbers, const QLocale &locale)
{
    const QStringList &parts = numbers.parts;
    const bool isMark = numbers.mark == u'-' || numbers.mark == u'.' || numbers.mark == u'/';
    if (parts.size() != 3 || !isMark) {
        return std::nullopt;
    }
    if (parts[0].size() == 4) {
        return Existing(parts[0], parts[1], parts[2]);
    }
    if (numbers.mark != u'.' && !Writes(locale, numbers.mark)) {
        return std::nullopt;
    }
    const bool dayFirst = numbers.mark == u'.' || WritesDayFirst(locale);
    return dayFirst ? Existing(parts[2], parts[1], parts[0])
                    : Existing(parts[2], parts[0], parts[1]);
}

} // namespace

std::optional<QDate> DayFrom(const QString &typed, const QLocale &locale)
{
    const QString text = typed.trimmed();
    if (const auto numbers = NumbersIn(text)) {
        return DayFromNumbers(*numbers, locale);
    }
    const QDate named = locale.toDate(text, QLocale::ShortFormat); // a month by its name
    return named.isValid() && named.year() >= kLeastYear ? std::optional(named) : std::nullopt;
}

std::optional<QTime> TimeFrom(const QString &typed, const QLocale &locale)
{
    const QString text = typed.trimmed();
    const auto numbers = NumbersIn(text);
    if (!numbers) {
        const QTime shortTime = locale.toTime(text, QLocale::ShortFormat);
        return shortTime.isValid() ? std::optional(shortTime) : std::nullopt;
    }
    const QStringList &parts = numbers->parts;
    const bool isTime = (numbers->mark == u':' || numbers->mark == u'.')
        && (parts.size() == 2 || parts.size() == 3) && parts[0].size() <= 2
        && std::all_of(parts.begin() + 1, parts.end(), [](const QString &part) {
                            return part.size() == 2;
                        });
    const QTime time =
        isTime ? QTime(parts[0].toInt(), parts[1].toInt(), parts.value(2).toInt()) : QTime();
    return time.isValid() ? std::optional(time) : std::nullopt;
}
