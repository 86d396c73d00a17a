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

} // namespace

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
