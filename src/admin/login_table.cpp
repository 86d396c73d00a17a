#include "admin/login_table.h"

#include "admin/password_digest.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(LoginTable)
};

constexpr qsizetype kMacCharacters = 12;

void Wipe(QString &secret)
{
    secret.fill(u'\0');
    secret.clear();
}

std::optional<QString> CheckPasswords(const LoginEntry &entry)
{
    if (entry.password != entry.retyped) {
        return Words::tr("Passwords are not identical. Please re-enter passwords");
    }
    return CheckPasswordLength(entry.password);
}

std::optional<QString> CheckLimitAndUser(const LoginEntry &entry)
{
    const Login &login = entry.login;
    if (login.limit == Login::Limit::IpAddress && login.limitIp.isEmpty()) {
        return Words::tr("You entered incorrect IP address. Please re-enter address");
    }
    if (login.limit == Login::Limit::MacAddress && login.limitMac.size() != kMacCharacters) {
        return Words::tr("You have entered incorrect MAC address. Please re-enter the address");
    }
    if (entry.bindToUser && !login.userId.IsSet()) {
        return Words::tr("Please bind the login to existing user with 'Browse' button");
    }
    return std::nullopt;
}

} // namespace

QString Login::LimitAddress() const
{
    switch (limit) {
    case Limit::IpAddress:
        return limitIp;
    case Limit::MacAddress:
        return limitMac;
    case Limit::None:
        break;
    }
    return {};
}

QStringList LoginChanges::Names() const
{
    QStringList names = removedFirst;
    for (const LoginChange &change : changed) {
        names << change.draft.name;
    }
    names += removedLast;
    names.removeDuplicates();
    return names;
}

QString UserHasLoginText()
{
    return Words::tr("This user already has login");
}

LoginTable::LoginTable(std::vector<Login> stored)
    : logins(std::move(stored))
    , bases(logins)
    , states(logins.size(), State::Stored)
{ }

std::optional<QString> CheckPasswordLength(const QString &password)
{
    return password.toUtf8().size() > kMaxPasswordBytes
        ? std::optional(Words::tr("The password is too long. It can hold at most 256 characters"))
        : std::nullopt;
}

std::optional<QString> LoginTable::Check(const LoginEntry &entry, std::optional<size_t> index) const
{
    if (const auto problem = CheckLimitAndUser(entry)) {
        return problem;
    }
    if (entry.login.name.isEmpty()) {
        return Words::tr("Please enter login name");
    }
    if (!index && IndexOf(entry.login.name)) {
        return Words::tr("This login name already exists! Please enter another login name");
    }
    if (const auto problem = CheckPasswords(entry)) {
        return problem;
    }
    if (!index && logins.size() >= kCapacity) {
        return Words::tr("There is no more space to enter new login record");
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
        bases.push_back(login);
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
    Drop(index);
}

void LoginTable::Drop(size_t index)
{
    const auto offset = static_cast<std::ptrdiff_t>(index);
    logins.erase(logins.begin() + offset);
    bases.erase(bases.begin() + offset);
    states.erase(states.begin() + offset);
}

bool LoginTable::HasLogin(UserId userId,
                          std::optional<size_t> index,
                          const QStringList &stored) const
{
    for (size_t other = 0; other < logins.size(); ++other) {
        if (other != index && logins[other].userId == userId) {
            return true;
        }
    }
    return std::any_of(stored.begin(), stored.end(), [this](const QString &name) {
        return !name.isEmpty() && !IndexOf(name) && !removed.contains(name);
    });
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

LoginChanges LoginTable::Changes() const
{
    LoginChanges changes;
    for (const QString &name : removed) {
        (IndexOf(name) ? changes.removedFirst : changes.removedLast) << name;
    }
    for (size_t index = 0; index < logins.size(); ++index) {
        if (states[index] != State::Stored) {
            changes.changed.push_back({bases[index], logins[index], states[index] == State::New});
        }
    }
    return changes;
}

void LoginTable::MarkSaved(const SavedLogins &saved)
{
    for (const Login &login : saved.written) {
        if (const auto index = IndexOf(login.name)) {
            logins[*index] = login;
            bases[*index] = login;
            states[*index] = State::Stored;
        }
    }
    removed.removeIf([&saved](const QString &name) { return saved.removed.contains(name); });
    for (const QString &name : saved.gone) {
        if (const auto index = IndexOf(name)) {
            Drop(*index);
        }
    }
}
