#include "exchange/stored_users.h"

#include "base/day.h"
#include "base/text.h"
#include "db/query.h"

#include <algorithm>

namespace {

// Every row of a query, handed on as it is read.
template <typename Take>
[[nodiscard]] bool ForEach(std::optional<Failure> &failure, const char *sqlText, const Take &take)
{
    if (!failure) {
        const auto rows = ReadAll(sqlText, take);
        if (!rows) {
            failure = rows.error();
        }
    }
    return !failure;
}

StoredUserRow UserIn(const Row &row)
{
    StoredUserRow user {.userId = row.Id<UserId>(1),
                        .name = row.Text(2),
                        .values = {},
                        .isBlocked = false,
                        .isMonitored = true,
                        .logins = {}};
    UserValues &values = user.values;
    values.workstation = row.Text(3);
    values.fullName = row.Text(4);
    values.description = row.Text(5);
    values.ipAddress = row.Text(6);
    values.macAddress = row.Text(7);
    values.groupId = row.Id<GroupId>(8);
    values.mode = row.Code<AccountingMode>(9);
    values.limits.traffic = WholeMegabytes {row.Integer(10)};
    values.limits.time = WholeHours {row.Integer(11)};
    values.limits.period = row.Code<LimitPeriod>(12);
    values.limits.timePeriod = row.Code<LimitPeriod>(13);
    values.limits.ownPrice = row.Flag(14);
    values.limits.price = row.Amount(15);
    return user;
}

class Reading
{
public:
    Result<StoredUsers> Read()
    {
        auto users = ReadAll("SELECT user_id, username, stationname, fullname, descrip, ip_addr, "
                             "mac_addr, group_id, mode, traflim, timelim, trafperiod, timeperiod, "
                             "own_price, trafprice FROM users ORDER BY user_id",
                             UserIn);
        if (!users) {
            return tl::unexpected(users.error());
        }
        stored.users = *std::move(users);
        for (size_t place = 0; place < stored.users.size(); ++place) {
            places.insert(stored.users[place].userId, place);
        }
        ReadFlags();
        ReadGroups();
        ReadLogins();
        ReadCredits();
        ReadBlockedRecords();
        if (failure) {
            return tl::unexpected(*failure);
        }
        return std::move(stored);
    }

private:
    // Null for a user that came meanwhile.
    StoredUserRow *UserOf(UserId userId)
    {
        const auto place = places.constFind(userId);
        return place == places.constEnd() ? nullptr : &stored.users[*place];
    }

    void ReadFlags()
    {
        (void)ForEach(failure,
                      "SELECT user_id, blocked, blockreason, authreq, monitored FROM users",
                      [this](const Row &row) {
                          if (StoredUserRow *user = UserOf(row.Id<UserId>(1))) {
                              user->isBlocked = row.Flag(2);
                              user->values.blocked = user->isBlocked
                                  && row.Code<BlockReason>(3) == BlockReason::Administrator;
                              user->values.authRequired = row.Integer(4) != 0;
                              user->isMonitored = row.Flag(5);
                          }
                          return true;
                      });
    }

    void ReadGroups()
    {
        QHash<GroupId, QString> names;
        (void)ForEach(
            failure, "SELECT name, group_id FROM groups ORDER BY group_id", [&](const Row &row) {
                stored.groups.append({row.Text(1), row.Id<GroupId>(2)});
                names.insert(row.Id<GroupId>(2), row.Text(1));
                return true;
            });
        for (StoredUserRow &user : stored.users) {
            user.values.groupName = names.value(user.values.groupId);
        }
    }

    void ReadLogins()
    {
        (void)ForEach(failure, "SELECT login, userid, Pwd FROM logins", [this](const Row &row) {
            const StoredLogin login {row.Text(1), row.Id<UserId>(2), row.Text(3)};
            stored.logins.insert(NameKey(login.name), login);
            if (StoredUserRow *user = UserOf(login.userId)) {
                user->logins << login.name;
                user->values.login = login.name;
            }
            return true;
        });
        for (StoredLogin &login : stored.logins) {
            if (UserOf(login.userId) == nullptr) { // other programs store -1, or the user is gone
                login.userId = {};
            }
        }
    }

    void ReadCredits()
    {
        (void)ForEach(
            failure,
            "SELECT object_id, moneydata, data, unlimited, expiredday FROM billing WHERE mode = 2 "
            "and closed = 0 ORDER BY date, bill_id",
            [this](const Row &row) {
                const auto userId = row.Id<UserId>(1);
                const PrePaidCredit credit {BaseUnits {row.Amount(2)},
                                            {},
                                            Megabytes {row.Amount(3)},
                                            {},
                                            {row.Integer(4) != 0, row.Text(5)}};
                const auto first = stored.credits.constFind(userId);
                const bool isFirst =
                    first == stored.credits.constEnd() || first->expiry.IsOver(Today());
                if (userId.IsSet() && isFirst) {
                    stored.credits.insert(userId, credit);
                }
                return true;
            });
    }

    void ReadBlockedRecords()
    {
        for (const char *sqlText :
             {"SELECT user_id FROM traffic_use WHERE period > 0 and blocked = true",
              "SELECT user_id FROM time_use WHERE period > 0 and blocked = true"}) {
            (void)ForEach(failure, sqlText, [this](const Row &row) {
                stored.blockedRecords.insert(row.Id<UserId>(1), true);
                return true;
            });
        }
    }

    StoredUsers stored;
    QHash<UserId, size_t> places; // in stored.users
    std::optional<Failure> failure; // the first one
};

} // namespace

Result<StoredUsers> ReadStoredUsers()
{
    return Reading().Read();
}
