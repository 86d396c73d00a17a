#include "access/limits.h"

#include "db/session.h"
#include "db/value_codes.h"

namespace {

void ReadStored(const Owner &owner)
{
    static constexpr OwnerText kRead = {"SELECT traflim, timelim FROM users WHERE user_id = (?) ",
                                        "SELECT traflim FROM groups WHERE group_id = (?)"};
    RunQuery(kRead.For(owner), FetchMode::All, owner.id);
}

Limits ReadUserLimits(quint32 userId)
{
    RunQuery("SELECT trafperiod, traflim, timelim, own_price, trafprice FROM users "
             "WHERE user_id = (?) ",
             FetchMode::All,
             userId);
    return {.period = queryResult.Integer(1),
            .traffic = queryResult.Integer(2),
            .time = queryResult.Integer(3),
            .ownPrice = queryResult.Integer(4) != 0,
            .price = queryResult.Amount(5)};
}

Limits ReadGroupLimits(quint32 groupId)
{
    Limits limits;
    RunQuery(
        "SELECT trafperiod, traflim FROM groups WHERE group_id = (?)", FetchMode::All, groupId);
    limits.period = queryResult.Integer(1);
    limits.traffic = queryResult.Integer(2);
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

LimitFields FieldsFor(quint32 accountingMode)
{
    switch (accountingMode) {
    case mode::kTraffic:
        return {.period = true, .traffic = true};
    case mode::kTime:
        return {.period = true, .time = true};
    case mode::kTrafficAndTime:
        return {.period = true, .traffic = true, .time = true};
    case mode::kProvider:
        return {.rates = true};
    default:
        return {};
    }
}

Limits ReadLimits(const Owner &owner)
{
    return owner.kind == Owner::Kind::User ? ReadUserLimits(owner.id) : ReadGroupLimits(owner.id);
}

void StageTrafficLimit(const Owner &owner, quint32 megabytes, LimitsDraft &draft)
{
    ReadStored(owner);
    draft.trafficRaised = megabytes > queryResult.Integer(1);
    draft.traffic = megabytes;
}

void StageTimeLimit(const Owner &user, quint32 hours, LimitsDraft &draft)
{
    ReadStored(user);
    draft.timeRaised = hours > queryResult.Integer(2);
    draft.time = hours;
}
