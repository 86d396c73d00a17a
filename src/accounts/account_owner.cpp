#include "accounts/account_owner.h"

#include "db/session.h"
#include "db/value_codes.h"

std::optional<quint32> ModeOf(const AccountOwner &owner)
{
    const char *text = owner.IsUser() ? "SELECT mode FROM users WHERE user_id = (?)"
                                      : "SELECT mode FROM groups WHERE group_id = (?)";
    if (RunQuery(text, FetchMode::One, owner.id) == kQueryNoData) {
        return std::nullopt;
    }
    return queryResult.Integer(1);
}

QString NameOf(const AccountOwner &owner)
{
    RunQuery(owner.IsUser() ? "SELECT username FROM users WHERE user_id = (?)"
                            : "SELECT name FROM groups WHERE group_id = (?)",
             FetchMode::One,
             owner.id);
    return queryResult.Text(1);
}

bool IsLimitMode(quint32 ownerMode)
{
    return ownerMode == mode::kTraffic || ownerMode == mode::kTime
        || ownerMode == mode::kTrafficAndTime;
}
