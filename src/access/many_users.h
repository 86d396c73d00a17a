// Mode and limits for several users at once.
#pragma once

#include "access/limits.h"
#include "actions/action.h"

#include <QString>

#include <memory>
#include <vector>

// What is not set stays as each user has it, and so does what the mode does not use.
struct ModeAndLimits
{
    AccountingMode mode = AccountingMode::NoControl;
    std::optional<WholeMegabytes> traffic = {};
    std::optional<WholeHours> time = {};
    std::optional<LimitPeriod> period = {}; // of both limits
};

struct NamedUser
{
    UserId userId;
    QString name;

    bool operator==(const NamedUser &) const = default;
};

// As the user has them, everything set; nothing when the user is gone.
[[nodiscard]] Result<std::optional<ModeAndLimits>> ReadModeAndLimits(UserId userId);

// The users' names, in the order given, without those that are gone.
[[nodiscard]] Result<std::vector<NamedUser>> NamesOfUsers(const std::vector<UserId> &userIds);

// What a user's row is to hold in place of `own`. In the modes that have a limit the chosen period is
// that of both limits.
[[nodiscard]] Limits LimitsFor(const ModeAndLimits &values, const Limits &own);

// One statement a user. Users that are gone are left out; refused when none is left. `written`
// receives how many there were, unless it is null.
[[nodiscard]] Action SetModeAndLimitsAction(const std::vector<UserId> &userIds,
                                            const ModeAndLimits &values,
                                            const std::shared_ptr<size_t> &written = {});
