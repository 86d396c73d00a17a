// The logins with which users prove who they are: an in-memory table and its rules, read when the
// login manager opens and written back on its OK, see login_storage.h.
#pragma once

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

    // The workstation's address that the login is limited to; empty for none.
    [[nodiscard]] QString LimitAddress() const;

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

// A login that is to be written.
struct LoginChange
{
    Login base; // as it was read; its name alone counts of a new one
    Login draft;
    bool isNew = false;
};

// What the database must be told so that it holds the table.
struct LoginChanges
{
    QStringList removedFirst; // names that are in use again: they make room for the new login
    std::vector<LoginChange> changed;
    QStringList removedLast;

    [[nodiscard]] bool IsEmpty() const
    {
        return removedFirst.isEmpty() && changed.empty() && removedLast.isEmpty();
    }

    // Of all logins that are new, changed or removed, each once.
    [[nodiscard]] QStringList Names() const;
};

// What it was told: the logins as they stand now, and the names that are removed.
struct SavedLogins
{
    std::vector<Login> written;
    QStringList removed;
    QStringList gone; // names of changed logins that somebody else has removed meanwhile
};

// What is wrong with a password that is longer than kMaxPasswordBytes.
[[nodiscard]] std::optional<QString> CheckPasswordLength(const QString &password);

// What a person is told who would bind a second login to a user.
[[nodiscard]] QString UserHasLoginText();

class LoginTable
{
public:
    static constexpr size_t kCapacity = 1000;

    LoginTable() = default;
    explicit LoginTable(std::vector<Login> stored);

    [[nodiscard]] const std::vector<Login> &Logins() const { return logins; }

    // The first thing that is wrong with `entry`, as the administrator is told. `index` is the
    // login's place when it is being edited, nothing for a new one.
    [[nodiscard]] std::optional<QString> Check(const LoginEntry &entry,
                                               std::optional<size_t> index) const;

    // Takes over an entry that Check accepted: at its place, or as a new login. The entry's
    // passwords are wiped.
    void Put(LoginEntry &entry, std::optional<size_t> index);

    void Remove(size_t index);

    // True when `userId` is bound to a login other than the one at `index`: here, or in the database,
    // where `stored` are the names of the user's logins (LoginsOf). A login of this table counts as it
    // stands here.
    [[nodiscard]] bool
    HasLogin(UserId userId, std::optional<size_t> index, const QStringList &stored) const;

    // New, changed and removed logins that are still to be written.
    [[nodiscard]] LoginChanges Changes() const;

    // What was not written is still to be, but for what is gone: it leaves the table.
    void MarkSaved(const SavedLogins &saved);

private:
    enum class State { Stored, Changed, New };

    [[nodiscard]] std::optional<size_t> IndexOf(const QString &name) const;
    void Drop(size_t index);

    std::vector<Login> logins;
    std::vector<Login> bases; // parallel to logins: as they are in the database
    std::vector<State> states; // parallel to logins
    QStringList removed; // names of stored logins
};
