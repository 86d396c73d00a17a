// Starting, stopping and reconnecting, each paced so that a person can read every step.
#pragma once

#include "service/service_control.h"
#include "service/service_progress.h"

#include <functional>

// Hears of every step as it happens; a progress window shows it.
using StepSink = std::function<void(ProgressStep)>;

// Called between the step that tells the success and the wait after it, so that the dialog and its
// progress window agree.
using StateSink = std::function<void(bool running)>;

// Starts a service that does not run: false, with no step told, when it runs already. A service that
// needs longer than 300 polls, about half a minute, has failed to start.
bool StartService(const ServiceControl &control, const StepSink &step, const StateSink &changed);

// Stops a service that runs: false, with no step told, when it does not.
bool StopService(const ServiceControl &control, const StepSink &step, const StateSink &changed);

// What a reconnect attempt found; set and never cleared by it.
struct ReconnectFlags
{
    bool serviceRunning = false;
    bool connected = false;

    [[nodiscard]] bool Restored() const { return serviceRunning && connected; }
};

// Starts the service if it must, then calls `connect`, whose 0 means success.
void Reconnect(const ServiceControl &control,
               const StepSink &step,
               const std::function<int()> &connect,
               ReconnectFlags &flags);
