// How a report's heading says what it was made on.
#pragma once

#include "reports/selection.h"

#include <QStringList>

// "all available", "2026-11-21", "2026-11-15 to 2026-11-21".
[[nodiscard]] QString PeriodInWords(const ReportPeriod &period);

// "users anna, bert; groups Office", or "all users and groups"; names beyond the first dozen are
// counted.
[[nodiscard]] QString FilterInWords(const QStringList &users, const QStringList &groups);

// The two letters that stand for the language of the reports' texts, "en".
[[nodiscard]] QString LanguageOfTexts();
