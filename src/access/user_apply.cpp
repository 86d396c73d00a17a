#include "access/user_apply.h"

#include "access/address_holder.h"
#include "access/blocking.h"
#include "access/group_gone.h"
#include "access/present_users.h"
#include "access/stored_protocols.h"
#include "access/user_mode_step.h"
#include "access/user_plan.h"

using namespace Qt::StringLiterals;

namespace {

void LockUser(ActionRun &run, const UserRecord &record)
{
    if (record.draft.groupId != record.base.groupId) {
        LockGroups(run, {record.draft.groupId});
    }
    LockUsers(run, {record.userId});
}

// Where nothing of the user's own row changes, these rows tell whether a lost commit was kept.
void WatchOtherRows(ActionRun &run, const UserPlan &plan)
{
    const quint32 userId = plan.userId.value;
    if (plan.times.ChangesRanges()) {
        run.Watch({"time_blocked", "user_id", userId, "tb_id"});
    }
    if (plan.protocols.ChangesPorts()) {
        run.Watch({"port_blocked", "user_id", userId, "pb_id"});
    }
}

void WriteGeneral(ActionRun &run, const UserPlan &plan)
{
    run.Write("UPDATE users SET fullname = (?), descrip = (?) WHERE user_id = (?)",
              plan.fullName,
              plan.description,
              plan.userId);
    if (plan.group) {
        run.Write("UPDATE users SET group_id = (?)  WHERE user_id = (?)", *plan.group, plan.userId);
    }
}

void WriteAddress(ActionRun &run,
                  const char *sqlText,
                  const std::optional<QString> &address,
                  std::optional<UserId> holder,
                  UserId userId)
{
    if (address) {
        if (holder) {
            run.Write("DELETE from users WHERE user_id=(?)", *holder);
        }
        run.Write(sqlText, *address, userId);
    }
}

// A block by the service that the page could only show asks for nothing: it would otherwise become
// the administrator's, and no limit could lift it.
void WriteBlock(ActionRun &run, const UserPlan &plan)
{
    if (plan.block == BlockStep::Block) {
        BlockUser(run, plan.userId, BlockReason::Administrator);
    } else if (plan.block == BlockStep::Unblock) {
        UnblockUser(run, plan.userId);
    }
}

void WriteUser(ActionRun &run,
               const UserPlan &plan,
               const AddressHolders &holders,
               const UserModeFacts &facts)
{
    WatchOtherRows(run, plan);
    WriteGeneral(run, plan);
    WriteAddress(run,
                 "UPDATE users SET ip_addr = (?)  WHERE user_id = (?)",
                 plan.ipAddress,
                 holders.ofIpAddress,
                 plan.userId);
    WriteAddress(run,
                 "UPDATE users SET mac_addr = (?)  WHERE user_id = (?)",
                 plan.macAddress,
                 holders.ofMacAddress,
                 plan.userId);
    WriteTimes(run, plan.userId, plan.times);
    WriteProtocols(run, plan.userId, plan.protocols);
    run.Write(plan.authRequired ? "UPDATE users SET authreq = 1 WHERE user_id = (?)"
                                : "UPDATE users SET authreq = 0 WHERE user_id = (?)",
              plan.userId);
    WriteUserMode(run, plan, facts);
    WriteBlock(run, plan);
}

} // namespace

AccountingMode ApplyUser(ActionRun &run, const UserRecord &record)
{
    LockUser(run, record);
    const auto now = run.Take(LoadUser(record.userId));
    if (!now) {
        RefuseGoneUsers(run, 1);
        return record.draft.mode;
    }
    const Settler settle(record.Self(),
                         [&run](const Question &question) { return run.Ask(question); });
    UserPlan plan = PlanUser(record, *now, settle);
    if (plan.group) {
        RefuseIfGone(run, *plan.group);
    }
    const AddressHolders holders = FindHolders(run, plan);
    const UserModeFacts facts = ReadUserModeFacts(run, plan);
    if (!run.IsStopped()) {
        WriteUser(run, plan, holders, facts);
    }
    return plan.mode;
}
