// The logins in the database: table Logins, and the users to whom they are bound.
#pragma once

#include "actions/action.h"
#include "admin/login_table.h"

#include <memory>

// Every login with its user, in the database's order. A failure when any of it could not be read: a
// login whose user is not known must not look like one without a user.
[[nodiscard]] Result<LoginTable> LoadLogins();

// The names of the logins that the database binds to the user.
[[nodiscard]] Result<QStringList> LoginsOf(UserId userId);

// What became of the table's OK.
struct LoginSaveReport
{
    Outcome outcome; // may need answers: nothing was written then
    SavedLogins saved; // for LoginTable::MarkSaved
    QStringList notSaved; // sentences, one for each login that was not saved or removed

    [[nodiscard]] bool IsDone() const { return outcome.IsDone() && notSaved.isEmpty(); }

    // What a person is told when something was not saved: which logins and why. Empty when everything
    // was, and while there are questions.
    [[nodiscard]] QString InWords() const;
};

template <>
struct GivenUp<LoginSaveReport>
{
    [[nodiscard]] static LoginSaveReport As(const Failure &failure, bool mayBeKept)
    {
        return {GivenUp<Outcome>::As(failure, mayBeKept), {}, {}};
    }
};

// Writes new, changed and removed logins, on the session of this thread; a login that could not be
// written stops none of the others. What was not touched of a login stays as it stands now; what
// somebody else changed as well is asked about before anything is written.
[[nodiscard]] LoginSaveReport SaveLogins(const LoginChanges &changes, const Answers &answers);

// What the save would do, as TryAction tells it: nothing is written.
[[nodiscard]] LoginSaveReport TryLogins(const LoginChanges &changes, const Answers &answers);

// Asked before a login is removed.
[[nodiscard]] Question RemoveLoginQuestion(const QString &name);

// The statements alone; `report` receives what was saved and what was not, its outcome left out.
[[nodiscard]] Action SaveLoginsAction(const LoginChanges &changes,
                                      const std::shared_ptr<LoginSaveReport> &report);

// A user that a login can be bound to.
struct LoginUser
{
    UserId userId;
    QString name;
};

struct LoginGroup
{
    GroupId groupId;
    QString name;
    std::vector<LoginUser> users; // in name order
};

// The groups of the login manager's tree, in the database's order, without users.
[[nodiscard]] Result<std::vector<LoginGroup>> LoadLoginGroups();

// The groups in name order with their users, for "Browse for user".
[[nodiscard]] Result<std::vector<LoginGroup>> LoadLoginUsers();

// The user of that name and its group's id; nothing when there is none.
struct FoundUser
{
    UserId userId;
    GroupId groupId;
};
[[nodiscard]] Result<std::optional<FoundUser>> FindUserByName(const QString &name);
