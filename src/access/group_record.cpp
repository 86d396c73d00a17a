#include "access/group_record.h"

#include "db/session.h"

std::optional<GroupRecord> LoadGroup(GroupId groupId)
{
    GroupRecord record;
    record.groupId = groupId;
    if (RunQuery(
            "SELECT name, descrip, mode FROM groups WHERE group_id = (?)", FetchMode::One, groupId)
        == kQueryNoData) {
        return std::nullopt;
    }
    record.name = queryResult.Text(1);
    record.description = queryResult.Text(2);
    record.mode = queryResult.Code<AccountingMode>(3);
    record.members.Open(groupId);
    RunQuery(
        "SELECT blocked, blockreason FROM groups WHERE group_id = (?) ", FetchMode::All, groupId);
    record.block = GroupBlockState(queryResult.Integer(1) == 1, queryResult.Code<BlockReason>(2));
    record.limits.stored = ReadLimits(record.Self());
    record.times.Open(record.Self());
    record.protocols = ReadProtocolChoice(record.Self());
    return record;
}
