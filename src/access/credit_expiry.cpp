#include "access/credit_expiry.h"

#include "base/day.h"

QDate CreditExpiry::LastDay() const
{
    return unlimited || day.size() != 10 ? QDate() : DateIn(day, u'.');
}

bool CreditExpiry::IsOver(QDate today) const
{
    const QDate last = LastDay();
    return last.isValid() && last < today;
}
