#include "access/many_users.h"

#include "access/limits.h"
#include "db/session.h"

ModeAndLimits ReadModeAndLimits(quint32 userId)
{
    RunQuery("SELECT mode FROM users WHERE user_id = (?)", FetchMode::All, userId);
    const quint32 mode = queryResult.Integer(1);
    const Limits limits = ReadLimits({Owner::Kind::User, userId});
    return {.mode = mode, .traffic = limits.traffic, .time = limits.time, .period = limits.period};
}

QStringList NamesOfUsers(std::vector<quint32> &userIds)
{
    QStringList names;
    std::erase_if(userIds, [&names](quint32 userId) {
        const bool gone =
            RunQuery("SELECT username FROM users WHERE user_id = (?)", FetchMode::One, userId)
            == kQueryNoData;
        if (!gone) {
            names << queryResult.Text(1);
        }
        return gone;
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
