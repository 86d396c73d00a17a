#include "access/stored_times.h"

#include "access/group_gone.h"
#include "access/settle.h"
#include "actions/action_run.h"

TimesPlan PlanTimes(const TimeRanges &staged, bool storedGrant)
{
    return {staged.Added(),
            staged.Deleted(),
            Settler::Flag(staged.StoredGrant(), staged.grant, storedGrant)};
}

void WriteTimes(ActionRun &run, const Owner &owner, const TimesPlan &plan)
{
    static constexpr OwnerText kInsert = {
        "INSERT INTO Time_blocked (dayofweek, timestart, timestop, user_id) "
        "VALUES ((?),(?),(?),(?))",
        "INSERT INTO Time_blocked (dayofweek, timestart, timestop, group_id) "
        "VALUES ((?),(?),(?),(?))"};
    static constexpr OwnerText kGrant = {
        "UPDATE users SET TimeAccess = true WHERE user_id = (?)",
        "UPDATE groups SET TimeAccess = true WHERE group_id = (?)"};
    static constexpr OwnerText kDeny = {
        "UPDATE users SET TimeAccess = false WHERE user_id = (?)",
        "UPDATE groups SET TimeAccess = false WHERE group_id = (?)"};
    for (const TimeRange &range : plan.added) {
        run.Write(kInsert.For(owner), range.day, range.start, range.stop, owner.Number());
    }
    for (const RangeId id : plan.deleted) {
        run.Write("DELETE FROM Time_blocked WHERE tb_id = (?)", id);
    }
    run.Write((plan.grant ? kGrant : kDeny).For(owner), owner.Number());
}

Action ApplyGroupTimesAction(GroupId groupId, const TimeRanges &staged)
{
    return {ActionId::ApplyGroupTimes, [groupId, staged](ActionRun &run) {
                LockGroups(run, {groupId});
                const auto storedGrant = run.Take(ReadTimeAccess(groupId));
                if (!storedGrant) {
                    RefuseGoneGroup(run);
                    return;
                }
                const TimesPlan plan = PlanTimes(staged, *storedGrant);
                if (plan.ChangesRanges()) {
                    run.Watch({"time_blocked", "group_id", groupId.value, "tb_id"});
                }
                WriteTimes(run, groupId, plan);
            }};
}
