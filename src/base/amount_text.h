// Amounts of money, megabytes and hours as the windows write them: with the decimal mark of the locale and
// without group separators, so that what is shown in a field can be typed there (base/number_entry.h).
#pragma once

#include <QLocale>
#include <QString>

// Two decimals, as "%.2f"; never "-0.00".
[[nodiscard]] QString AmountText(double amount, const QLocale &locale = QLocale());

// So many decimals; as many as the number has for QLocale::FloatingPointShortest.
[[nodiscard]] QString DecimalText(double amount, int decimals, const QLocale &locale = QLocale());

// At most `digits` significant digits, without an exponent and without closing zeros: 12346 becomes
// "12350" with four of them, 0.50 "0.5".
[[nodiscard]] QString SignificantText(double amount, int digits, const QLocale &locale = QLocale());
