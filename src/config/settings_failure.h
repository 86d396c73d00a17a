// Why settings could not be read or written: a value, for whoever asked for it to tell.
#pragma once

#include <QString>

#include <tl/expected.hpp>

struct SettingsFailure
{
    QString file; // with its full path
    int line = 0; // the damaged line, from 1; 0 when no line is to blame
    QString reason; // said of the file, as in "cannot be written: No space left on device"

    bool operator==(const SettingsFailure &other) const = default;
};

using SettingsResult = tl::expected<void, SettingsFailure>;

// One sentence for a person, with the file, the line and the reason. It never holds a value: one of
// them is a password.
[[nodiscard]] QString TextOf(const SettingsFailure &failure);
