#include "access/owner.h"

#include "db/session.h"

namespace {

constexpr OwnerText kMode {"SELECT mode FROM users WHERE user_id = (?)",
                           "SELECT mode FROM groups WHERE group_id = (?)"};
constexpr OwnerText kName {"SELECT username FROM users WHERE user_id = (?)",
                           "SELECT name FROM groups WHERE group_id = (?)"};

bool IsRead(const OwnerText &text, const Owner &owner)
{
    return RunQuery(text.For(owner), FetchMode::One, owner.Number()) != kQueryNoData;
}

} // namespace

std::optional<AccountingMode> ModeOf(const Owner &owner)
{
    return IsRead(kMode, owner) ? std::optional(queryResult.Code<AccountingMode>(1)) : std::nullopt;
}

std::optional<QString> NameOf(const Owner &owner)
{
    return IsRead(kName, owner) ? std::optional(queryResult.Text(1)) : std::nullopt;
}
