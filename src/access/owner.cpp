#include "access/owner.h"

#include "db/query.h"

namespace {

constexpr OwnerText kMode {"SELECT mode FROM users WHERE user_id = (?)",
                           "SELECT mode FROM groups WHERE group_id = (?)"};
constexpr OwnerText kName {"SELECT username FROM users WHERE user_id = (?)",
                           "SELECT name FROM groups WHERE group_id = (?)"};

} // namespace

Result<std::optional<AccountingMode>> ModeOf(const Owner &owner)
{
    return ReadOne(
        kMode.For(owner),
        [](const Row &row) { return row.Code<AccountingMode>(1); },
        owner.Number());
}

Result<std::optional<QString>> NameOf(const Owner &owner)
{
    return ReadOne(
        kName.For(owner), [](const Row &row) { return row.Text(1); }, owner.Number());
}
