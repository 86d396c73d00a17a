#include "access/group_apply.h"

#include "access/blocking.h"
#include "access/group_gone.h"
#include "access/group_members.h"
#include "access/group_mode_step.h"
#include "access/group_name.h"
#include "access/group_plan.h"
#include "access/present_users.h"
#include "access/stored_group.h"
#include "access/stored_protocols.h"
#include "db/query.h"

namespace {

std::vector<UserId> IdsOf(const std::vector<Member> &members)
{
    std::vector<UserId> ids;
    ids.reserve(members.size());
    for (const Member &member : members) {
        ids.push_back(member.userId);
    }
    return ids;
}

void LockRows(ActionRun &run, const GroupRecord &record)
{
    std::vector<GroupId> groups {record.groupId};
    if (!record.members.Removed().empty()) {
        groups.push_back(kEverybodyGroup);
    }
    if (record.draft.name == record.base.name) {
        LockGroups(run, groups);
    } else {
        LockToNameGroup(run, groups);
    }
    std::vector<UserId> users = IdsOf(record.members.Removed());
    for (const UserId userId : IdsOf(record.members.Added())) {
        users.push_back(userId);
    }
    LockUsers(run, users);
}

// Where the members stand now, without those that are gone.
std::vector<MovedMember> ReadMoved(ActionRun &run, const std::vector<Member> &members)
{
    std::vector<MovedMember> moved;
    for (const Member &member : members) {
        if (run.IsStopped()) {
            return {};
        }
        const auto now = run.Take(ReadOne(
            "SELECT group_id FROM users WHERE user_id = (?)",
            [](const Row &row) { return row.Id<GroupId>(1); },
            member.userId));
        if (now) {
            const bool isMoved = *now != member.groupId;
            moved.push_back({member.userId,
                             member.name,
                             member.groupId,
                             *now,
                             isMoved ? run.Take(NameOf(*now)).value_or(QString()) : QString()});
        }
    }
    return moved;
}

// Nobody is moved to where there is no group.
void PlanMembers(ActionRun &run, GroupPlan &plan, const MemberTable &members, const Settler &settle)
{
    plan.removed = PlanMoves(ReadMoved(run, members.Removed()), kEverybodyGroup, settle);
    plan.added = PlanMoves(ReadMoved(run, members.Added()), plan.groupId, settle);
    if (!plan.removed.empty()) {
        RefuseIfGone(run, kEverybodyGroup);
    }
}

void WriteMembers(ActionRun &run, const GroupPlan &plan)
{
    for (const UserId userId : plan.removed) {
        run.Write("UPDATE users SET group_id = 80  WHERE user_id = (?)", userId);
    }
    for (const UserId userId : plan.added) {
        run.Write("UPDATE users SET group_id = (?)  WHERE user_id = (?)", plan.groupId, userId);
    }
}

void WriteBlock(ActionRun &run, const GroupPlan &plan)
{
    if (plan.block == BlockStep::Block) {
        BlockGroup(run, plan.groupId, BlockReason::Administrator);
    } else if (plan.block == BlockStep::Unblock && plan.blockNow.blocked) {
        UnblockGroup(run, plan.groupId);
    }
}

// The rows of the members are written with the group's block only, and behind it with its credits.
void LockMembers(ActionRun &run,
                 const GroupPlan &plan,
                 const GroupModeFacts &facts,
                 const StagedAccount &account)
{
    const bool reachesMembers = plan.block == BlockStep::Block
        || (plan.block == BlockStep::Unblock && plan.blockNow.blocked) || LiftsBlock(plan, facts)
        || account.MayUnblock();
    if (reachesMembers) {
        LockUsers(run, run.Take(MembersOf(plan.groupId)));
    }
}

void WriteGroup(ActionRun &run, const GroupPlan &plan, const GroupModeFacts &facts, bool isRenamed)
{
    if (plan.protocols.ChangesPorts()) {
        run.Watch({"port_blocked", "group_id", plan.groupId.value, "pb_id"});
    }
    WriteMembers(run, plan);
    run.Write("UPDATE groups SET name = (?), descrip = (?) WHERE group_id = (?)",
              plan.name,
              plan.description,
              plan.groupId);
    if (isRenamed) {
        ClaimGroupName(run, plan.name, plan.groupId);
    }
    WriteBlock(run, plan);
    WriteProtocols(run, plan.groupId, plan.protocols);
    WriteGroupMode(run, plan, facts);
}

} // namespace

AccountingMode ApplyGroup(ActionRun &run, const GroupRecord &record)
{
    LockRows(run, record);
    const auto now = run.Take(ReadGroupToStore(record.groupId));
    if (!now) {
        RefuseGoneGroup(run);
        return record.draft.mode;
    }
    const Settler settle(record.Self(),
                         [&run](const Question &question) { return run.Ask(question); });
    GroupPlan plan = PlanGroup(record, *now, settle);
    const bool isRenamed = plan.name != now->base.name;
    if (isRenamed) {
        RefuseBadGroupName(run, plan.name, plan.groupId);
    }
    PlanMembers(run, plan, record.members, settle);
    const GroupModeFacts facts = ReadGroupModeFacts(run, plan);
    if (!run.IsStopped()) {
        LockMembers(run, plan, facts, record.account);
        WriteGroup(run, plan, facts, isRenamed);
    }
    return plan.mode;
}
