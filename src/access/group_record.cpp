#include "access/group_record.h"

#include "access/load_steps.h"
#include "access/stored_group.h"
#include "access/stored_protocols.h"
#include "db/query.h"

#include <utility>

namespace {

Result<bool> ReadGeneral(GroupRecord &record)
{
    return TakeFound(
        ReadOne(
            "SELECT name, descrip, mode FROM groups WHERE group_id = (?)",
            [](const Row &row) {
                return GroupFields {row.Text(1), row.Text(2), row.Code<AccountingMode>(3)};
            },
            record.groupId),
        [&](GroupFields fields) { record.base = std::move(fields); });
}

Result<bool> IsStillThere(GroupRecord &record)
{
    return Exists("SELECT blocked FROM groups WHERE group_id =(?)", record.groupId);
}

Result<bool> ReadListedMembers(GroupRecord &record)
{
    return ReadMembers(record.groupId).map([&](std::vector<Member> members) {
        record.members.Open(record.groupId, std::move(members));
        return true;
    });
}

Result<bool> ReadBlock(GroupRecord &record)
{
    return TakeFound(ReadOne(
                         "SELECT blocked, blockreason FROM groups WHERE group_id = (?) ",
                         [](const Row &row) {
                             return StoredBlock {row.Integer(1) == 1, row.Code<BlockReason>(2)};
                         },
                         record.groupId),
                     [&](const StoredBlock &stored) { record.block = GroupBlockState(stored); });
}

Result<bool> ReadStoredLimits(GroupRecord &record)
{
    return TakeFound(ReadLimits(record.Self()),
                     [&](const Limits &limits) { record.limits.stored = limits; });
}

Result<bool> ReadTimes(GroupRecord &record)
{
    return TakeFound(ReadTimeAccess(record.Self()), [&](bool grant) { record.times.Open(grant); });
}

Result<bool> ReadProtocols(GroupRecord &record)
{
    return TakeFound(ReadProtocolChoice(record.Self()),
                     [&](ProtocolChoice choice) { record.protocols = std::move(choice); });
}

Result<bool> ReadProtocolsNow(GroupRecord &record)
{
    return TakeFound(ReadProtocolsToStore(record.Self()),
                     [&](ProtocolChoice choice) { record.protocols = std::move(choice); });
}

Result<std::optional<GroupRecord>> Load(GroupId groupId,
                                        std::initializer_list<LoadStep<GroupRecord>> steps)
{
    GroupRecord record;
    record.groupId = groupId;
    auto loaded = LoadBySteps(std::move(record), steps);
    if (loaded && *loaded) {
        (*loaded)->draft = (*loaded)->base;
    }
    return loaded;
}

} // namespace

Result<std::optional<GroupRecord>> LoadGroup(GroupId groupId)
{
    return Load(groupId,
                {&ReadGeneral,
                 &ReadListedMembers,
                 &ReadBlock,
                 &ReadStoredLimits,
                 &ReadTimes,
                 &ReadProtocols});
}

Result<std::optional<GroupRecord>> ReadGroupToStore(GroupId groupId)
{
    return Load(groupId,
                {&IsStillThere, &ReadGeneral, &ReadBlock, &ReadStoredLimits, &ReadProtocolsNow});
}
