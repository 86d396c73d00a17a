#include "base/amount_text.h"

#include <QLocale>

#include <cmath>

using namespace Qt::StringLiterals;

QString AmountText(double amount)
{
    const QString text = QString::number(amount, 'f', 2);
    return text == u"-0.00"_s ? u"0.00"_s : text;
}

QString SignificantText(double amount, int digits)
{
    const double rounded = QString::number(amount, 'e', digits - 1).toDouble();
    return QString::number(rounded, 'f', QLocale::FloatingPointShortest);
}
