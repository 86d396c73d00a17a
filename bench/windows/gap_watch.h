// How long the user-interface thread leaves everything else waiting.
#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QObject>
#include <QTimerEvent>

#include <algorithm>

// While it lives, the longest time in which the event loop did not come round to a timer: nothing
// is painted and nobody is answered in it.
class GapWatch : public QObject
{
public:
    // `beat` is the timer's, in milliseconds.
    explicit GapWatch(int beat)
    {
        timer.start(beat, Qt::PreciseTimer, this);
        sinceLast.start();
    }

    // In milliseconds, until now.
    [[nodiscard]] double Longest() const { return std::max(longest, SinceLast()); }

protected:
    void timerEvent(QTimerEvent * /*event*/) override
    {
        longest = Longest();
        sinceLast.restart();
    }

private:
    [[nodiscard]] double SinceLast() const
    {
        return 1e-6 * static_cast<double>(sinceLast.nsecsElapsed());
    }

    QBasicTimer timer;
    QElapsedTimer sinceLast;
    double longest = 0;
};
