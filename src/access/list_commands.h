// What the commands of the two lists do in the database. None of them refills a list.
#pragma once

#include "actions/action.h"
#include "db/failure.h"
#include "db/ids.h"

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>
#include <vector>

// False for a user or group without control, and for one that is gone: it has no account to open.
[[nodiscard]] Result<bool> UserHasAccount(UserId userId);
[[nodiscard]] Result<bool> GroupHasAccount(GroupId groupId);

// Asked before users, or a group, are removed for good. `first` are the first names of those who go, as
// NamesLine takes them, and `count` is how many there are.
[[nodiscard]] Question DeleteUsersQuestion(const QStringList &first, qsizetype count);
[[nodiscard]] Question DeleteGroupQuestion(const QString &name);

// What a person is told who would delete "Everybody", or give it another name. Kept: the name counts for
// the one, the id for the other.
[[nodiscard]] std::optional<QString> WhyNotDeleted(const QString &groupName);
[[nodiscard]] std::optional<QString> WhyNotRenamed(GroupId groupId);

// Users that are gone are left out; refused when none is left, and when the group is gone.
[[nodiscard]] Action MoveUsersAction(const std::vector<UserId> &userIds, GroupId groupId);

// The users and all that was counted for them; their logins stay, bound to no user.
[[nodiscard]] Action DeleteUsersAction(const std::vector<UserId> &userIds);

// The users keep all their records and are offered among the unmonitored ones. Those that are gone are
// left out; refused when none is left.
[[nodiscard]] Action StopMonitoringAction(const std::vector<UserId> &userIds);

// Refused for a group that is gone, and for a name that another one has or that is empty; the group's
// own name is none of these.
[[nodiscard]] Action RenameGroupAction(GroupId groupId, const QString &name);

// As a step of an action that has locked the groups (LockToNameGroup). Not set when the run is stopped;
// refused for a name that is empty or that a group has.
GroupId AddGroup(ActionRun &run, const QString &name);

// `added` receives the new group's id. Refused for a name that is empty or that a group has.
[[nodiscard]] Action AddGroupAction(const QString &name, const std::shared_ptr<GroupId> &added);

// The members move to "Everybody". The groups list deletes the group first, the dialog that chooses
// a group moves the members first. Refused where there are members to move and "Everybody" is gone.
[[nodiscard]] Action DeleteGroupOfListAction(GroupId groupId);
[[nodiscard]] Action DeleteGroupOfDialogAction(GroupId groupId);
