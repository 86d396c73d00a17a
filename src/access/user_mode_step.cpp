#include "access/user_mode_step.h"

#include "access/blocking.h"
#include "access/open_credit.h"
#include "access/usage_records.h"
#include "db/query.h"

#include <utility>

namespace {

struct StoredLimits
{
    WholeMegabytes traffic;
    WholeHours time;
};

StoredLimits ReadStored(ActionRun &run, UserId userId)
{
    return run
        .Take(ReadOne(
            "SELECT traflim, timelim FROM users WHERE user_id = (?) ",
            [](const Row &row) {
                return StoredLimits {WholeMegabytes {row.Integer(1)}, WholeHours {row.Integer(2)}};
            },
            userId))
        .value_or(StoredLimits {});
}

// A record that is not there has counted nothing.
template <typename Amount, typename RecordId>
Amount ReadUsed(ActionRun &run, const char *sqlText, RecordId record)
{
    return run
        .Take(ReadOne(
            sqlText, [](const Row &row) { return Amount {row.Amount(1)}; }, record))
        .value_or(Amount {});
}

// The reason is in column 3.
void ReadReason(ActionRun &run, const char *sqlText, UserId userId, BlockReason &reason)
{
    reason = run.Take(ReadOne(
                          sqlText, [](const Row &row) { return row.Code<BlockReason>(3); }, userId))
                 .value_or(reason);
}

void ReadTrafficUse(ActionRun &run, const UserPlan &plan, UserModeFacts &facts)
{
    auto &use = facts.traffic;
    ReadReason(run,
               "SELECT traflim, trafperiod, blockreason FROM users WHERE user_id = (?)",
               plan.userId,
               facts.reason);
    use.record = run.Take(FindUserTrafficRecord(plan.userId, UsagePeriodOf(plan.limits.period)));
    const auto used =
        ReadUsed<Megabytes>(run, "SELECT data FROM traffic_use WHERE traf_id = (?)", use.record);
    const bool openCredit = run.Take(HasOpenTrafficCredit(plan.userId));
    use.left = used < AmountOf(plan.limits.traffic) || openCredit;
}

// Kept: the traffic period is read here too.
void ReadTimeUse(ActionRun &run, const UserPlan &plan, UserModeFacts &facts)
{
    auto &use = facts.time;
    ReadReason(run,
               "SELECT timelim, trafperiod, blockreason FROM users WHERE user_id = (?)",
               plan.userId,
               facts.reason);
    use.record = run.Take(FindUserTimeRecord(plan.userId, UsagePeriodOf(plan.limits.timePeriod)));
    const auto used =
        ReadUsed<Hours>(run, "SELECT data FROM time_use WHERE time_id = (?)", use.record);
    const bool openCredit = run.Take(HasOpenTimeCredit(plan.userId));
    use.left = used < AmountOf(plan.limits.time) || openCredit;
}

// Where both are limited, either is read when the other one is raised.
void ReadLimitFacts(ActionRun &run, const UserPlan &plan, UserModeFacts &facts)
{
    const LimitFields fields = FieldsFor(plan.mode);
    const bool trafficTouched = fields.traffic && plan.trafficTouched;
    const bool timeTouched = fields.time && plan.timeTouched;
    if (!trafficTouched && !timeTouched) {
        return;
    }
    const StoredLimits stored = ReadStored(run, plan.userId);
    facts.traffic.raised = trafficTouched && plan.limits.traffic > stored.traffic;
    facts.time.raised = timeTouched && plan.limits.time > stored.time;
    if (facts.traffic.raised || facts.time.raised) {
        if (fields.traffic) {
            ReadTrafficUse(run, plan, facts);
        }
        if (fields.time) {
            ReadTimeUse(run, plan, facts);
        }
    }
}

void LiftBlock(ActionRun &run, UserId userId)
{
    run.Write("UPDATE users SET blocked = 0 WHERE user_id = (?)", userId);
    UnblockUser(run, userId);
}

void WriteTrafficLimit(ActionRun &run, const UserPlan &plan, const UserModeFacts &facts)
{
    if (facts.traffic.raised) {
        run.Write("UPDATE traffic_use SET blocked=false WHERE traf_id=(?)", facts.traffic.record);
        if (LiftsBlock(plan, facts)) {
            LiftBlock(run, plan.userId);
        }
    }
    run.Write("UPDATE users SET traflim = (?), trafperiod = (?) WHERE user_id = (?)",
              plan.limits.traffic,
              plan.limits.period,
              plan.userId);
}

void WriteTimeLimit(ActionRun &run, const UserPlan &plan, const UserModeFacts &facts)
{
    if (facts.time.raised) {
        run.Write("UPDATE time_use SET blocked=false WHERE time_id=(?)", facts.time.record);
        if (LiftsBlock(plan, facts)) {
            LiftBlock(run, plan.userId);
        }
    }
    run.Write("UPDATE users SET timelim = (?), timeperiod = (?) WHERE user_id = (?)",
              plan.limits.time,
              plan.limits.timePeriod,
              plan.userId);
}

void WriteNoControl(ActionRun &run, const UserPlan &plan, const UserModeFacts &facts)
{
    run.Write("UPDATE users SET mode = 0 WHERE user_id = (?)", plan.userId);
    if (LiftsBlock(plan, facts)) {
        UnblockUser(run, plan.userId);
    }
}

void WriteCreditAccount(ActionRun &run, const UserPlan &plan, const UserModeFacts &facts)
{
    run.Write("UPDATE users SET mode = 2 WHERE user_id = (?)", plan.userId);
    if (LiftsBlock(plan, facts)) {
        UnblockUser(run, plan.userId);
    }
    if (plan.limits.ownPrice) {
        run.Write("UPDATE users SET own_price = true WHERE user_id = (?)", plan.userId);
        run.Write(
            "UPDATE users SET trafprice = (?) WHERE user_id = (?)", plan.limits.price, plan.userId);
    } else {
        run.Write("UPDATE users SET own_price = false WHERE user_id = (?)", plan.userId);
    }
}

} // namespace

UserModeFacts ReadUserModeFacts(ActionRun &run, const UserPlan &plan)
{
    UserModeFacts facts;
    facts.reason = plan.blockNow.reason;
    if (plan.mode == AccountingMode::NoControl) {
        facts.reason = run.Take(ReadOne(
                                    "SELECT blockreason FROM users WHERE user_id = (?)",
                                    [](const Row &row) { return row.Code<BlockReason>(1); },
                                    plan.userId))
                           .value_or(facts.reason);
    } else if (plan.mode == AccountingMode::Provider) {
        facts.creditLeft = run.Take(HasCreditLeft(plan.userId));
    } else {
        ReadLimitFacts(run, plan, facts);
    }
    return facts;
}

bool LiftsBlock(const UserPlan &plan, const UserModeFacts &facts)
{
    if (!MayBeLifted({plan.blockNow.blocked, facts.reason})) {
        return false;
    }
    const bool raised = facts.traffic.raised || facts.time.raised;
    switch (plan.mode) {
    case AccountingMode::NoControl:
        return plan.modeChanged;
    case AccountingMode::Provider:
        return (plan.modeChanged || plan.creditStaged) && facts.creditLeft;
    case AccountingMode::Traffic:
        return raised && facts.traffic.left;
    case AccountingMode::Time:
        return raised && facts.time.left;
    case AccountingMode::TrafficAndTime:
        return raised && facts.traffic.left && facts.time.left;
    }
    return false;
}

void WriteUserMode(ActionRun &run, const UserPlan &plan, const UserModeFacts &facts)
{
    switch (plan.mode) {
    case AccountingMode::NoControl:
        WriteNoControl(run, plan, facts);
        break;
    case AccountingMode::Traffic:
        run.Write("UPDATE users SET mode = 1 WHERE user_id = (?)", plan.userId);
        WriteTrafficLimit(run, plan, facts);
        break;
    case AccountingMode::TrafficAndTime:
        run.Write("UPDATE users SET mode = 5 WHERE user_id = (?)", plan.userId);
        WriteTrafficLimit(run, plan, facts);
        WriteTimeLimit(run, plan, facts);
        break;
    case AccountingMode::Provider:
        WriteCreditAccount(run, plan, facts);
        break;
    case AccountingMode::Time:
        run.Write("UPDATE users SET mode = 4 WHERE user_id = (?)", plan.userId);
        WriteTimeLimit(run, plan, facts);
        break;
    }
}
