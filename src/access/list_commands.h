// What the commands of the two lists do in the database. None of them refills a list.
#pragma once

#include <QString>

// False for a user or group without control: it has no account to open.
[[nodiscard]] bool UserHasAccount(quint32 userId);
[[nodiscard]] bool GroupHasAccount(quint32 groupId);

void MoveUserToGroup(quint32 userId, quint32 groupId);

// The user and all that was counted for it; its login stays, bound to no user.
void DeleteUser(quint32 userId);

// The user keeps all its records and is offered among the unmonitored ones.
void StopMonitoring(quint32 userId);

// The name is not checked for being empty or taken.
void RenameGroup(quint32 groupId, const QString &name);

// The new group's id, the last of that name when there are several; 0 when the database refused it.
[[nodiscard]] quint32 AddGroup(const QString &name);

// The members move to "Everybody". The groups list deletes the group first, the dialog that chooses
// a group moves the members first.
void DeleteGroupOfList(quint32 groupId);
void DeleteGroupOfDialog(quint32 groupId);
