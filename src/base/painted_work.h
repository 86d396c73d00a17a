// Long work that must not freeze the window.
#pragma once

#include <functional>

// Runs `work` beside the window and returns when it is done: the window goes on being painted, keys
// and mouse are held back, and nobody else uses what the work uses - the database session, as a
// rule. What a timer would do must wait: see IsWorkRunning.
void RunPainted(const std::function<void()> &work);

// True while RunPainted runs; a timer's handler that needs the database then does nothing.
[[nodiscard]] bool IsWorkRunning();
