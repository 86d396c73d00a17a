// One time range of the week, as it is stored.
#pragma once

#include <QString>

struct TimeRange
{
    quint32 day = 0; // 1 Monday to 7 Sunday
    QString start;
    QString stop;

    bool operator==(const TimeRange &) const = default;
};
