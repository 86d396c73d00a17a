// When a saved report is made by itself, and the timer of the service manager that does it.
#pragma once

#include <QString>
#include <QTime>

struct ReportSchedule
{
    enum class Every { Never, Day, Week, Month };

    static constexpr int kLastDayOfMonth = 28; // the last one that each month has

    Every every = Every::Never;
    int day = 1; // of a week: 1 is Monday, 7 Sunday; of a month: 1 to kLastDayOfMonth
    QTime at {2, 15}; // local time, in whole seconds

    [[nodiscard]] bool IsSet() const { return every != Every::Never; }
    bool operator==(const ReportSchedule &) const = default;
};

// "02:15", with its seconds if there are any.
[[nodiscard]] QString TimeText(QTime time);

// As a timer's OnCalendar= says it: "Mon *-*-* 02:15:00". Empty for never.
[[nodiscard]] QString CalendarText(const ReportSchedule &schedule);

// In words, in the language of the program.
[[nodiscard]] QString InWords(const ReportSchedule &schedule);

// The timer's name with its ending. The unit that it starts has the same one, ending in ".service".
[[nodiscard]] QString TimerUnit(const QString &reportName);
[[nodiscard]] QString ServiceUnit(const QString &reportName);

// What the timer's file holds. `reportName` is one that NameProblem() finds nothing wrong with
// (saved_report.h).
[[nodiscard]] QString TimerText(const QString &reportName, const ReportSchedule &schedule);
