#include "metering/new_period.h"

#include "metering/account_changes.h"
#include "metering/batch.h"

#include <utility>

namespace {

Result<std::vector<UserId>> UsersWithAccounts()
{
    return ReadAll("SELECT user_id FROM users WHERE monitored = true and (mode <> 0 or "
                   "(blocked = true and blockreason IN (1, 2)))",
                   [](const Row &row) { return row.Id<UserId>(1); });
}

Result<std::vector<GroupId>> GroupsWithAccounts()
{
    return ReadAll("SELECT group_id FROM groups WHERE mode IN (1, 2)",
                   [](const Row &row) { return row.Id<GroupId>(1); });
}

Parts SettledParts(const std::vector<UserId> &users)
{
    Parts parts;
    for (const UserId user : users) {
        parts[user].isSettled = true;
    }
    return parts;
}

bool IsForUse(const StoredBlock &block)
{
    return block.blocked
        && (block.reason == BlockReason::TrafficUsedUp || block.reason == BlockReason::TimeUsedUp);
}

// What is to be written of some users, or groups, at once.
class Marks
{
public:
    static constexpr int kAtOnce = 1000; // rows of one transaction

    void Add(const Standing &user)
    {
        if (user.usedUp != BlockReason::None && !user.block.blocked) {
            changes.Block(user.user, user.usedUp);
            (user.usedUp == BlockReason::TimeUsedUp ? written.timeUsedUp : written.trafficUsedUp)
                .append(user.user);
            ++rows;
        } else if (user.usedUp == BlockReason::None && IsForUse(user.block)) {
            changes.Lift(user.user);
            written.lifted.append(user.user);
            ++rows;
        }
        if (user.timeMark != user.timeMarkNow) {
            changes.MarkTime(user.user, user.timeMarkNow);
            ++written.timeMarks;
            ++rows;
        }
    }

    void Add(GroupId id, const GroupStanding &group)
    {
        if (group.usedUp && !group.block.blocked) {
            changes.Block(id);
            written.groupsUsedUp.append(id);
            ++rows;
        } else if (!group.usedUp && IsForUse(group.block)) {
            changes.Lift(id);
            written.groupsLifted.append(id);
            ++rows;
        }
    }

    [[nodiscard]] bool AreMany() const { return rows >= kAtOnce; }

    Result<bool> Write()
    {
        if (std::exchange(rows, 0) == 0) {
            return true;
        }
        const AccountChanges now = std::exchange(changes, {});
        return books::InTransaction([&now](Books &books) { now.WriteBlocks(books); });
    }

    [[nodiscard]] const MarksWritten &Written() const { return written; }

private:
    AccountChanges changes;
    MarksWritten written;
    int rows = 0;
};

} // namespace

Result<Counted> SettleAccounts(const QDateTime &at, const Prices &prices)
{
    const auto users = UsersWithAccounts();
    if (!users) {
        return tl::unexpected(users.error());
    }
    const auto groups = GroupsWithAccounts();
    if (!groups) {
        return tl::unexpected(groups.error());
    }
    const Count nothing;
    return WriteParts(SettledParts(*users),
                      {nothing, prices, at.date(), {groups->begin(), groups->end()}});
}

Result<MarksWritten> WriteMarks(const Standings &standings)
{
    Marks marks;
    Result<bool> done = true;
    for (const Standing &user : standings.users) {
        marks.Add(user);
        if (marks.AreMany() && !(done = marks.Write())) {
            return tl::unexpected(done.error());
        }
    }
    for (const auto &[id, group] : standings.groups) {
        marks.Add(id, group);
    }
    done = marks.Write();
    if (!done) {
        return tl::unexpected(done.error());
    }
    return marks.Written();
}
