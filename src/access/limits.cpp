#include "access/limits.h"

#include "access/load_steps.h"
#include "db/query.h"

namespace {

struct UserLimits
{
    UserId userId;
    Limits limits;
};

struct GroupLimits
{
    GroupId groupId;
    Limits limits;
};

Result<bool> ReadUserRow(UserLimits &owner)
{
    return TakeFound(ReadOne(
                         "SELECT trafperiod, traflim, timelim, own_price, trafprice FROM users "
                         "WHERE user_id = (?) ",
                         [](const Row &row) {
                             return Limits {.period = row.Code<LimitPeriod>(1),
                                            .timePeriod = LimitPeriod::None,
                                            .traffic = WholeMegabytes {row.Integer(2)},
                                            .time = WholeHours {row.Integer(3)},
                                            .ownPrice = row.Integer(4) != 0,
                                            .price = row.Amount(5)};
                         },
                         owner.userId),
                     [&](const Limits &limits) { owner.limits = limits; });
}

Result<bool> ReadTimePeriod(UserLimits &owner)
{
    return TakeFound(ReadOne(
                         "SELECT timeperiod FROM users WHERE user_id = (?)",
                         [](const Row &row) { return row.Code<LimitPeriod>(1); },
                         owner.userId),
                     [&](LimitPeriod period) { owner.limits.timePeriod = period; });
}

Result<bool> ReadGroupLimit(GroupLimits &owner)
{
    return TakeFound(
        ReadOne(
            "SELECT trafperiod, traflim FROM groups WHERE group_id = (?)",
            [](const Row &row) {
                return std::pair {row.Code<LimitPeriod>(1), WholeMegabytes {row.Integer(2)}};
            },
            owner.groupId),
        [&](const auto &limit) {
            owner.limits.period = limit.first;
            owner.limits.traffic = limit.second;
        });
}

Result<bool> ReadGroupPrice(GroupLimits &owner)
{
    return TakeFound(ReadOne(
                         "SELECT own_price, trafprice FROM groups WHERE group_id = (?)",
                         [](const Row &row) {
                             return std::pair {row.Integer(1) != 0, row.Amount(2)};
                         },
                         owner.groupId),
                     [&](const auto &price) {
                         owner.limits.ownPrice = price.first;
                         owner.limits.price = price.second;
                     });
}

template <typename OwnerLimits>
Result<std::optional<Limits>> LimitsOf(const Result<std::optional<OwnerLimits>> &read)
{
    return read.map([](const std::optional<OwnerLimits> &owner) {
        return owner ? std::optional(owner->limits) : std::nullopt;
    });
}

} // namespace

LimitPeriod PeriodIn(AccountingMode mode, const Limits &limits)
{
    return mode == AccountingMode::Time ? limits.timePeriod : limits.period;
}

Limits LimitsDraft::Staged() const
{
    return {.period = period.value_or(stored.period),
            .timePeriod = period.value_or(stored.timePeriod),
            .traffic = traffic.value_or(stored.traffic),
            .time = time.value_or(stored.time),
            .ownPrice = ownPrice.value_or(stored.ownPrice),
            .price = price.value_or(stored.price)};
}

void LimitsDraft::TakeStored(const Limits &now)
{
    const Limits before = stored;
    stored = now;
    if (period) {
        stored.period = before.period;
        stored.timePeriod = before.timePeriod;
    }
    stored.traffic = traffic ? before.traffic : now.traffic;
    stored.time = time ? before.time : now.time;
    stored.ownPrice = ownPrice ? before.ownPrice : now.ownPrice;
    stored.price = price ? before.price : now.price;
}

LimitFields FieldsFor(AccountingMode mode)
{
    switch (mode) {
    case AccountingMode::Traffic:
        return {.period = true, .traffic = true};
    case AccountingMode::Time:
        return {.period = true, .time = true};
    case AccountingMode::TrafficAndTime:
        return {.period = true, .traffic = true, .time = true};
    case AccountingMode::Provider:
        return {.rates = true};
    default:
        return {};
    }
}

Result<std::optional<Limits>> ReadLimits(const Owner &owner)
{
    if (owner.IsUser()) {
        return LimitsOf(
            LoadBySteps(UserLimits {owner.User(), {}}, {&ReadUserRow, &ReadTimePeriod}));
    }
    return LimitsOf(
        LoadBySteps(GroupLimits {owner.Group(), {}}, {&ReadGroupLimit, &ReadGroupPrice}));
}
