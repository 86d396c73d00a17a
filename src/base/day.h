// Calendar days as the system counts with them, and today's date.
#pragma once

#include <QDate>
#include <QStringView>

// A day as it is bound to a statement. The simple arithmetic below can name a day that does not
// exist, such as 30 February; the database session then takes the next day that does.
struct Day
{
    int year = 0;
    int month = 0; // 1 to 12
    int day = 0; // 1 to 31

    bool operator==(const Day &) const = default;
};

[[nodiscard]] Day DayOf(QDate date);

// The day itself when it exists, else the next one that does (30 February 2026: 1 March 2026).
[[nodiscard]] QDate ExistingDate(Day day);

// The date that `text` begins with, in four, two and two digits with `separator` between them:
// 2026-11-21. Not valid when it begins with none. Cheap enough for every row of a list.
[[nodiscard]] QDate DateIn(QStringView text, QChar separator);

// For the purge and an account's history alone; reports go by the calendar. Kept simple on purpose: the
// day less 6, and below day 7 the day plus 24 in the month before. No
// year is borrowed (January goes to December of the same year) and no month's length is looked at.
[[nodiscard]] Day FirstDayOfLastWeek(QDate today);

// Likewise for those alone, and kept simple on purpose: the same day of the month before; January goes to December of the same
// year.
[[nodiscard]] Day FirstDayOfLastMonth(QDate today);

// Today's local date, or the one that a TodayOverride holds.
[[nodiscard]] QDate Today();

// Makes another day today for as long as it lives; overrides nest.
class TodayOverride
{
public:
    explicit TodayOverride(QDate today);
    ~TodayOverride();
    TodayOverride(const TodayOverride &) = delete;
    TodayOverride &operator=(const TodayOverride &) = delete;

private:
    QDate previous;
};
