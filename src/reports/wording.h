// How a report's heading says what it was made on.
#pragma once

#include "reports/filter_choices.h"

// "all available", "2026-11-21", "2026-11-15 to 2026-11-21".
[[nodiscard]] QString PeriodInWords(const ReportPeriod &period);

// What really is in the table: "users anna, bert; groups Office", "all users but anna", or "all users and
// groups"; names beyond the first dozen are counted.
// A period as PeriodNamed() reads it: "previous calendar month".
[[nodiscard]] QString PeriodRuleInWords(const QString &name);
[[nodiscard]] QString FilterInWords(const FilterScope &users, const FilterScope &groups);

// What a person who has chosen so should know before the report is made: that it is of more than was
// chosen. Empty when it is not.
[[nodiscard]] QString UserFilterWarning(FilterEffect effect);
[[nodiscard]] QString GroupFilterWarning(FilterEffect effect);

// The two letters that stand for the language of the reports' texts, "en".
[[nodiscard]] QString LanguageOfTexts();
