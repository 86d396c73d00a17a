// Whose rights they are: a user's or a group's.
#pragma once

#include <QtGlobal>

struct Owner
{
    enum class Kind { User, Group };

    Kind kind = Kind::User;
    quint32 id = 0;

    bool operator==(const Owner &) const = default;
};

// The statement for this kind of owner; the two spellings differ in more than the table's name.
struct OwnerText
{
    const char *user;
    const char *group;

    [[nodiscard]] const char *For(const Owner &owner) const
    {
        return owner.kind == Owner::Kind::User ? user : group;
    }
};
