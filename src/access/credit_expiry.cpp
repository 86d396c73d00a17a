#include "access/credit_expiry.h"

using namespace Qt::StringLiterals;

QDate CreditExpiry::LastDay() const
{
    return unlimited ? QDate() : QDate::fromString(day, u"yyyy.MM.dd"_s);
}

bool CreditExpiry::IsOver(QDate today) const
{
    const QDate last = LastDay();
    return last.isValid() && last < today;
}
