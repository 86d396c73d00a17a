#include "admin/login_rows.h"

#include "db/query.h"

#include <tuple>
#include <utility>

namespace {

constexpr UserId kNobody {0xFFFFFFFFU}; // -1, which other programs store for a login without a user

Login::Limit LimitFrom(bool on, quint32 limitMode)
{
    if (!on) {
        return Login::Limit::None;
    }
    return limitMode == 1 ? Login::Limit::MacAddress : Login::Limit::IpAddress;
}

Login LoginFrom(const Row &row)
{
    const auto userId = row.Id<UserId>(2);
    Login login;
    login.name = row.Text(1);
    login.userId = userId == kNobody ? UserId {} : userId;
    login.guest = row.Integer(3) != 0;
    login.limit = LimitFrom(row.Integer(4) != 0, row.Integer(5));
    login.limitIp = row.Text(6);
    login.limitMac = row.Text(7);
    login.allowStats = row.Integer(8) != 0;
    return login;
}

Result<bool> Stands(const Login &login)
{
    const auto stored = ReadStoredLogin(login.name);
    const auto digest = ReadDigest(login.name);
    if (!stored || !digest) {
        return tl::unexpected(stored ? digest.error() : stored.error());
    }
    return *stored && HasSameLimit(**stored, login) && (*stored)->allowStats == login.allowStats
        && (*stored)->userId == login.userId && *digest == login.digest;
}

} // namespace

bool HasSameLimit(const Login &one, const Login &other)
{
    return one.limit == other.limit && one.limitIp == other.limitIp
        && one.limitMac == other.limitMac;
}

Result<std::vector<Login>> ReadStoredLogins(quint32 most)
{
    return ReadUpTo(most,
                    "SELECT login, userid, virtual, limitpc, limitpcmode, limitip, limitmac, "
                    "allowstats FROM logins",
                    LoginFrom);
}

Result<std::optional<Login>> ReadStoredLogin(const QString &name)
{
    return ReadOne("SELECT login, userid, virtual, limitpc, limitpcmode, limitip, limitmac, "
                   "allowstats FROM logins WHERE login=(?)",
                   LoginFrom,
                   name);
}

Result<std::optional<QString>> ReadDigest(const QString &name)
{
    return ReadOne(
        "SELECT Pwd FROM logins WHERE login=(?)", [](const Row &row) { return row.Text(1); }, name);
}

Result<Login> WithUser(Login login)
{
    login.groupId = {};
    login.userName.clear();
    if (!login.userId.IsSet()) {
        return login;
    }
    return ReadOne(
               "SELECT group_id, username FROM users WHERE user_id=(?)",
               [](const Row &row) { return std::pair(row.Id<GroupId>(1), row.Text(2)); },
               login.userId)
        .map([&login](const std::optional<std::pair<GroupId, QString>> &user) {
            if (user) {
                std::tie(login.groupId, login.userName) = *user;
            }
            return login;
        });
}

quint32 LimitOn(const Login &login)
{
    return login.limit == Login::Limit::None ? 0 : 1;
}

quint32 LimitMode(const Login &login)
{
    return login.limit == Login::Limit::MacAddress ? 1 : 0;
}

bool InsertLogin(ActionRun &run, const Login &login)
{
    const auto isMade = [&login] {
        return ReadDigest(login.name).map([](const std::optional<QString> &found) {
            return found.has_value();
        });
    };
    return run.WriteOrLook(
        isMade,
        "INSERT INTO Logins (login, LimitIP, LimitMAC, LimitPCMode, LimitPC, Virtual, "
        "AllowStats, userid, Pwd) VALUES ((?), (?), (?), (?), (?), (?), (?), (?), (?))",
        login.name,
        login.limitIp,
        login.limitMac,
        LimitMode(login),
        LimitOn(login),
        quint32 {login.guest},
        quint32 {login.allowStats},
        login.userId,
        login.digest);
}

bool UpdateLogin(ActionRun &run, const Login &login)
{
    return run.WriteOrLook(
        [&login] { return Stands(login); },
        "UPDATE Logins SET LimitIP=(?), LimitMAC=(?), LimitPCMode=(?), LimitPC=(?), "
        "AllowStats=(?), userid=(?), Pwd=(?) WHERE login=(?)",
        login.limitIp,
        login.limitMac,
        LimitMode(login),
        LimitOn(login),
        quint32 {login.allowStats},
        login.userId,
        login.digest,
        login.name);
}
