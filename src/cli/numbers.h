// Numbers, words and texts in arguments. Numbers are read by one rule on every machine: digits with a point for the decimals,
// no separators, and a unit behind them or none.
#pragma once

#include "cli/stop.h"
#include "db/quantities.h"
#include "db/value_codes.h"

#include <QDate>
#include <QTime>

// "500", "500MB", "1.5GB", "2TB": megabytes unless a unit is given; a unit is 1024 of the next smaller.
[[nodiscard]] Or<double> MegabytesFrom(const QString &text);

// "2", "2h", "90min", "3d": hours unless a unit is given.
[[nodiscard]] Or<double> HoursFrom(const QString &text);

// The same for limits, which are whole numbers.
[[nodiscard]] Or<WholeMegabytes> TrafficLimitFrom(const QString &text);
[[nodiscard]] Or<WholeHours> TimeLimitFrom(const QString &text);

// Without a unit.
[[nodiscard]] Or<double> AmountOf(const QString &text);

// A text that is going to be stored as it is: one line, and no longer than the column. `what` begins the
// sentence that refuses another one, as "The full name".
[[nodiscard]] Or<QString> StorableText(const QString &text, const QString &what);

[[nodiscard]] Or<bool> FlagFrom(const QString &text); // "yes" or "no"
[[nodiscard]] Or<QDate> DateFrom(const QString &text); // "2026-12-31"
[[nodiscard]] Or<QTime> TimeOfDayFrom(const QString &text); // "8:30", "08:30" or "08:30:15"

// The days of the week, as they are stored: 1 is Monday. A number without a day is itself.
[[nodiscard]] Or<quint32> WeekdayFrom(const QString &word); // "monday"
[[nodiscard]] QString WeekdayWord(quint32 day);

// "allow" or "deny".
[[nodiscard]] Or<bool> AccessFrom(const QString &word);
[[nodiscard]] QString AccessWord(bool allows);

// The words of modes, as the find bar has them, and of periods.
[[nodiscard]] Or<AccountingMode> ModeFrom(const QString &word);
[[nodiscard]] QString WordOf(AccountingMode mode);
[[nodiscard]] Or<LimitPeriod> PeriodFrom(const QString &word);
[[nodiscard]] QString WordOf(LimitPeriod period);
