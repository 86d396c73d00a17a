// A user or a group, where a rule holds for both.
#pragma once

#include "db/failure.h"
#include "db/ids.h"
#include "db/value_codes.h"

#include <QString>

#include <optional>
#include <variant>

// Made from the id of either, without a cast since it says all there is to say, and gives it back as
// what it is.
class Owner
{
public:
    constexpr Owner() = default; // a user that is not set
    constexpr Owner(UserId userId) : id(userId) { }
    constexpr Owner(GroupId groupId) : id(groupId) { }

    [[nodiscard]] constexpr bool IsUser() const { return std::holds_alternative<UserId>(id); }

    // Each only of what it is.
    [[nodiscard]] constexpr UserId User() const { return std::get<UserId>(id); }
    [[nodiscard]] constexpr GroupId Group() const { return std::get<GroupId>(id); }

    // Of the user or of the group, for a statement chosen by OwnerText.
    [[nodiscard]] constexpr quint32 Number() const
    {
        return IsUser() ? User().value : Group().value;
    }

    bool operator==(const Owner &) const = default;

private:
    std::variant<UserId, GroupId> id;
};

// The statement for this kind of owner; the two spellings differ in more than the table's name.
struct OwnerText
{
    const char *user;
    const char *group;

    [[nodiscard]] const char *For(const Owner &owner) const
    {
        return owner.IsUser() ? user : group;
    }
};

// The owner's accounting mode, its name; nothing when there is no such row.
[[nodiscard]] Result<std::optional<AccountingMode>> ModeOf(const Owner &owner);
[[nodiscard]] Result<std::optional<QString>> NameOf(const Owner &owner);
