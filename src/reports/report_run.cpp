#include "reports/report_run.h"

void RunControl::Cancel()
{
    cancelled = true;
    const std::lock_guard lock(guard);
    if (onCancel) {
        onCancel();
    }
}

void RunControl::SetProgress(qint64 now, qint64 of)
{
    done = now;
    whole = of;
}

RunControl::Stopper::Stopper(RunControl &ofControl, std::function<void()> stop) : control(ofControl)
{
    const std::lock_guard lock(control.guard);
    control.onCancel = std::move(stop);
    if (control.cancelled) {
        control.onCancel();
    }
}

RunControl::Stopper::~Stopper()
{
    const std::lock_guard lock(control.guard);
    control.onCancel = nullptr;
}
