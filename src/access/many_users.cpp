#include "access/many_users.h"

#include "access/limits.h"
#include "db/session.h"

ModeAndLimits ReadModeAndLimits(quint32 userId)
{
    const quint32 mode = ModeOf(UserOwner(userId)).value_or(0);
    const Limits limits = ReadLimits(UserOwner(userId));
    return {.mode = mode, .traffic = limits.traffic, .time = limits.time, .period = limits.period};
}

QStringList NamesOfUsers(std::vector<quint32> &userIds)
{
    QStringList names;
    std::erase_if(userIds, [&names](quint32 userId) {
        const auto name = NameOf(UserOwner(userId));
        if (name) {
            names << *name;
        }
        return !name;
    });
    return names;
}

void SetModeAndLimits(const std::vector<quint32> &userIds,
                      const ModeAndLimits &values,
                      const std::function<void(int done)> &progress)
{
    int done = 0;
    for (const quint32 userId : userIds) {
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
