#include "base/day.h"

#include <utility>

namespace {

QDate overriddenToday;

int MonthBefore(int month)
{
    return month == 1 ? 12 : month - 1;
}

// 0, which is no year, month or day, when one of them is no digit.
int NumberOf(QStringView digits)
{
    int number = 0;
    for (const QChar digit : digits) {
        if (digit < u'0' || digit > u'9') {
            return 0;
        }
        number = number * 10 + digit.digitValue();
    }
    return number;
}

} // namespace

Day DayOf(QDate date)
{
    return {date.year(), date.month(), date.day()};
}

QDate ExistingDate(Day day)
{
    const QDate exact(day.year, day.month, day.day);
    return exact.isValid() ? exact : QDate(day.year, day.month, 1).addMonths(1);
}

QDate DateIn(QStringView text, QChar separator)
{
    if (text.size() < 10 || text[4] != separator || text[7] != separator) {
        return {};
    }
    return {NumberOf(text.first(4)), NumberOf(text.sliced(5, 2)), NumberOf(text.sliced(8, 2))};
}

Day FirstDayOfLastWeek(QDate today)
{
    if (today.day() >= 7) {
        return {today.year(), today.month(), today.day() - 6};
    }
    return {today.year(), MonthBefore(today.month()), today.day() + 24};
}

Day FirstDayOfLastMonth(QDate today)
{
    return {today.year(), MonthBefore(today.month()), today.day()};
}

QDate Today()
{
    return overriddenToday.isValid() ? overriddenToday : QDate::currentDate();
}

TodayOverride::TodayOverride(QDate today) : previous(std::exchange(overriddenToday, today)) { }

TodayOverride::~TodayOverride()
{
    overriddenToday = previous;
}
