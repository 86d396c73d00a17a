#include "access/group_name.h"

#include "access/group_gone.h"
#include "access/group_list.h"
#include "base/text.h"
#include "db/group_keys.h"
#include "db/query.h"
#include "db/value_codes.h"

#include <QCoreApplication>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(GroupName)
};

QString AsStored(const QString &name)
{
    return TextFromUtf8(Utf8Cut(name, kMaxTextBytes).toStdString());
}

// A key of a name that its group no longer has was left by a program that does not know of keys.
void FreeForgottenKey(ActionRun &run, const QString &key)
{
    const auto holders = run.Take(ReadAll(
        "SELECT name, group_id FROM groups WHERE name_key = (?)",
        [](const Row &row) {
            return NamedGroup {row.Text(1), row.Id<GroupId>(2)};
        },
        key));
    for (const NamedGroup &holder : holders) {
        if (GroupKey(holder.name) != key) {
            run.Write("UPDATE groups SET name_key = NULL WHERE group_id = (?)", holder.groupId);
        }
    }
}

} // namespace

QString NoGroupNameText()
{
    return Words::tr("Please enter the name of the group");
}

QString GroupNameTakenText()
{
    return Words::tr("The group with this name already exists!");
}

// "Everybody" is locked, which is always there unless somebody deleted it; then it is the first group.
void LockToNameGroup(ActionRun &run, std::vector<GroupId> groupIds)
{
    groupIds.push_back(kEverybodyGroup);
    LockGroups(run, groupIds);
    if (!run.Take(Exists("SELECT group_id FROM groups WHERE group_id = (?)", kEverybodyGroup))) {
        const auto first = run.Take(ReadOne("SELECT MIN(group_id) FROM groups",
                                            [](const Row &row) { return row.Id<GroupId>(1); }));
        LockGroups(run, {first.value_or(kEverybodyGroup)});
    }
}

void RefuseBadGroupName(ActionRun &run, const QString &name, std::optional<GroupId> own)
{
    const QString key = NameKey(AsStored(name));
    if (key.isEmpty()) {
        run.Refuse(NoGroupNameText());
        return;
    }
    const auto others = run.Take(ReadAll("SELECT name, group_id FROM groups", [](const Row &row) {
        return NamedGroup {row.Text(1), row.Id<GroupId>(2)};
    }));
    const bool isTaken = std::ranges::any_of(others, [&](const NamedGroup &other) {
        return other.groupId != own && NameKey(other.name) == key;
    });
    if (isTaken) {
        run.Refuse(GroupNameTakenText());
    }
}

void ClaimGroupName(ActionRun &run, const QString &name, GroupId groupId)
{
    const QString key = GroupKey(AsStored(name));
    if (run.IsStopped() || key.isEmpty()
        || run.Take(OpenedSchemaVersion())
            < kGroupKeysVersion) { // older tables are worked with, too
        return;
    }
    FreeForgottenKey(run, key);
    run.WriteUnique(GroupNameTakenText(),
                    "UPDATE groups SET name_key = (?) WHERE group_id = (?)",
                    key,
                    groupId);
}
