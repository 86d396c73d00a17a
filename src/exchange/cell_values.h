// The words and numbers that cells hold: written by an export, read by an import.
#pragma once

#include "access/access_mode.h"
#include "db/value_codes.h"

#include <QLocale>
#include <QString>

#include <optional>

// As an export writes them.
[[nodiscard]] QString ModeWord(AccountingMode mode);
[[nodiscard]] QString PeriodWord(LimitPeriod period);
[[nodiscard]] QString FlagWord(bool on);
[[nodiscard]] QString GlobalPriceWord();
[[nodiscard]] QString UnlimitedWord();
[[nodiscard]] QString FigureOf(double number); // with a decimal point, as many decimals as it has

// In English or German; nothing for another word.
[[nodiscard]] std::optional<AccountingMode> ModeIn(const QString &word);
[[nodiscard]] std::optional<LimitPeriod> PeriodOf(const QString &word);
[[nodiscard]] std::optional<bool> FlagIn(const QString &word);
[[nodiscard]] bool IsGlobalPrice(const QString &word);
[[nodiscard]] bool IsUnlimited(const QString &word);

// How numbers are written where `separator` parts the cells: with a comma for the decimals where it
// does not part them. A point is understood everywhere.
[[nodiscard]] QLocale NumbersBeside(QChar separator);
