// When a credit ends.
#pragma once

#include <QDate>
#include <QString>

struct CreditExpiry
{
    bool unlimited = true;
    QString day; // "%Y.%m.%d"; a text that is no day never passes

    [[nodiscard]] QDate LastDay() const; // not valid when it never ends
    [[nodiscard]] bool IsOver(QDate today) const; // the last day itself is not yet over
    bool operator==(const CreditExpiry &) const = default;
};
