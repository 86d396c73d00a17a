#include "access/user_record.h"

#include "access/load_steps.h"
#include "db/query.h"

#include <utility>

namespace {

UserFields FieldsOf(const Row &row)
{
    return {.fullName = row.Text(1),
            .description = row.Text(2),
            .userName = row.Text(3),
            .ipAddress = row.Text(4),
            .macAddress = row.Text(5),
            .workstation = row.Text(6),
            .login = {},
            .groupId = row.Id<GroupId>(8),
            .groupName = row.Text(9),
            .guest = row.Integer(10) == 1,
            .mode = row.Code<AccountingMode>(7),
            .authRequired = false};
}

// A user whose group is gone is still shown: its texts would otherwise be lost on OK.
Result<std::optional<UserFields>> ReadFields(UserId userId)
{
    auto fields = ReadOne("SELECT users.fullname, users.descrip, users.username, users.ip_addr, "
                          "users.mac_addr, users.stationname, users.mode, users.group_id, "
                          "groups.name, users.virtual FROM users, groups WHERE user_id = (?) and "
                          "users.group_id = groups.group_id",
                          FieldsOf,
                          userId);
    if (!fields || *fields) {
        return fields;
    }
    return ReadOne("SELECT fullname, descrip, username, ip_addr, mac_addr, stationname, mode, "
                   "group_id, '', users.virtual FROM users WHERE user_id = (?)",
                   FieldsOf,
                   userId);
}

Result<bool> ReadGeneral(UserRecord &record)
{
    return TakeFound(ReadFields(record.userId),
                     [&](UserFields fields) { record.base = std::move(fields); });
}

// Of several logins the last one counts; a user need not have any.
Result<bool> ReadLogin(UserRecord &record)
{
    return ReadLast(
               "SELECT login FROM logins WHERE userid = (?)",
               [](const Row &row) { return row.Text(1); },
               record.userId)
        .map([&](const std::optional<QString> &login) {
            record.base.login = login.value_or(QString());
            return true;
        });
}

Result<bool> ReadBlocked(UserRecord &record)
{
    StoredBlock &stored = record.block.stored;
    return TakeFound(ReadOne(
                         "SELECT blocked FROM users WHERE user_id = (?)",
                         [](const Row &row) { return row.Integer(1) == 1; },
                         record.userId),
                     [&](bool blocked) { stored.blocked = blocked; });
}

Result<bool> ReadAccess(UserRecord &record)
{
    return TakeFound(ReadOne(
                         "SELECT blocked, trafperiod, timeperiod, blockreason, authreq FROM users "
                         "WHERE user_id = (?) ",
                         [](const Row &row) {
                             return std::pair {row.Code<BlockReason>(4), row.Integer(5) != 0};
                         },
                         record.userId),
                     [&](const auto &access) {
                         record.block = UserBlockState({record.block.stored.blocked, access.first});
                         record.base.authRequired = access.second;
                     });
}

Result<bool> ReadStoredLimits(UserRecord &record)
{
    return TakeFound(ReadLimits(record.Self()),
                     [&](const Limits &limits) { record.limits.stored = limits; });
}

Result<bool> ReadTimes(UserRecord &record)
{
    return TakeFound(ReadTimeAccess(record.Self()), [&](bool grant) { record.times.Open(grant); });
}

Result<bool> ReadProtocols(UserRecord &record)
{
    return TakeFound(ReadProtocolChoice(record.Self()),
                     [&](ProtocolChoice choice) { record.protocols = std::move(choice); });
}

} // namespace

Result<std::optional<UserRecord>> LoadUser(UserId userId)
{
    UserRecord record;
    record.userId = userId;
    auto loaded = LoadBySteps(std::move(record),
                              {&ReadGeneral,
                               &ReadLogin,
                               &ReadBlocked,
                               &ReadAccess,
                               &ReadStoredLimits,
                               &ReadTimes,
                               &ReadProtocols});
    if (loaded && *loaded) {
        (*loaded)->draft = (*loaded)->base;
    }
    return loaded;
}
