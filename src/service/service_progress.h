// What the progress window of a start, a stop or a reconnect shows, step by step.
#pragma once

#include <QString>

// Sent to the window under these codes.
enum class ProgressStep {
    TryStart = 1,
    Started = 2,
    StartFailed = 3,
    TryConnect = 4,
    Connected = 5,
    ConnectFailed = 6,
    Tick = 7, // one more poll while waiting
    Finished = 8, // whatever the outcome
    Failed = 9,
    TryStop = 10,
    Stopped = 11,
    StopFailed = 12,
};

struct ServiceProgress
{
    ServiceProgress();

    QString text;
    int total = 0; // percent

    // Adds what the step adds and shows its text, if it has one; an unknown code changes nothing.
    void Take(ProgressStep step);
};
