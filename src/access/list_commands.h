// What the commands of the two lists do in the database. None of them refills a list.
#pragma once

#include "db/ids.h"

#include <QString>

// False for a user or group without control: it has no account to open.
[[nodiscard]] bool UserHasAccount(UserId userId);
[[nodiscard]] bool GroupHasAccount(GroupId groupId);

void MoveUserToGroup(UserId userId, GroupId groupId);

// The user and all that was counted for it; its login stays, bound to no user.
void DeleteUser(UserId userId);

// The user keeps all its records and is offered among the unmonitored ones.
void StopMonitoring(UserId userId);

// The name is not checked for being empty or taken.
void RenameGroup(GroupId groupId, const QString &name);

// The new group's id, the last of that name when there are several; not set when the database
// refused it.
[[nodiscard]] GroupId AddGroup(const QString &name);

// The members move to "Everybody". The groups list deletes the group first, the dialog that chooses
// a group moves the members first.
void DeleteGroupOfList(GroupId groupId);
void DeleteGroupOfDialog(GroupId groupId);
