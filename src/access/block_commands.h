// Blocking and unblocking of chosen users at once, and taking that back.
#pragma once

#include "access/block_state.h"
#include "actions/action.h"
#include "db/ids.h"

#include <QStringList>

#include <memory>
#include <vector>

// A user whose block a command changed.
struct BlockChange
{
    UserId userId;
    StoredBlock before;
    StoredBlock after;

    bool operator==(const BlockChange &) const = default;
};

// Filled by a run that is done with the users that it changed.
using BlockChanges = std::shared_ptr<std::vector<BlockChange>>;

// Blocks those whom the administrator has not blocked yet. Users that are gone are left out; refused
// when none is left to be blocked.
[[nodiscard]] Action BlockUsersAction(const std::vector<UserId> &userIds,
                                      const BlockChanges &changed);

// Unblocks those whom the access page could unblock: a block by the service for a limit stays. Refused
// when there is none.
[[nodiscard]] Action UnblockUsersAction(const std::vector<UserId> &userIds,
                                        const BlockChanges &changed);

// Blocks and unblocks the users as they were before. Whose block is no longer as the change left it keeps
// it; `changedSince` gets the names of those users. Refused when that is everybody.
[[nodiscard]] Action UndoBlocksAction(const std::vector<BlockChange> &changes,
                                      const std::shared_ptr<QStringList> &changedSince);

// A user whose block is another one after an action, whatever action it was.
struct ChangedBlock
{
    UserId userId;
    bool byAdministrator =
        false; // blocked by it now; false: unblocked, blocked for a limit, or gone

    bool operator==(const ChangedBlock &) const = default;
};

// Of the changes that an outcome tells of.
[[nodiscard]] std::vector<ChangedBlock> ChangedBlocksIn(const QList<Change> &changes);
