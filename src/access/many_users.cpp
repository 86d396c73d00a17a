#include "access/many_users.h"

#include "access/present_users.h"
#include "actions/action_run.h"

Result<std::optional<ModeAndLimits>> ReadModeAndLimits(UserId userId)
{
    const auto mode = ModeOf(userId);
    if (!mode) {
        return tl::unexpected(mode.error());
    }
    return ReadLimits(userId).map([&mode](const std::optional<Limits> &limits) {
        std::optional<ModeAndLimits> values;
        if (*mode && limits) {
            values = ModeAndLimits {.mode = **mode,
                                    .traffic = limits->traffic,
                                    .time = limits->time,
                                    .period = PeriodIn(**mode, *limits)};
        }
        return values;
    });
}

Result<std::vector<NamedUser>> NamesOfUsers(const std::vector<UserId> &userIds)
{
    std::vector<NamedUser> users;
    for (const UserId userId : userIds) {
        const auto name = NameOf(userId);
        if (!name) {
            return tl::unexpected(name.error());
        }
        if (*name) {
            users.push_back({userId, **name});
        }
    }
    return users;
}

Limits LimitsFor(const ModeAndLimits &values, const Limits &own)
{
    const LimitFields used = FieldsFor(values.mode);
    Limits limits = own;
    if (used.traffic) {
        limits.traffic = values.traffic.value_or(own.traffic);
    }
    if (used.time) {
        limits.time = values.time.value_or(own.time);
    }
    if (used.period) {
        limits.period = values.period.value_or(own.period);
        limits.timePeriod = values.period.value_or(own.timePeriod);
    }
    return limits;
}

Action SetModeAndLimitsAction(const std::vector<UserId> &userIds,
                              const ModeAndLimits &values,
                              const std::shared_ptr<size_t> &written)
{
    return {ActionId::SetModeAndLimits, [=](ActionRun &run) {
                LockUsers(run, userIds);
                std::vector<std::pair<UserId, Limits>> present;
                for (const UserId userId : userIds) {
                    if (const auto own = run.Take(ReadLimits(userId))) {
                        present.emplace_back(userId, LimitsFor(values, *own));
                    }
                    if (run.IsStopped()) {
                        return;
                    }
                }
                if (present.empty()) {
                    RefuseGoneUsers(run, userIds.size());
                }
                for (const auto &[userId, limits] : present) {
                    run.Write("UPDATE users SET mode = (?), traflim = (?), timelim=(?), "
                              "trafperiod = (?), timeperiod = (?) WHERE user_id = (?)",
                              values.mode,
                              limits.traffic,
                              limits.time,
                              limits.period,
                              limits.timePeriod,
                              userId);
                }
                if (written) {
                    *written = present.size();
                }
            }};
}
