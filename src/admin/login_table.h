// The logins with which users prove who they are: an in-memory table, read when the login manager
// opens and written back on its OK.
#pragma once

#include "base/prompt.h"
#include "db/ids.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

struct Login
{
    enum class Limit { None, IpAddress, MacAddress };

    QString name; // the row's key, up to 254 bytes, compared without regard to letter case
    QString digest; // 32 characters; empty for a stored login whose password stays as it is
    UserId userId; // not set: bound to no user
    Limit limit = Limit::None;
    QString limitIp; // dotted
    QString limitMac; // 12 characters
    bool allowStats = false;
    bool guest = false; // written only with a new login

    // Of the bound user, for the list.
    QString userName;
    GroupId groupId;

    bool operator==(const Login &) const = default;
};

// What the "Create login" dialog holds when its OK is pressed.
struct LoginEntry
{
    Login login; // limitIp is empty while its four fields are not all filled
    bool bindToUser = false;
    QString password;
    QString retyped;
    bool passwordTouched = false; // for a stored login: false keeps its password
};

class LoginTable
{
public:
    static constexpr size_t kCapacity = 1000;

    // Every login with its user, in the database's order.
    void Load();

    [[nodiscard]] const std::vector<Login> &Logins() const { return logins; }

    // The first thing that is wrong with `entry`, as the administrator is told. `index` is the
    // login's place when it is being edited, nothing for a new one.
    [[nodiscard]] std::optional<QString> Check(const LoginEntry &entry,
                                               std::optional<size_t> index) const;

    // Takes over an entry that Check accepted: at its place, or as a new login. The entry's
    // passwords are wiped.
    void Put(LoginEntry &entry, std::optional<size_t> index);

    void Remove(size_t index);

    // True when `userId` is bound to a login other than the one at `index`, here or in the database.
    [[nodiscard]] bool HasLogin(UserId userId, std::optional<size_t> index) const;

    // Writes new, changed and removed logins. Says "Error writing information to the database" for
    // each statement that failed and goes on with the next. False when one failed: what it should
    // have written is still to be saved.
    [[nodiscard]] bool Save(Prompt &prompt);

private:
    enum class State { Stored, Changed, New };

    [[nodiscard]] std::optional<size_t> IndexOf(const QString &name) const;
    void DeleteRemoved(bool nameInUseAgain, Prompt &prompt);
    void Insert(const Login &login) const;
    void Update(const Login &login) const;

    std::vector<Login> logins;
    std::vector<State> states; // parallel to logins
    QStringList removed; // names of stored logins
};

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
[[nodiscard]] std::vector<LoginGroup> LoadLoginGroups();

// The groups in name order with their users, for "Browse for user".
[[nodiscard]] std::vector<LoginGroup> LoadLoginUsers();

// The user of that name and its group's id; nothing when there is none.
struct FoundUser
{
    UserId userId;
    GroupId groupId;
};
[[nodiscard]] std::optional<FoundUser> FindUserByName(const QString &name);
