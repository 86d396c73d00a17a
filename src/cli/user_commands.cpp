// The commands that begin with "user".
#include "access/block_commands.h"
#include "access/list_commands.h"
#include "access/user_record.h"
#include "accounts/sheet_actions.h"
#include "base/ipv4.h"
#include "base/mac_address.h"
#include "cli/command.h"
#include "cli/numbers.h"
#include "cli/owners.h"
#include "cli/user_listing.h"
#include "cli/work.h"
#include "exchange/one_user.h"

#include <memory>

using namespace Qt::StringLiterals;

namespace {

// "User anna was moved." or "3 users were moved."
QString Sentence(const std::vector<NamedUser> &users, const QString &done)
{
    return users.size() == 1 ? u"User %1 was %2."_s.arg(users.front().name, done)
                             : u"%1 users were %2."_s.arg(users.size()).arg(done);
}

// An empty text takes the address away.
Or<QString> AddressOf(const QString &text)
{
    const auto address = Ipv4From(text);
    if (!text.isEmpty() && address.value_or(0) == 0) {
        return WrongUse(u"\"%1\" is no IP address such as 10.1.2.3."_s.arg(text));
    }
    return address ? DottedText(*address) : QString();
}

Or<QString> HardwareOf(const QString &text)
{
    const auto mac = text.isEmpty() ? std::optional(text) : MacFrom(text);
    if (!mac) {
        return WrongUse(u"\"%1\" is no MAC address such as 00:11:22:33:44:AA."_s.arg(text));
    }
    return *mac;
}

const QList<CommandOption> kFields {
    {"full-name", "TEXT", "The full name."},
    {"description", "TEXT", "The description."},
    {"ip", "ADDRESS", "The IP address."},
    {"mac", "ADDRESS", "The MAC address."},
};
const CommandOption kGroup {"group", "GROUP", "The group to belong to."};

// Has `reader` read the option into `value`, where it is given.
template <typename Value, typename Reader>
Or<void> Take(const Given &given, const QString &option, const Reader &reader, Value &value)
{
    const auto text = given.Value(option);
    if (!text) {
        return {};
    }
    const Or<Value> read = reader(*text);
    return read.map([&value](const Value &taken) { value = taken; });
}

Or<QString> FullNameOf(const QString &text)
{
    return StorableText(text, u"The full name"_s);
}

Or<QString> DescriptionOf(const QString &text)
{
    return StorableText(text, u"The description"_s);
}

Or<NewUser> NewUserOf(Work &work, const Given &given)
{
    NewUser user {.name = given.Word(0).trimmed(),
                  .fullName = given.Value(u"full-name"_s).value_or(QString()),
                  .description = given.Value(u"description"_s).value_or(QString())};
    const auto ip = AddressOf(given.Value(u"ip"_s).value_or(QString()));
    const auto mac = HardwareOf(given.Value(u"mac"_s).value_or(QString()));
    if (!ip || !mac) {
        return tl::unexpected(ip ? mac.error() : ip.error());
    }
    user.ip = Ipv4From(*ip);
    user.mac = *mac;
    if (const auto group = given.Value(u"group"_s)) {
        const auto found = FindGroup(work, *group);
        if (!found) {
            return tl::unexpected(found.error());
        }
        user.group = *found;
    }
    return user;
}

Or<NewUserPlan> PlanOf(Work &work, const NewUser &user)
{
    const auto context = ReadImportContext(work.Settings());
    if (!context) {
        return StopWith(ExitStatus::Failed, context.error());
    }
    auto plan = work.Read([user, known = *context] { return PlanNewUser(user, known); });
    if (plan && !plan->refusal.isEmpty()) {
        return StopWith(ExitStatus::Refused, plan->refusal);
    }
    return plan;
}

Or<void> AddUser(Work &work, const Given &given)
{
    const auto user = NewUserOf(work, given);
    if (!user) {
        return tl::unexpected(user.error());
    }
    const auto plan = PlanOf(work, *user);
    if (!plan) {
        return tl::unexpected(plan.error());
    }
    const auto added = std::make_shared<UserId>();
    const auto performed = work.Perform(AddUserAction(*plan, added));
    if (!performed) {
        return tl::unexpected(performed.error());
    }
    const bool isKept = !work.IsTrial(); // else nobody has the number
    work.Print(*performed,
               u"User %1 was added as #%2."_s.arg(user->name, QString::number(added->value)),
               {{u"id"_s, isKept ? QJsonValue(qint64 {added->value}) : QJsonValue()}});
    return {};
}

Or<UserRecord> LoadRecord(Work &work, const NamedUser &user)
{
    const auto record = work.Read([userId = user.userId] { return LoadUser(userId); });
    if (record && !*record) {
        return StopWith(ExitStatus::Refused,
                        u"User %1 has been deleted meanwhile."_s.arg(user.name));
    }
    return record.map([](const auto &loaded) { return *loaded; });
}

Or<void> TakeFields(Work &work, const Given &given, UserFields &fields)
{
    NamedGroup group {fields.groupName, fields.groupId};
    const auto groupOf = [&work](const QString &text) { return FindGroup(work, text); };
    return Take(given, u"full-name"_s, FullNameOf, fields.fullName)
        .and_then([&] { return Take(given, u"description"_s, DescriptionOf, fields.description); })
        .and_then([&] { return Take(given, u"ip"_s, AddressOf, fields.ipAddress); })
        .and_then([&] { return Take(given, u"mac"_s, HardwareOf, fields.macAddress); })
        .and_then([&] { return Take(given, u"login-required"_s, FlagFrom, fields.authRequired); })
        .and_then([&] { return Take(given, u"group"_s, groupOf, group); })
        .map([&] {
            fields.groupId = group.groupId;
            fields.groupName = group.name;
        });
}

Or<void> SetUser(Work &work, const Given &given)
{
    const auto user = FindUser(work, given.Word(0));
    auto record = user ? LoadRecord(work, *user) : tl::unexpected(user.error());
    if (!record) {
        return tl::unexpected(record.error());
    }
    if (const auto taken = TakeFields(work, given, record->draft); !taken) {
        return taken;
    }
    if (record->draft == record->base) {
        return IsSoAlready(u"User %1"_s.arg(user->name));
    }
    const auto performed = work.Perform(ApplyUserAction(*record, CurrentRate(work.Settings())));
    return performed.map(
        [&](const Performed &done) { work.Print(done, Sentence({*user}, u"changed"_s)); });
}

// What the commands on several users have in common.
Or<void> ChangeUsers(Work &work,
                     const std::vector<NamedUser> &users,
                     const Action &action,
                     const QString &done,
                     Work::Patience patience = Work::Patience::Bounded)
{
    return work.Perform(action, patience).map([&](const Performed &performed) {
        work.Print(performed, Sentence(users, done));
    });
}

Or<void> BlockThem(Work &work,
                   const Given &given,
                   Action (*actionOn)(const std::vector<UserId> &, const BlockChanges &),
                   const QString &done)
{
    const auto users = FindUsers(work, given.Words());
    if (!users) {
        return tl::unexpected(users.error());
    }
    const auto changed = std::make_shared<std::vector<BlockChange>>();
    const auto performed = work.Perform(actionOn(IdsOf(*users), changed));
    return performed.map([&](const Performed &whole) {
        std::vector<NamedUser> concerned = *users; // others were blocked, or not blocked, already
        std::erase_if(concerned, [&changed](const NamedUser &user) {
            return std::ranges::find(*changed, user.userId, &BlockChange::userId) == changed->end();
        });
        work.Print(whole, Sentence(concerned, done));
    });
}

Or<void> BlockUsers(Work &work, const Given &given)
{
    return BlockThem(work, given, BlockUsersAction, u"blocked"_s);
}

Or<void> UnblockUsers(Work &work, const Given &given)
{
    return BlockThem(work, given, UnblockUsersAction, u"unblocked"_s);
}

Or<void> MoveUsers(Work &work, const Given &given)
{
    const auto name = given.Value(u"group"_s);
    if (!name) {
        return WrongUse(u"Name the group to move to with --group."_s);
    }
    const auto group = FindGroup(work, *name);
    if (!group) {
        return tl::unexpected(group.error());
    }
    return FindUsers(work, given.Words()).and_then([&](const std::vector<NamedUser> &users) {
        return ChangeUsers(work,
                           users,
                           MoveUsersAction(IdsOf(users), group->groupId),
                           u"moved to group %1"_s.arg(group->name));
    });
}

// Years of records may keep this waiting.
Or<void> DeleteUsers(Work &work, const Given &given)
{
    const auto users = FindUsers(work, given.Words());
    if (!users) {
        return tl::unexpected(users.error());
    }
    const Question question =
        DeleteUsersQuestion(NamesOf(*users), static_cast<qsizetype>(users->size()));
    return work.Confirm(question).and_then([&] {
        return ChangeUsers(
            work, *users, DeleteUsersAction(IdsOf(*users)), u"deleted"_s, Work::Patience::Endless);
    });
}

} // namespace

Commands UserCommands()
{
    constexpr int kMany = Command::kAnyNumber;
    return {
        {"user list",
         "[WORD...]",
         "Lists the users that match, as the find bar of the console finds them.",
         0,
         kMany,
         {{"accounts", nullptr, "Shows what each has used and has left."}},
         ListUsers},
        {"user show", "USER", "Shows a user, and why it may send or may not.", 1, 1, {}, ShowUser},
        {"user add",
         "NAME",
         "Adds a user with the profile that the settings give to new ones.",
         1,
         1,
         kFields + QList<CommandOption> {kGroup},
         AddUser},
        {"user set",
         "USER",
         "Changes texts, addresses, the group or the duty to log in of a user.",
         1,
         1,
         kFields
             + QList<CommandOption> {kGroup,
                                     {"login-required",
                                      "yes|no",
                                      "Whether the user must log in before sending."}},
         SetUser,
         true},
        {"user block", "USER...", "Blocks users.", 1, kMany, {}, BlockUsers},
        {"user unblock",
         "USER...",
         "Unblocks users whom the administrator has blocked.",
         1,
         kMany,
         {},
         UnblockUsers},
        {"user move",
         "USER... --group GROUP",
         "Moves users to a group.",
         1,
         kMany,
         {kGroup},
         MoveUsers},
        {"user delete",
         "USER...",
         "Deletes users and all that was counted for them, after a question.",
         1,
         kMany,
         {},
         DeleteUsers}};
}
