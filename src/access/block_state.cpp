#include "access/block_state.h"

#include "db/value_codes.h"

BlockState UserBlockState(bool blocked, quint32 reason)
{
    return {.blocked = blocked,
            .reason = reason,
            .requested = blocked && reason != block_reason::kShownAsAllowed,
            .editable = !blocked || reason >= block_reason::kAdministrator};
}

BlockState GroupBlockState(bool blocked, quint32 reason)
{
    return {.blocked = blocked,
            .reason = reason,
            .requested = blocked,
            .editable = !blocked || reason == block_reason::kAdministrator};
}

bool MayBeLifted(const BlockState &block, quint32 reasonNow)
{
    return block.blocked && reasonNow != block_reason::kAdministrator;
}
