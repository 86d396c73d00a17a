#include "access/block_state.h"

BlockState UserBlockState(bool blocked, BlockReason reason)
{
    return {.blocked = blocked,
            .reason = reason,
            .requested = blocked && reason != BlockReason::ShownAsAllowed,
            .editable = !blocked || reason >= BlockReason::Administrator};
}

BlockState GroupBlockState(bool blocked, BlockReason reason)
{
    return {.blocked = blocked,
            .reason = reason,
            .requested = blocked,
            .editable = !blocked || reason == BlockReason::Administrator};
}

bool MayBeLifted(const BlockState &block, BlockReason reasonNow)
{
    return block.blocked && reasonNow != BlockReason::Administrator;
}
