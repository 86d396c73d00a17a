#include "ui/main/service_watch.h"

ServiceWatch::ServiceWatch(const FrameDialogs &windows, QObject *parent)
    : QObject(parent)
    , dialogs(windows)
{ }

void ServiceWatch::Start(bool isRunning, bool isConnected)
{
    ShowService(isRunning);
    SetConnected(isConnected);
}

void ServiceWatch::Poll(const ServiceControl &control)
{
    const auto state = control.Query();
    ShowService(state.has_value() && state != ServiceControl::State::Stopped);
    if (!running) {
        emit ConnectionShown(false); // kept: the connected flag itself stays as it was
    }
}

void ServiceWatch::OpenControl(QWidget *window)
{
    if (!dialogs.serviceControl) {
        return;
    }
    const ControlOutcome outcome = dialogs.serviceControl(window);
    ShowService(outcome.serviceRunning);
    if (!outcome.serviceRunning || outcome.stopped) {
        SetConnected(false);
    }
}

void ServiceWatch::OpenReconnect(QWidget *window)
{
    if (!dialogs.reconnect) {
        return;
    }
    const ReconnectFlags outcome = dialogs.reconnect(window);
    SetConnected(outcome.connected);
    ShowService(outcome.serviceRunning);
}

void ServiceWatch::ShowService(bool nowRunning)
{
    running = nowRunning;
    emit ServiceShown(running);
}

void ServiceWatch::SetConnected(bool newConnected)
{
    connected = newConnected;
    emit ConnectionShown(connected);
}
