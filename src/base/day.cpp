#include "base/day.h"

#include <utility>

namespace {

QDate overriddenToday;

int MonthBefore(int month)
{
    return month == 1 ? 12 : month - 1;
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
