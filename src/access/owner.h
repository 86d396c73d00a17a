// A user or a group, where a rule holds for both.
#pragma once

#include <QString>

#include <optional>

struct Owner
{
    enum class Kind { User, Group };

    Kind kind = Kind::User;
    quint32 id = 0;

    [[nodiscard]] bool IsUser() const { return kind == Kind::User; }
    bool operator==(const Owner &) const = default;
};

[[nodiscard]] constexpr Owner UserOwner(quint32 userId)
{
    return {Owner::Kind::User, userId};
}

[[nodiscard]] constexpr Owner GroupOwner(quint32 groupId)
{
    return {Owner::Kind::Group, groupId};
}

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

// The owner's accounting mode (db/value_codes.h), its name; nothing when there is no such row.
[[nodiscard]] std::optional<quint32> ModeOf(const Owner &owner);
[[nodiscard]] std::optional<QString> NameOf(const Owner &owner);
