// The embedded engine's driver lets every statement load a library into the program. This takes that
// right away again.
#pragma once

#include <vector>

// Sees the databases that SQLite opens on this thread while it lives. One at a time on a thread.
class ExtensionBan
{
public:
    ExtensionBan();
    ~ExtensionBan();
    ExtensionBan(const ExtensionBan &) = delete;
    ExtensionBan &operator=(const ExtensionBan &) = delete;

    // Forbids those that were opened to load anything, by statement or by function; to be called once
    // the driver has connected. False when none was seen or one would not be told.
    [[nodiscard]] bool Enforce() const;

private:
    std::vector<void *> opened;
};
