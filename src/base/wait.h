// The one wait of the program: it paces what a person reads, and the window stays painted.
#pragma once

#include <functional>

// Waits `milliseconds` while timers and painting go on; keys and mouse are held back until it ends.
void PacedWait(int milliseconds);

// Replaces the wait for as long as it lives, so that a run takes no time or its waits are recorded.
class WaitOverride
{
public:
    explicit WaitOverride(std::function<void(int milliseconds)> wait);
    ~WaitOverride();
    WaitOverride(const WaitOverride &) = delete;
    WaitOverride &operator=(const WaitOverride &) = delete;

private:
    std::function<void(int)> previous;
};
