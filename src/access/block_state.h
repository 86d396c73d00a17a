// Whether access is denied to a user or group, and what the access page stages of it.
#pragma once

#include "db/value_codes.h"

struct BlockState
{
    bool blocked = false; // as stored
    BlockReason reason = BlockReason::None; // as stored
    bool requested = false; // the state of the page's block box
    bool editable = false; // whether that box was enabled

    bool operator==(const BlockState &) const = default;
};

// As the access page opens for a user: a block by the service cannot be changed there, and reason 4
// shows as no block at all.
[[nodiscard]] BlockState UserBlockState(bool blocked, BlockReason reason);

// As the access page opens for a group: only a block by the administrator can be changed there.
[[nodiscard]] BlockState GroupBlockState(bool blocked, BlockReason reason);

// True when a raised limit or a credit may lift the block; `reasonNow` is read when it is lifted.
[[nodiscard]] bool MayBeLifted(const BlockState &block, BlockReason reasonNow);
