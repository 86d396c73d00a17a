// Whether access is denied to a user or group, and what the access page stages of it.
#pragma once

#include "db/value_codes.h"

// The two columns of a user's or a group's row.
struct StoredBlock
{
    bool blocked = false;
    BlockReason reason = BlockReason::None; // kept from the last block while not blocked

    bool operator==(const StoredBlock &) const = default;
};

// What a stored block says of a user.
enum class BlockMeaning {
    None,
    ByService, // for a limit: any reason below the administrator's
    ByAdministrator,
    ShownAsAllowed, // marked as blocked, and let through all the same
    Unknown, // for a reason of no meaning
};

[[nodiscard]] BlockMeaning MeaningOf(const StoredBlock &block);

// Whether it denies access.
[[nodiscard]] bool Denies(BlockMeaning meaning);

struct BlockState
{
    StoredBlock stored; // as the sheet opened
    bool opened = false; // how the page's block box was checked then
    bool requested = false; // how it is checked now
    bool editable = false; // whether that box was enabled

    [[nodiscard]] bool IsClicked() const { return requested != opened; }
    bool operator==(const BlockState &) const = default;
};

// As the access page opens for a user: a block by the service cannot be changed there, and reason 4
// shows as no block at all.
[[nodiscard]] BlockState UserBlockState(const StoredBlock &stored);

// As the access page opens for a group: only a block by the administrator can be changed there.
[[nodiscard]] BlockState GroupBlockState(const StoredBlock &stored);

// True when a raised limit or a credit may lift the block: it is not the administrator's own.
[[nodiscard]] bool MayBeLifted(const StoredBlock &block);
