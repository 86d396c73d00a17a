// Whom a command is for: found by what was typed, or why nobody, or not one alone, was.
#pragma once

#include "access/access_facts.h"
#include "access/group_list.h"
#include "access/many_users.h"
#include "access/owner.h"
#include "accounts/currency.h"
#include "cli/command.h"
#include "cli/table.h"

// One user, or those of all words, each once.
[[nodiscard]] Or<NamedUser> FindUser(Work &work, const QString &text);
[[nodiscard]] Or<std::vector<NamedUser>> FindUsers(Work &work, const QStringList &texts);

[[nodiscard]] Or<NamedGroup> FindGroup(Work &work, const QString &text);

struct NamedOwner
{
    Owner owner;
    QString name;
};

// Of commands for a user or a group: the group of the option --group, else the user of the first word.
[[nodiscard]] Or<NamedOwner> FindOwner(Work &work, const Given &given);

// The option that FindOwner looks at.
inline constexpr CommandOption kOwnerGroup {
    .name = "group", .value = "GROUP", .about = "A group instead of a user.", .saysWhose = true};

// "User anna" or "Group Yard", for the beginning of a sentence.
[[nodiscard]] QString TextOf(const NamedOwner &owner);

[[nodiscard]] QStringList NamesOf(const std::vector<NamedUser> &users);
[[nodiscard]] std::vector<UserId> IdsOf(const std::vector<NamedUser> &users);

// What an account has used and has left, and in what unit; money in the currency. Three cells.
[[nodiscard]] Cells UseCells(const std::optional<AccountUse> &use, const Currency &currency);

// Words that a command was given and does not take besides.
[[nodiscard]] inline tl::unexpected<Stop> WrongUse(const QString &text)
{
    return StopWith(ExitStatus::WrongUse, text);
}
