#include "access/block_state.h"

BlockState UserBlockState(const StoredBlock &stored)
{
    const bool shown = stored.blocked && stored.reason != BlockReason::ShownAsAllowed;
    return {.stored = stored,
            .opened = shown,
            .requested = shown,
            .editable = !stored.blocked || stored.reason >= BlockReason::Administrator};
}

BlockState GroupBlockState(const StoredBlock &stored)
{
    return {.stored = stored,
            .opened = stored.blocked,
            .requested = stored.blocked,
            .editable = !stored.blocked || stored.reason == BlockReason::Administrator};
}

bool MayBeLifted(const StoredBlock &block)
{
    return block.blocked && block.reason != BlockReason::Administrator;
}
