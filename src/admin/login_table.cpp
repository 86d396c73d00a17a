#include "admin/login_table.h"

#include "admin/password_digest.h"
#include "db/failure_log.h"
#include "db/session.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMacCharacters = 12;

Login::Limit LimitFrom(bool on, quint32 limitMode)
{
    if (!on) {
        return Login::Limit::None;
    }
    return limitMode == 1 ? Login::Limit::MacAddress : Login::Limit::IpAddress;
}

quint32 LimitOn(const Login &login)
{
    return login.limit == Login::Limit::None ? 0 : 1;
}

quint32 LimitMode(const Login &login)
{
    return login.limit == Login::Limit::MacAddress ? 1 : 0;
}

Login LoginFromRow()
{
    Login login;
    login.name = queryResult.Text(1);
    login.userId = queryResult.Id<UserId>(2);
    login.guest = queryResult.Integer(3) != 0;
    login.limit = LimitFrom(queryResult.Integer(4) != 0, queryResult.Integer(5));
    login.limitIp = queryResult.Text(6);
    login.limitMac = queryResult.Text(7);
    login.allowStats = queryResult.Integer(8) != 0;
    return login;
}

void Wipe(QString &secret)
{
    secret.fill(u'\0');
    secret.clear();
}

std::optional<QString> CheckPasswords(const LoginEntry &entry)
{
    if (entry.password != entry.retyped) {
        return u"Passwords are not identical. Please re-enter passwords"_s;
    }
    if (entry.password.toUtf8().size() > kMaxPasswordBytes) {
        return u"The password is too long. It can hold at most 256 characters"_s;
    }
    return std::nullopt;
}

std::optional<QString> CheckLimitAndUser(const LoginEntry &entry)
{
    const Login &login = entry.login;
    if (login.limit == Login::Limit::IpAddress && login.limitIp.isEmpty()) {
        return u"You entered incorrect IP address. Please re-enter address"_s;
    }
    if (login.limit == Login::Limit::MacAddress && login.limitMac.size() != kMacCharacters) {
        return u"You have entered incorrect MAC address. Please re-enter the address"_s;
    }
    if (entry.bindToUser && !login.userId.IsSet()) {
        return u"Please bind the login to existing user with 'Browse' button"_s;
    }
    return std::nullopt;
}

// True when the statement did not fail.
template <typename Statement>
bool Write(Prompt &prompt, const Statement &statement)
{
    const qsizetype before = FailureLog::Instance().Count();
    statement();
    const bool done = FailureLog::Instance().Count() == before;
    if (!done) {
        prompt.Tell(u"Error writing information to the database"_s, Prompt::Icon::Error);
    }
    return done;
}

} // namespace

void LoginTable::Load()
{
    logins.clear();
    removed.clear();
    {
        RowCursor rows("SELECT login, userid, virtual, limitpc, limitpcmode, limitip, limitmac, "
                       "allowstats FROM logins");
        while (logins.size() < kCapacity && rows.Next()) {
            logins.push_back(LoginFromRow());
        }
    }
    states.assign(logins.size(), State::Stored);
    for (Login &login : logins) {
        if (login.userId.IsSet()) {
            RunQuery("SELECT group_id, username FROM users WHERE user_id=(?)",
                     FetchMode::All,
                     login.userId);
            login.groupId = queryResult.Id<GroupId>(1);
            login.userName = queryResult.Text(2);
        }
    }
}

std::optional<QString> LoginTable::Check(const LoginEntry &entry, std::optional<size_t> index) const
{
    if (const auto problem = CheckLimitAndUser(entry)) {
        return problem;
    }
    if (entry.login.name.isEmpty()) {
        return u"Please enter login name"_s;
    }
    if (!index && IndexOf(entry.login.name)) {
        return u"This login name already exists! Please enter another login name"_s;
    }
    if (const auto problem = CheckPasswords(entry)) {
        return problem;
    }
    if (!index && logins.size() >= kCapacity) {
        return u"There is no more space to enter new login record"_s;
    }
    return std::nullopt;
}

void LoginTable::Put(LoginEntry &entry, std::optional<size_t> index)
{
    Login login = entry.login;
    if (!entry.bindToUser) {
        login.userId = {};
        login.userName.clear();
        login.groupId = {};
    }
    if (!index || entry.passwordTouched) {
        login.digest = PasswordDigest(entry.password).value_or(QString());
    }
    Wipe(entry.password);
    Wipe(entry.retyped);
    if (!index) {
        logins.push_back(login);
        states.push_back(State::New);
    } else if (logins[*index] != login) {
        logins[*index] = login;
        states[*index] = states[*index] == State::New ? State::New : State::Changed;
    }
}

void LoginTable::Remove(size_t index)
{
    if (states[index] != State::New) {
        removed << logins[index].name;
    }
    const auto offset = static_cast<std::ptrdiff_t>(index);
    logins.erase(logins.begin() + offset);
    states.erase(states.begin() + offset);
}

bool LoginTable::HasLogin(UserId userId, std::optional<size_t> index) const
{
    for (size_t other = 0; other < logins.size(); ++other) {
        if (other != index && logins[other].userId == userId) {
            return true;
        }
    }
    // What another administrator made meanwhile; a login of this table counts as it stands here.
    RunQuery("SELECT login FROM logins WHERE userid=(?)", FetchMode::All, userId);
    const QString stored = queryResult.Text(1);
    return !stored.isEmpty() && !IndexOf(stored) && !removed.contains(stored);
}

std::optional<size_t> LoginTable::IndexOf(const QString &name) const
{
    const auto found = std::find_if(logins.begin(), logins.end(), [&](const Login &login) {
        return login.name.compare(name, Qt::CaseInsensitive) == 0;
    });
    if (found == logins.end()) {
        return std::nullopt;
    }
    return static_cast<size_t>(found - logins.begin());
}

bool LoginTable::Save(Prompt &prompt)
{
    // A removed name that is in use again makes room before the new row comes.
    DeleteRemoved(true, prompt);
    bool done = true;
    for (size_t index = 0; index < logins.size(); ++index) {
        const State state = states[index];
        if (state == State::Stored) {
            continue;
        }
        const bool written = Write(
            prompt, [&] { state == State::New ? Insert(logins[index]) : Update(logins[index]); });
        states[index] = written ? State::Stored : state;
        done = done && written;
    }
    DeleteRemoved(false, prompt);
    return done && removed.isEmpty();
}

void LoginTable::DeleteRemoved(bool nameInUseAgain, Prompt &prompt)
{
    removed.removeIf([&](const QString &name) {
        return IndexOf(name).has_value() == nameInUseAgain
            && Write(prompt, [&] { Execute("DELETE FROM logins WHERE login=(?)", name); });
    });
}

void LoginTable::Insert(const Login &login) const
{
    Execute("INSERT INTO Logins (login, LimitIP, LimitMAC, LimitPCMode, LimitPC, Virtual, "
            "AllowStats, userid, Pwd) VALUES ((?), (?), (?), (?), (?), (?), (?), (?), (?))",
            login.name,
            login.limitIp,
            login.limitMac,
            LimitMode(login),
            LimitOn(login),
            login.guest ? 1U : 0U,
            login.allowStats ? 1U : 0U,
            login.userId,
            login.digest);
}

void LoginTable::Update(const Login &login) const
{
    QString digest = login.digest;
    if (digest.isEmpty()) {
        RunQuery("SELECT Pwd FROM logins WHERE login=(?)", FetchMode::All, login.name);
        digest = queryResult.Text(1);
    }
    Execute("UPDATE Logins SET LimitIP=(?), LimitMAC=(?), LimitPCMode=(?), LimitPC=(?), "
            "AllowStats=(?), userid=(?), Pwd=(?) WHERE login=(?)",
            login.limitIp,
            login.limitMac,
            LimitMode(login),
            LimitOn(login),
            login.allowStats ? 1U : 0U,
            login.userId,
            digest,
            login.name);
}

std::vector<LoginGroup> LoadLoginGroups()
{
    std::vector<LoginGroup> groups;
    RowCursor rows("SELECT group_id, name FROM groups");
    while (rows.Next()) {
        groups.push_back({queryResult.Id<GroupId>(1), queryResult.Text(2), {}});
    }
    return groups;
}

std::vector<LoginGroup> LoadLoginUsers()
{
    std::vector<LoginGroup> groups;
    {
        RowCursor rows("SELECT name, group_id FROM groups ORDER BY name ASC");
        while (rows.Next()) {
            groups.push_back({queryResult.Id<GroupId>(2), queryResult.Text(1), {}});
        }
    }
    for (LoginGroup &group : groups) {
        RowCursor rows(
            "SELECT username, user_id FROM users WHERE group_id = (?) ORDER BY username ASC",
            group.groupId);
        while (rows.Next()) {
            group.users.push_back({queryResult.Id<UserId>(2), queryResult.Text(1)});
        }
    }
    return groups;
}

std::optional<FoundUser> FindUserByName(const QString &name)
{
    RunQuery("SELECT user_id, group_id FROM users WHERE username=(?)", FetchMode::All, name);
    const FoundUser found {queryResult.Id<UserId>(1), queryResult.Id<GroupId>(2)};
    return found.userId.IsSet() ? std::optional(found) : std::nullopt;
}
