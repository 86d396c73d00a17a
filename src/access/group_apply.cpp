#include "access/group_apply.h"

#include "access/blocking.h"
#include "access/group_mode_step.h"
#include "db/session.h"

using namespace Qt::StringLiterals;

namespace {

int ReadBlocked(GroupId groupId)
{
    return RunQuery("SELECT blocked FROM groups WHERE group_id =(?)", FetchMode::One, groupId);
}

void ApplyBlock(const GroupRecord &record, const ServiceLink *link)
{
    if (!record.block.editable) {
        return;
    }
    if (record.block.requested) {
        BlockGroup(link, record.groupId, BlockReason::Administrator);
        return;
    }
    ReadBlocked(record.groupId);
    if (queryResult.Integer(1) == 1) {
        UnblockGroup(link, record.groupId);
    }
}

} // namespace

bool ApplyGroup(const GroupRecord &record, const ServiceLink *link, Prompt &prompt)
{
    if (ReadBlocked(record.groupId) == kQueryNoData) {
        prompt.Tell(u"This group has been deleted meanwhile. Nothing was changed."_s,
                    Prompt::Icon::Warning);
        return false;
    }
    record.members.Save();
    Execute("UPDATE groups SET name = (?), descrip = (?) WHERE group_id = (?)",
            record.name,
            record.description,
            record.groupId);
    ApplyBlock(record, link);
    SaveProtocolChoice(record.Self(), record.protocols);
    ApplyGroupMode(record, link);
    return true;
}
