#include "access/many_users.h"

#include "access/limits.h"
#include "db/session.h"

ModeAndLimits ReadModeAndLimits(UserId userId)
{
    const auto mode = ModeOf(userId).value_or(AccountingMode::NoControl);
    const Limits limits = ReadLimits(userId);
    return {.mode = mode, .traffic = limits.traffic, .time = limits.time, .period = limits.period};
}

QStringList NamesOfUsers(std::vector<UserId> &userIds)
{
    QStringList names;
    std::erase_if(userIds, [&names](UserId userId) {
        const auto name = NameOf(userId);
        if (name) {
            names << *name;
        }
        return !name;
    });
    return names;
}

void SetModeAndLimits(const std::vector<UserId> &userIds,
                      const ModeAndLimits &values,
                      const std::function<void(int done)> &progress)
{
    int done = 0;
    for (const UserId userId : userIds) {
        Execute("UPDATE users SET mode = (?), traflim = (?), timelim=(?), trafperiod = (?), "
                "timeperiod = (?) WHERE user_id = (?)",
                values.mode,
                values.traffic,
                values.time,
                values.period,
                values.period,
                userId);
        progress(++done);
    }
}
