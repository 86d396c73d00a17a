#include "access/user_record.h"

#include "db/session.h"

namespace {

UserGeneral GeneralInBuffer()
{
    return {.fullName = queryResult.Text(1),
            .description = queryResult.Text(2),
            .userName = queryResult.Text(3),
            .ipAddress = queryResult.Text(4),
            .macAddress = queryResult.Text(5),
            .workstation = queryResult.Text(6),
            .login = {},
            .groupId = queryResult.Id<GroupId>(8),
            .groupName = queryResult.Text(9),
            .guest = queryResult.Integer(10) == 1};
}

// False when the user is gone. A user whose group is gone is still shown, without a group's name:
// its texts would otherwise be lost on OK.
bool ReadGeneral(UserRecord &record)
{
    if (RunQuery("SELECT users.fullname, users.descrip, users.username, users.ip_addr, "
                 "users.mac_addr, users.stationname, users.mode, users.group_id, groups.name, "
                 "users.virtual FROM users, groups WHERE user_id = (?) and "
                 "users.group_id = groups.group_id",
                 FetchMode::One,
                 record.userId)
            == kQueryNoData
        && RunQuery("SELECT fullname, descrip, username, ip_addr, mac_addr, stationname, mode, "
                    "group_id, '', users.virtual FROM users WHERE user_id = (?)",
                    FetchMode::One,
                    record.userId)
            == kQueryNoData) {
        return false;
    }
    record.saved = GeneralInBuffer();
    record.mode = queryResult.Code<AccountingMode>(7);
    RunQuery("SELECT login FROM logins WHERE userid = (?)", FetchMode::All, record.userId);
    record.saved.login = queryResult.Text(1);
    record.draft = record.saved;
    return true;
}

void ReadAccess(UserRecord &record)
{
    RunQuery("SELECT blocked FROM users WHERE user_id = (?)", FetchMode::All, record.userId);
    const bool blocked = queryResult.Integer(1) == 1;
    RunQuery("SELECT blocked, trafperiod, timeperiod, blockreason, authreq FROM users "
             "WHERE user_id = (?) ",
             FetchMode::All,
             record.userId);
    record.block = UserBlockState(blocked, queryResult.Code<BlockReason>(4));
    record.authRequired = queryResult.Integer(5) != 0;
}

} // namespace

std::optional<UserRecord> LoadUser(UserId userId)
{
    UserRecord record;
    record.userId = userId;
    if (!ReadGeneral(record)) {
        return std::nullopt;
    }
    ReadAccess(record);
    record.limits.stored = ReadLimits(record.Self());
    record.times.Open(record.Self());
    record.protocols = ReadProtocolChoice(record.Self());
    return record;
}
