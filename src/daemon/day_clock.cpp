#include "daemon/day_clock.h"

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QDateTime MidnightAfter(QDate day)
{
    return day.addDays(1).startOfDay();
}

} // namespace

DayClock::DayClock(WallClock now) : wallClock(std::move(now))
{
    timer.setSingleShot(true);
    timer.setTimerType(Qt::PreciseTimer);
    connect(&timer, &QTimer::timeout, this, &DayClock::EndDay);
}

void DayClock::Start()
{
    const QDateTime now = Now();
    day = now.date();
    timer.start(now.msecsTo(MidnightAfter(day)));
}

void DayClock::EndDay()
{
    const QDateTime midnight = MidnightAfter(day);
    const QDateTime now = Now();
    if (now < midnight) { // the timer was early, or the clock was set back
        timer.start(now.msecsTo(midnight));
        return;
    }
    day = now.date();
    timer.start(now.msecsTo(MidnightAfter(day)));
    emit DayEnded(day.startOfDay());
}

QString DayClock::Check()
{
    const QDate today = Now().date();
    if (today > day) {
        EndDay();
        return {};
    }
    return today < day
        ? u"The clock was set back from %1 to %2: what is counted now goes to %2."_s.arg(
            day.toString(Qt::ISODate), today.toString(Qt::ISODate))
        : QString();
}
