// Mode and limits for several users at once.
#pragma once

#include <QStringList>

#include <functional>
#include <vector>

struct ModeAndLimits
{
    quint32 mode = 0; // db/value_codes.h
    quint32 traffic = 0; // megabytes
    quint32 time = 0; // hours
    quint32 period = 0; // of both limits
};

// As the user has them; the period is that of the traffic limit.
[[nodiscard]] ModeAndLimits ReadModeAndLimits(quint32 userId);

// The users' names, in the order given. A user that is gone is left out of `userIds` too.
[[nodiscard]] QStringList NamesOfUsers(std::vector<quint32> &userIds);

// One statement a user; `progress` hears how many are done.
void SetModeAndLimits(const std::vector<quint32> &userIds,
                      const ModeAndLimits &values,
                      const std::function<void(int done)> &progress);
