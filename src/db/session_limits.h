// How long the database may keep the console waiting.
#pragma once

#include <chrono>

struct SessionLimits
{
    using Milliseconds = std::chrono::milliseconds;

    Milliseconds connect {10000}; // until a host that a connection is being opened to is given up
    Milliseconds answer {30000}; // until a statement that nobody waits for patiently is given up
    Milliseconds lock {5000}; // until rows or a database that others hold are given up
    Milliseconds conflict {10000}; // for running a transaction again that lost against another one
    Milliseconds cancel {1000}; // from a cancel until the cancelled call is given up
    // Between two tries to open a lost connection: each pause is double the one before.
    Milliseconds firstPause {500};
    Milliseconds longestPause {30000};
};

// The limits of every session of the process. They are set once, before the first one is opened.
[[nodiscard]] const SessionLimits &Limits();
void SetLimits(const SessionLimits &limits);
