#include "base/wait.h"

#include <QEventLoop>
#include <QTimer>

#include <utility>

namespace {

std::function<void(int)> &Override()
{
    static std::function<void(int)> wait;
    return wait;
}

} // namespace

void PacedWait(int milliseconds)
{
    if (Override()) {
        Override()(milliseconds);
        return;
    }
    QEventLoop loop;
    QTimer::singleShot(milliseconds, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec(QEventLoop::ExcludeUserInputEvents);
}

WaitOverride::WaitOverride(std::function<void(int)> wait)
    : previous(std::exchange(Override(), std::move(wait)))
{ }

WaitOverride::~WaitOverride()
{
    Override() = std::move(previous);
}
