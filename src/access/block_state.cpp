#include "access/block_state.h"

BlockMeaning MeaningOf(const StoredBlock &block)
{
    if (!block.blocked) {
        return BlockMeaning::None;
    }
    switch (block.reason) {
    case BlockReason::None:
    case BlockReason::TrafficUsedUp:
    case BlockReason::TimeUsedUp:
        return BlockMeaning::ByService;
    case BlockReason::Administrator:
        return BlockMeaning::ByAdministrator;
    case BlockReason::ShownAsAllowed:
        return BlockMeaning::ShownAsAllowed;
    }
    return BlockMeaning::Unknown;
}

bool Denies(BlockMeaning meaning)
{
    return meaning != BlockMeaning::None && meaning != BlockMeaning::ShownAsAllowed;
}

BlockState UserBlockState(const StoredBlock &stored)
{
    const BlockMeaning meaning = MeaningOf(stored);
    return {.stored = stored,
            .opened = Denies(meaning),
            .requested = Denies(meaning),
            .editable = meaning != BlockMeaning::ByService};
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
