// The gateway's wall clock: when a day is over, and whether the clock was set.
#pragma once

#include <QDateTime>
#include <QObject>
#include <QTimer>

#include <functional>

class DayClock : public QObject
{
    Q_OBJECT

public:
    // What the time is, in the gateway's zone.
    using WallClock = std::function<QDateTime()>;

    explicit DayClock(WallClock now);

    [[nodiscard]] QDateTime Now() const { return wallClock(); }

    // From now on DayEnded tells of each midnight.
    void Start();
    void Stop() { timer.stop(); }

    // To be called now and then: a clock that was set forward over a midnight ends the day at once. Gives
    // what is to be told of one that was set back, or nothing.
    [[nodiscard]] QString Check();

signals:
    // `midnight`: where the last day that is over ended.
    void DayEnded(const QDateTime &midnight);

private:
    void EndDay();

    WallClock wallClock;
    QDate day; // whose end is still to come
    QTimer timer;
};
