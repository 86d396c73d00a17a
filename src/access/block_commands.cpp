#include "access/block_commands.h"

#include "access/blocking.h"
#include "access/present_users.h"
#include "actions/action_run.h"
#include "db/query.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(BlockCommands)
};

struct BlockedUser
{
    StoredBlock block;
    QString name;
};

// Nothing for a user that is gone.
std::optional<BlockedUser> ReadBlock(ActionRun &run, UserId userId)
{
    return run.Take(ReadOne(
        "SELECT blocked, blockreason, username FROM users WHERE user_id = (?)",
        [](const Row &row) {
            return BlockedUser {{row.Flag(1), row.Code<BlockReason>(2)}, row.Text(3)};
        },
        userId));
}

// Unblocking leaves the reason of the block behind.
void RestoreReason(ActionRun &run, UserId userId, BlockReason reason)
{
    run.Write("UPDATE users SET blockreason = (?) WHERE user_id = (?)", reason, userId);
}

struct Command
{
    bool (*concerns)(const StoredBlock &block);
    void (*change)(ActionRun &run, UserId userId);
    StoredBlock (*after)(const StoredBlock &before);
    const char *nobody; // is concerned
};

constexpr Command kBlock {
    [](const StoredBlock &block) { return MeaningOf(block) != BlockMeaning::ByAdministrator; },
    [](ActionRun &run, UserId userId) { BlockUser(run, userId, BlockReason::Administrator); },
    [](const StoredBlock &) {
        return StoredBlock {true, BlockReason::Administrator};
    },
    QT_TRANSLATE_NOOP("BlockCommands",
                      "The administrator has blocked these users already. Nothing was changed.")};

constexpr Command kUnblock {
    [](const StoredBlock &block) {
        const BlockState shown = UserBlockState(block);
        return shown.opened && shown.editable;
    },
    [](ActionRun &run, UserId userId) { UnblockUser(run, userId); },
    [](const StoredBlock &before) {
        return StoredBlock {false, before.reason};
    },
    QT_TRANSLATE_NOOP(
        "BlockCommands",
        "The administrator has not blocked any of these users. A block for a limit is "
        "lifted by a higher limit or a credit. Nothing was changed.")};

void Run(ActionRun &run,
         const Command &command,
         const std::vector<UserId> &userIds,
         BlockChanges::element_type &changed)
{
    changed.clear();
    LockUsers(run, userIds);
    for (const UserId userId : PresentUsers(run, userIds)) {
        const auto user = ReadBlock(run, userId);
        if (user && command.concerns(user->block)) {
            command.change(run, userId);
            changed.push_back({userId, user->block, command.after(user->block)});
        }
    }
    if (changed.empty()) {
        run.Refuse(Words::tr(command.nobody));
    }
}

Action ActionOf(ActionId id,
                const Command &command,
                const std::vector<UserId> &userIds,
                const BlockChanges &changed)
{
    return {id,
            [&command, userIds, changed](ActionRun &run) { Run(run, command, userIds, *changed); }};
}

// The changes that still stand; the names of the users of the others, but for those who are gone.
std::vector<BlockChange>
StandingOf(ActionRun &run, const std::vector<BlockChange> &changes, QStringList &changedSince)
{
    changedSince.clear();
    std::vector<BlockChange> standing;
    for (const BlockChange &change : changes) {
        const auto user = ReadBlock(run, change.userId);
        if (user && user->block == change.after) {
            standing.push_back(change);
        } else if (user) {
            changedSince << user->name;
        }
    }
    return standing;
}

// The column's value after the change; nothing where it is as it was.
std::optional<QString> ValueAfter(const Change &change, const QString &column)
{
    for (const QString &value : change.after) {
        if (value.startsWith(column + u'=')) {
            return value.mid(column.size() + 1);
        }
    }
    return std::nullopt;
}

} // namespace

Action BlockUsersAction(const std::vector<UserId> &userIds, const BlockChanges &changed)
{
    return ActionOf(ActionId::BlockUsers, kBlock, userIds, changed);
}

Action UnblockUsersAction(const std::vector<UserId> &userIds, const BlockChanges &changed)
{
    return ActionOf(ActionId::UnblockUsers, kUnblock, userIds, changed);
}

Action UndoBlocksAction(const std::vector<BlockChange> &changes,
                        const std::shared_ptr<QStringList> &changedSince)
{
    std::vector<UserId> userIds(changes.size());
    std::ranges::transform(changes, userIds.begin(), &BlockChange::userId);
    return {ActionId::UndoBlocks, [changes, userIds, changedSince](ActionRun &run) {
                LockUsers(run, userIds);
                const std::vector<BlockChange> standing = StandingOf(run, changes, *changedSince);
                if (standing.empty()) {
                    run.Refuse(Words::tr(
                        "The block of these users was changed meanwhile. Nothing was undone."));
                    return;
                }
                for (const auto &[userId, before, after] : standing) {
                    if (before.blocked) {
                        BlockUser(run, userId, before.reason);
                    } else {
                        UnblockUser(run, userId);
                        RestoreReason(run, userId, before.reason);
                    }
                }
            }};
}

// A row that is blocked anew for the reason that it has kept tells of no reason. What the console writes so
// is the administrator's block alone.
std::vector<ChangedBlock> ChangedBlocksIn(const QList<Change> &changes)
{
    const QString administrator = QString::number(static_cast<quint32>(BlockReason::Administrator));
    std::vector<ChangedBlock> changed;
    for (const Change &change : changes) {
        const auto blocked = ValueAfter(change, u"blocked"_s);
        const auto reason = ValueAfter(change, u"blockreason"_s);
        const bool isGone = change.after.isEmpty();
        if (change.table == u"users"_s && (blocked || reason || isGone)) {
            const bool denies = !isGone && blocked.value_or(u"1"_s) != u"0"_s;
            changed.push_back({UserId {change.key.toUInt()},
                               denies && reason.value_or(administrator) == administrator});
        }
    }
    return changed;
}
