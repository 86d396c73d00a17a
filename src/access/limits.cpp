#include "access/limits.h"

#include "db/session.h"

namespace {

void ReadStored(const Owner &owner)
{
    static constexpr OwnerText kRead = {"SELECT traflim, timelim FROM users WHERE user_id = (?) ",
                                        "SELECT traflim FROM groups WHERE group_id = (?)"};
    RunQuery(kRead.For(owner), FetchMode::All, owner.Number());
}

Limits ReadUserLimits(UserId userId)
{
    RunQuery("SELECT trafperiod, traflim, timelim, own_price, trafprice FROM users "
             "WHERE user_id = (?) ",
             FetchMode::All,
             userId);
    return {.period = queryResult.Code<LimitPeriod>(1),
            .traffic = WholeMegabytes {queryResult.Integer(2)},
            .time = WholeHours {queryResult.Integer(3)},
            .ownPrice = queryResult.Integer(4) != 0,
            .price = queryResult.Amount(5)};
}

Limits ReadGroupLimits(GroupId groupId)
{
    Limits limits;
    RunQuery(
        "SELECT trafperiod, traflim FROM groups WHERE group_id = (?)", FetchMode::All, groupId);
    limits.period = queryResult.Code<LimitPeriod>(1);
    limits.traffic = WholeMegabytes {queryResult.Integer(2)};
    RunQuery(
        "SELECT own_price, trafprice FROM groups WHERE group_id = (?)", FetchMode::All, groupId);
    limits.ownPrice = queryResult.Integer(1) != 0;
    limits.price = queryResult.Amount(2);
    return limits;
}

} // namespace

Limits LimitsDraft::Staged() const
{
    return {.period = period.value_or(stored.period),
            .traffic = traffic.value_or(stored.traffic),
            .time = time.value_or(stored.time),
            .ownPrice = ownPrice.value_or(stored.ownPrice),
            .price = price.value_or(stored.price)};
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

Limits ReadLimits(const Owner &owner)
{
    return owner.IsUser() ? ReadUserLimits(owner.User()) : ReadGroupLimits(owner.Group());
}

void StageTrafficLimit(const Owner &owner, WholeMegabytes limit, LimitsDraft &draft)
{
    ReadStored(owner);
    draft.trafficRaised = limit > WholeMegabytes {queryResult.Integer(1)};
    draft.traffic = limit;
}

void StageTimeLimit(UserId userId, WholeHours limit, LimitsDraft &draft)
{
    ReadStored(userId);
    draft.timeRaised = limit > WholeHours {queryResult.Integer(2)};
    draft.time = limit;
}
