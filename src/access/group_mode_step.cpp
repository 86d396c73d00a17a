#include "access/group_mode_step.h"

#include "access/blocking.h"
#include "access/open_credit.h"
#include "access/usage_records.h"
#include "db/query.h"

namespace {

WholeMegabytes ReadLimit(ActionRun &run, const char *sqlText, GroupId groupId)
{
    return run
        .Take(ReadOne(
            sqlText, [](const Row &row) { return WholeMegabytes {row.Integer(1)}; }, groupId))
        .value_or(WholeMegabytes {});
}

// The reason is in the column given; a block by this very sheet has its own.
void ReadReason(
    ActionRun &run, const char *sqlText, int column, const GroupPlan &plan, StoredBlock &block)
{
    const auto reason = run.Take(ReadOne(
        sqlText, [column](const Row &row) { return row.Code<BlockReason>(column); }, plan.groupId));
    if (plan.block != BlockStep::Block) {
        block.reason = reason.value_or(block.reason);
    }
}

void ReadUse(ActionRun &run, const GroupPlan &plan, GroupModeFacts &facts)
{
    facts.record = run.Take(FindGroupTrafficRecord(plan.groupId));
    ReadReason(
        run, "SELECT traflim, blockreason FROM groups WHERE group_id = (?)", 2, plan, facts.block);
    const Megabytes used = run.Take(ReadOne(
                                        "SELECT data FROM traffic_use WHERE traf_id = (?)",
                                        [](const Row &row) { return Megabytes {row.Amount(1)}; },
                                        facts.record))
                               .value_or(Megabytes {});
    const bool openCredit = run.Take(HasOpenTrafficCredit(plan.groupId));
    facts.left = used < AmountOf(plan.limits.traffic) || openCredit;
}

void ReadLimitFacts(ActionRun &run, const GroupPlan &plan, GroupModeFacts &facts)
{
    WholeMegabytes stored =
        ReadLimit(run, "SELECT traflim FROM Groups WHERE Group_id = (?)", plan.groupId);
    if (plan.limitTouched) {
        stored = ReadLimit(run, "SELECT traflim FROM groups WHERE group_id = (?)", plan.groupId);
        facts.raised = plan.limits.traffic > stored;
    }
    if (facts.raised) {
        ReadUse(run, plan, facts);
    }
}

void WriteNoControl(ActionRun &run, const GroupPlan &plan, const GroupModeFacts &facts)
{
    run.Write("UPDATE groups SET mode = 0 WHERE group_id = (?)", plan.groupId);
    if (LiftsBlock(plan, facts)) {
        UnblockGroup(run, plan.groupId);
    }
}

void WriteTrafficLimit(ActionRun &run, const GroupPlan &plan, const GroupModeFacts &facts)
{
    run.Write("UPDATE groups SET mode = 1 WHERE group_id = (?)", plan.groupId);
    if (facts.raised) {
        run.Write("UPDATE traffic_use SET blocked=false WHERE traf_id=(?)", facts.record);
    }
    run.Write("UPDATE groups SET mode = 1, traflim = (?), trafperiod = (?) WHERE group_id = (?)",
              plan.limits.traffic,
              plan.limits.period,
              plan.groupId);
    if (LiftsBlock(plan, facts)) {
        run.Write("UPDATE groups SET blocked = 0 WHERE group_id = (?)", plan.groupId);
        LiftGroupBlock(run, plan.groupId);
    }
}

void WriteCredit(ActionRun &run, const GroupPlan &plan, const GroupModeFacts &facts)
{
    run.Write("UPDATE Groups SET mode = 2 WHERE Group_id = (?)", plan.groupId);
    if (plan.credit) {
        run.Write("UPDATE Groups SET credit = (?), creditvalue = (?) WHERE Group_id = (?)",
                  plan.credit->Kind(),
                  NumberOf(plan.credit->amount),
                  plan.groupId);
    }
    if (LiftsBlock(plan, facts)) {
        LiftGroupBlock(run, plan.groupId);
    }
}

void WritePrice(ActionRun &run, const GroupPlan &plan)
{
    if (plan.limits.ownPrice) {
        run.Write("UPDATE Groups SET own_price = true WHERE Group_id = (?)", plan.groupId);
        run.Write("UPDATE Groups SET trafprice = (?) WHERE Group_id = (?)",
                  plan.limits.price,
                  plan.groupId);
    } else {
        run.Write("UPDATE Groups SET own_price = false WHERE Group_id = (?)", plan.groupId);
    }
}

} // namespace

GroupModeFacts ReadGroupModeFacts(ActionRun &run, const GroupPlan &plan)
{
    GroupModeFacts facts;
    facts.block = After(plan.block, plan.blockNow);
    switch (plan.mode) {
    case AccountingMode::NoControl:
        ReadReason(
            run, "SELECT blockreason FROM groups WHERE group_id = (?)", 1, plan, facts.block);
        break;
    case AccountingMode::Traffic:
        ReadLimitFacts(run, plan, facts);
        break;
    case AccountingMode::Provider:
        facts.creditLeft = run.Take(HasCreditLeft(plan.groupId));
        break;
    default:
        break;
    }
    return facts;
}

bool LiftsBlock(const GroupPlan &plan, const GroupModeFacts &facts)
{
    if (!MayBeLifted(facts.block)) {
        return false;
    }
    switch (plan.mode) {
    case AccountingMode::NoControl:
        return plan.modeChanged;
    case AccountingMode::Traffic:
        return facts.raised && facts.left;
    case AccountingMode::Provider:
        return (plan.modeChanged || plan.credit) && facts.creditLeft;
    default:
        return false;
    }
}

void WriteGroupMode(ActionRun &run, const GroupPlan &plan, const GroupModeFacts &facts)
{
    switch (plan.mode) {
    case AccountingMode::NoControl:
        WriteNoControl(run, plan, facts);
        break;
    case AccountingMode::Traffic:
        WriteTrafficLimit(run, plan, facts);
        break;
    case AccountingMode::Provider:
        WriteCredit(run, plan, facts);
        WritePrice(run, plan);
        break;
    default:
        break;
    }
}
