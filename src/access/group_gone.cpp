#include "access/group_gone.h"

#include "access/owner.h"

#include <algorithm>

using namespace Qt::StringLiterals;

void LockGroups(ActionRun &run, std::vector<GroupId> groupIds)
{
    std::ranges::sort(groupIds);
    for (const GroupId groupId : groupIds) {
        run.Lock({"groups", "group_id", groupId.value, "group_id"});
    }
}

void RefuseIfGone(ActionRun &run, GroupId groupId)
{
    if (!run.Take(NameOf(groupId))) {
        run.Refuse(groupId == kEverybodyGroup
                       ? u"The group \"Everybody\", into which users would be moved, has been "
                         "deleted. Nothing was changed."_s
                       : u"The chosen group has been deleted meanwhile. Nothing was changed."_s);
    }
}

void RefuseGoneGroup(ActionRun &run)
{
    run.Refuse(u"This group has been deleted meanwhile. Nothing was changed."_s);
}
