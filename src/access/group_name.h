// Names of groups: no two groups are called alike (see NameKey), and none is called nothing.
#pragma once

#include "actions/action_run.h"
#include "db/ids.h"

#include <QString>

#include <optional>
#include <vector>

// What a person is told of a name that is empty or that another group has.
[[nodiscard]] QString NoGroupNameText();
[[nodiscard]] QString GroupNameTakenText();

// Locks the groups, and besides what everybody locks who names a group: of two consoles the second one
// sees the first one's name. Without any group in the database there is nothing to lock.
void LockToNameGroup(ActionRun &run, std::vector<GroupId> groupIds);

// Has the database itself refuse, in the words of GroupNameTakenText, that two groups get one name: for a
// console that no lock has kept from naming its group at the same moment. To be called behind the statement
// that names the group.
void ClaimGroupName(ActionRun &run, const QString &name, GroupId groupId);

// Refuses the run when `name`, as far as a column takes it, cannot be given to the group `own`, or to a
// new one. To be called behind LockToNameGroup.
void RefuseBadGroupName(ActionRun &run, const QString &name, std::optional<GroupId> own);
