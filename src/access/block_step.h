// What becomes of a block when a sheet is stored.
#pragma once

#include "access/block_state.h"
#include "access/settle.h"

enum class BlockStep { Leave, Block, Unblock };

// As the block box says, where it was open. Where the block was changed by somebody else since the
// sheet opened, a box that was not clicked changes nothing, and a click is asked about.
[[nodiscard]] BlockStep
StepFor(const BlockState &sheet, const StoredBlock &now, const Settler &settle);

// The block as it is after the step.
[[nodiscard]] StoredBlock After(BlockStep step, const StoredBlock &now);
