// Amounts of money, megabytes and hours as the windows write them.
#pragma once

#include <QString>

// Two decimals after a point, as "%.2f"; never "-0.00".
[[nodiscard]] QString AmountText(double amount);

// At most `digits` significant digits, without an exponent and without closing zeros: 12346 becomes
// "12350" with four of them, 0.50 "0.5".
[[nodiscard]] QString SignificantText(double amount, int digits);
