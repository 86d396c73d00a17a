#include "access/user_apply.h"

#include "access/blocking.h"
#include "access/user_mode_step.h"
#include "db/session.h"

using namespace Qt::StringLiterals;

namespace {

bool IsThere(UserId userId)
{
    return RunQuery("SELECT blocked FROM users WHERE user_id = (?)", FetchMode::One, userId)
        != kQueryNoData;
}

void ApplyGeneral(const UserRecord &record)
{
    Execute("UPDATE users SET fullname = (?), descrip = (?) WHERE user_id = (?)",
            record.draft.fullName,
            record.draft.description,
            record.userId);
    if (record.draft.groupId != record.saved.groupId) {
        Execute("UPDATE users SET group_id = (?)  WHERE user_id = (?)",
                record.draft.groupId,
                record.userId);
    }
}

// True when the address is free, or was freed by removing the user that held it.
bool TakeOver(const QString &address, UserId userId, const QString &question, Prompt &prompt)
{
    if (RunQuery("SELECT username, user_id FROM users WHERE ip_addr =(?) and user_id <>(?)",
                 FetchMode::One,
                 address,
                 userId)
        == kQueryNoData) {
        return true;
    }
    const auto holder = queryResult.Id<UserId>(2);
    if (!prompt.Ask(question)) {
        return false;
    }
    Execute("DELETE from users WHERE user_id=(?)", holder);
    return true;
}

void ApplyIpAddress(const UserRecord &record, Prompt &prompt)
{
    const QString question =
        u"This IP address is bind to another user. This user will be removed. Proceed?"_s;
    if (record.draft.ipAddress != record.saved.ipAddress
        && TakeOver(record.draft.ipAddress, record.userId, question, prompt)) {
        Execute("UPDATE users SET ip_addr = (?)  WHERE user_id = (?)",
                record.draft.ipAddress,
                record.userId);
    }
}

// Kept: the MAC text is looked for among the IP addresses, so that a conflict is never found.
void ApplyMacAddress(const UserRecord &record, Prompt &prompt)
{
    const QString question =
        u"This MAC address is bind to another user. This user will be removed. Proceed?"_s;
    if (record.draft.macAddress != record.saved.macAddress
        && TakeOver(record.draft.macAddress, record.userId, question, prompt)) {
        Execute("UPDATE users SET mac_addr = (?)  WHERE user_id = (?)",
                record.draft.macAddress,
                record.userId);
    }
}

void ApplyAuthentication(const UserRecord &record)
{
    Execute(record.authRequired ? "UPDATE users SET authreq = 1 WHERE user_id = (?)"
                                : "UPDATE users SET authreq = 0 WHERE user_id = (?)",
            record.userId);
}

// A block by the service that the page could only show asks for nothing: it would otherwise become
// the administrator's, and no limit could lift it.
void ApplyBlock(const UserRecord &record, const ServiceLink *link)
{
    if (!record.block.editable) {
        return;
    }
    if (record.block.requested) {
        BlockUser(link, record.userId, BlockReason::Administrator);
    } else {
        UnblockUser(link, record.userId);
    }
}

} // namespace

bool ApplyUser(const UserRecord &record, const ServiceLink *link, Prompt &prompt)
{
    if (!IsThere(record.userId)) {
        prompt.Tell(u"This user has been deleted meanwhile. Nothing was changed."_s,
                    Prompt::Icon::Warning);
        return false;
    }
    ApplyGeneral(record);
    ApplyIpAddress(record, prompt);
    ApplyMacAddress(record, prompt);
    record.times.Save();
    SaveProtocolChoice(record.Self(), record.protocols);
    ApplyAuthentication(record);
    ApplyUserMode(record, link);
    ApplyBlock(record, link);
    return true;
}
