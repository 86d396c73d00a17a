#include "base/amount_text.h"

#include <cmath>

using namespace Qt::StringLiterals;

namespace {

// The digits are those that can be typed, whatever digits the locale has.
QString Marked(QString text, const QLocale &locale)
{
    return text.replace(u'.', locale.decimalPoint());
}

} // namespace

QString AmountText(double amount, const QLocale &locale)
{
    const QString text = QString::number(amount, 'f', 2);
    return Marked(text == u"-0.00"_s ? u"0.00"_s : text, locale);
}

QString DecimalText(double amount, int decimals, const QLocale &locale)
{
    return Marked(QString::number(amount, 'f', decimals), locale);
}

QString SignificantText(double amount, int digits, const QLocale &locale)
{
    const double rounded = QString::number(amount, 'e', digits - 1).toDouble();
    return DecimalText(rounded, QLocale::FloatingPointShortest, locale);
}
