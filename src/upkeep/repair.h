// Mends what "check" finds wrong, where that loses nothing.
#pragma once

#include "upkeep/backup.h"

enum class RepairMode { Run, DryRun };

// Makes the backup, if there is anything to mend, and then mends all of it in one transaction, while nobody
// else is connected. `tell` hears of every row, with what it held. What asks for a person's decision is left
// as it is. The number of rows that were mended, or, in a dry run, which changes nothing, would be.
[[nodiscard]] Told<int> Repair(const BackupWish &backup, RepairMode mode, const Tell &tell);
