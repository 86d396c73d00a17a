// The commands that begin with "group".
#include "access/account_rules.h"
#include "access/group_list.h"
#include "access/group_record.h"
#include "access/list_commands.h"
#include "accounts/sheet_actions.h"
#include "cli/command.h"
#include "cli/numbers.h"
#include "cli/owners.h"
#include "cli/work.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

const QList<Column> kListColumns {{"id", "Number", true},
                                  {"name", "Name"},
                                  {"description", "Description"},
                                  {"blocked", "Blocked"},
                                  {"members", "Members", true}};

const QList<Column> kColumns {{"id", "Number"},
                              {"name", "Name"},
                              {"description", "Description"},
                              {"mode", "Mode"},
                              {"trafficLimit", "Traffic limit, MB"},
                              {"period", "Period"},
                              {"blocked", "Blocked"},
                              {"members", "Members"}};

Or<void> ListGroups(Work &work, const Given & /*given*/)
{
    const auto groups = work.Read(ReadAllGroups);
    if (!groups) {
        return tl::unexpected(groups.error());
    }
    Table table {kListColumns, {}};
    for (const CountedGroup &group : *groups) {
        table.rows << Cells {group.groupId.value,
                             group.row.name,
                             group.row.description,
                             group.row.blocked,
                             group.members};
    }
    work.Print(table);
    return {};
}

Or<GroupRecord> LoadRecord(Work &work, const Given &given)
{
    const auto group = FindGroup(work, given.Word(0));
    if (!group) {
        return tl::unexpected(group.error());
    }
    const auto record = work.Read([groupId = group->groupId] { return LoadGroup(groupId); });
    if (record && !*record) {
        return StopWith(ExitStatus::Refused,
                        u"Group %1 has been deleted meanwhile."_s.arg(group->name));
    }
    return record.map([](const auto &loaded) { return *loaded; });
}

Or<void> ShowGroup(Work &work, const Given &given)
{
    const auto record = LoadRecord(work, given);
    const auto groups = record ? work.Read(ReadAllGroups) : tl::unexpected(record.error());
    if (!groups) {
        return tl::unexpected(groups.error());
    }
    const GroupFields &fields = record->base;
    const Limits &limits = record->limits.stored;
    const bool isLimited = FieldsFor(fields.mode).traffic;
    const auto counted = std::ranges::find(*groups, record->groupId, &CountedGroup::groupId);
    work.Print(kColumns,
               {record->groupId.value,
                fields.name,
                fields.description,
                WordOf(fields.mode),
                isLimited ? Cell(limits.traffic.value) : Cell(),
                isLimited ? Cell(WordOf(limits.period)) : Cell(),
                record->block.stored.blocked,
                counted != groups->end() ? Cell(counted->members) : Cell()});
    return {};
}

// Done, as "Group Yard was renamed."
Or<void> PerformOn(Work &work, const Action &action, const QString &sentence)
{
    return work.Perform(action).map(
        [&](const Performed &performed) { work.Print(performed, sentence); });
}

Or<QString> NameOf(const QString &text)
{
    return StorableText(text.trimmed(), u"The name"_s);
}

Or<void> AddGroup(Work &work, const Given &given)
{
    const auto name = NameOf(given.Word(0));
    if (!name) {
        return tl::unexpected(name.error());
    }
    const auto added = std::make_shared<GroupId>();
    const auto performed = work.Perform(AddGroupAction(*name, added));
    return performed.map([&](const Performed &done) {
        work.Print(done,
                   u"Group %1 was added as #%2."_s.arg(*name, QString::number(added->value)),
                   {{u"id"_s, work.IsTrial() ? QJsonValue() : QJsonValue(qint64 {added->value})}});
    });
}

Or<void> RenameGroup(Work &work, const Given &given)
{
    const auto name = NameOf(given.Word(1));
    if (!name) {
        return tl::unexpected(name.error());
    }
    return FindGroup(work, given.Word(0)).and_then([&](const NamedGroup &group) -> Or<void> {
        if (const auto reason = WhyNotRenamed(group.groupId)) {
            return StopWith(ExitStatus::Refused, *reason);
        }
        return PerformOn(work,
                         RenameGroupAction(group.groupId, *name),
                         u"Group %1 is called %2 now."_s.arg(group.name, *name));
    });
}

Or<void> SetGroup(Work &work, const Given &given)
{
    const auto description = StorableText(*given.Value(u"description"_s), u"The description"_s);
    auto record = description ? LoadRecord(work, given) : tl::unexpected(description.error());
    if (!record) {
        return tl::unexpected(record.error());
    }
    record->draft.description = *description;
    if (record->draft == record->base) {
        return IsSoAlready(u"Group %1"_s.arg(record->base.name));
    }
    return PerformOn(work,
                     ApplyGroupAction(*record, CurrentRate(work.Settings())),
                     u"Group %1 was changed."_s.arg(record->base.name));
}

// As the box of the sheet's access page: a block for a limit cannot be changed there.
Or<void> RequestBlock(Work &work, const Given &given, bool block)
{
    auto record = LoadRecord(work, given);
    if (!record) {
        return tl::unexpected(record.error());
    }
    const QString &name = record->base.name;
    if (!record->block.editable) {
        return StopWith(
            ExitStatus::Refused,
            u"Group %1 is blocked for its limit. A higher limit or a credit lifts that. "
            "Nothing was changed."_s.arg(name));
    }
    record->block.requested = block;
    if (!record->block.IsClicked()) {
        return StopWith(ExitStatus::Refused,
                        (block ? u"Group %1 is blocked already. Nothing was changed."_s
                               : u"Group %1 is not blocked. Nothing was changed."_s)
                            .arg(name));
    }
    return PerformOn(work,
                     ApplyGroupAction(*record, CurrentRate(work.Settings())),
                     (block ? u"Group %1 was blocked with its members."_s
                            : u"Group %1 was unblocked with its members."_s)
                         .arg(name));
}

Or<void> BlockOne(Work &work, const Given &given)
{
    return RequestBlock(work, given, true);
}

Or<void> UnblockOne(Work &work, const Given &given)
{
    return RequestBlock(work, given, false);
}

Or<void> DeleteGroup(Work &work, const Given &given)
{
    const auto group = FindGroup(work, given.Word(0));
    if (!group) {
        return tl::unexpected(group.error());
    }
    if (const auto reason = WhyNotDeleted(group->name)) {
        return StopWith(ExitStatus::Refused, *reason);
    }
    return work.Confirm(DeleteGroupQuestion(group->name)).and_then([&]() -> Or<void> {
        const auto performed =
            work.Perform(DeleteGroupOfListAction(group->groupId), Work::Patience::Endless);
        return performed.map([&](const Performed &done) {
            work.Print(
                done,
                u"Group %1 was deleted; its members are in \"Everybody\"."_s.arg(group->name));
        });
    });
}

} // namespace

Commands GroupCommands()
{
    return {{"group list", "", "Lists the groups.", 0, 0, {}, ListGroups},
            {"group show", "GROUP", "Shows a group.", 1, 1, {}, ShowGroup},
            {"group add", "NAME", "Adds a group.", 1, 1, {}, AddGroup},
            {"group rename", "GROUP NAME", "Gives a group another name.", 2, 2, {}, RenameGroup},
            {"group set",
             "GROUP",
             "Changes the description of a group.",
             1,
             1,
             {{"description", "TEXT", "The description."}},
             SetGroup,
             true},
            {"group block", "GROUP", "Blocks a group and its members.", 1, 1, {}, BlockOne},
            {"group unblock", "GROUP", "Unblocks a group and its members.", 1, 1, {}, UnblockOne},
            {"group delete",
             "GROUP",
             "Deletes a group, after a question; its members move to \"Everybody\".",
             1,
             1,
             {},
             DeleteGroup}};
}
