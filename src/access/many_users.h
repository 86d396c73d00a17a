// Mode and limits for several users at once.
#pragma once

#include "db/quantities.h"
#include "db/value_codes.h"

#include <QStringList>

#include <functional>
#include <vector>

struct ModeAndLimits
{
    AccountingMode mode = AccountingMode::NoControl;
    WholeMegabytes traffic;
    WholeHours time;
    LimitPeriod period = LimitPeriod::None; // of both limits
};

// As the user has them; the period is that of the traffic limit.
[[nodiscard]] ModeAndLimits ReadModeAndLimits(UserId userId);

// The users' names, in the order given. A user that is gone is left out of `userIds` too.
[[nodiscard]] QStringList NamesOfUsers(std::vector<UserId> &userIds);

// One statement a user; `progress` hears how many are done.
void SetModeAndLimits(const std::vector<UserId> &userIds,
                      const ModeAndLimits &values,
                      const std::function<void(int done)> &progress);
