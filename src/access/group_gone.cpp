#include "access/group_gone.h"

#include "access/owner.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(GroupGone)
};

} // namespace

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
        run.Refuse(
            groupId == kEverybodyGroup
                ? Words::tr("The group \"Everybody\", into which users would be moved, has been "
                            "deleted. Nothing was changed.")
                : Words::tr("The chosen group has been deleted meanwhile. Nothing was changed."));
    }
}

void RefuseGoneGroup(ActionRun &run)
{
    run.Refuse(Words::tr("This group has been deleted meanwhile. Nothing was changed."));
}
