// What a property sheet stores, as a command does it: the record is read, changed and stored as by the
// sheet's OK.
#pragma once

#include "access/group_record.h"
#include "access/user_record.h"
#include "accounts/sheet_actions.h"
#include "cli/owners.h"
#include "cli/work.h"

[[nodiscard]] inline Stop GoneStop(const NamedOwner &owner)
{
    return {ExitStatus::Refused,
            QStringLiteral("%1 has been deleted meanwhile.").arg(TextOf(owner))};
}

// What `load` reads of the owner, which may be gone.
template <typename Load>
[[nodiscard]] auto ReadOf(Work &work, const NamedOwner &owner, const Load &load)
    -> Or<typename std::invoke_result_t<Load>::value_type::value_type>
{
    return work.Read(load).and_then(
        [&owner](const auto &found) -> Or<typename std::decay_t<decltype(found)>::value_type> {
            if (!found) {
                return tl::unexpected(GoneStop(owner));
            }
            return *found;
        });
}

// `stage` changes the record, of either kind, or says why it goes no further.
template <typename Stage>
[[nodiscard]] Or<Performed> ChangeSheet(Work &work, const NamedOwner &named, const Stage &stage)
{
    const auto change = [&](auto record, const auto &actionOf) -> Or<Performed> {
        if (!record) {
            return tl::unexpected(record.error());
        }
        if (const Or<void> staged = stage(*record); !staged) {
            return tl::unexpected(staged.error());
        }
        return work.Perform(actionOf(*record, CurrentRate(work.Settings())));
    };
    const Owner owner = named.owner;
    return owner.IsUser()
        ? change(ReadOf(work, named, [owner] { return LoadUser(owner.User()); }), ApplyUserAction)
        : change(ReadOf(work, named, [owner] { return LoadGroup(owner.Group()); }),
                 ApplyGroupAction);
}
