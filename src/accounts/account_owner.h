// Whose account it is: a user's or a group's.
#pragma once

#include <QString>

#include <optional>

struct AccountOwner
{
    enum class Kind { User, Group };

    Kind kind = Kind::User;
    quint32 id = 0;

    [[nodiscard]] bool IsUser() const { return kind == Kind::User; }
    bool operator==(const AccountOwner &) const = default;
};

[[nodiscard]] constexpr AccountOwner UserAccount(quint32 userId)
{
    return {AccountOwner::Kind::User, userId};
}

[[nodiscard]] constexpr AccountOwner GroupAccount(quint32 groupId)
{
    return {AccountOwner::Kind::Group, groupId};
}

// The owner's accounting mode (db/value_codes.h); nothing when there is no such row any more.
[[nodiscard]] std::optional<quint32> ModeOf(const AccountOwner &owner);

// The user's or group's name; empty when there is no such row any more.
[[nodiscard]] QString NameOf(const AccountOwner &owner);

// True for the modes that limit traffic or time, or both, within an accounting period.
[[nodiscard]] bool IsLimitMode(quint32 ownerMode);
