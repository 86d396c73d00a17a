// Numbers, words and texts in arguments. Numbers are read by one rule on every machine: digits with a point for the decimals,
// no separators, and a unit behind them or none.
#pragma once

#include "cli/stop.h"
#include "db/quantities.h"
#include "db/value_codes.h"

#include <QDate>

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

// The words of modes, as the find bar has them, and of periods.
[[nodiscard]] Or<AccountingMode> ModeFrom(const QString &word);
[[nodiscard]] QString WordOf(AccountingMode mode);
[[nodiscard]] Or<LimitPeriod> PeriodFrom(const QString &word);
[[nodiscard]] QString WordOf(LimitPeriod period);
