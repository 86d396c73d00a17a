// The commands that begin with "restriction": which protocols a user or a group may use.
#include "access/protocol_choice.h"
#include "cli/command.h"
#include "cli/numbers.h"
#include "cli/owner_sheets.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QList<Column> kColumns {{"owner", "Of"},
                              {"id", "Number"},
                              {"name", "Name"},
                              {"access", "Selected protocols"},
                              {"selected", "Selected"},
                              {"available", "Not selected"}};

Cell ListCell(const QStringList &names)
{
    return {QJsonArray::fromStringList(names), names.join(u", "_s)};
}

Or<void> ShowRestriction(Work &work, const Given &given)
{
    const auto owner = FindOwner(work, given);
    const auto choice = owner
        ? ReadOf(work, *owner, [whose = owner->owner] { return ReadProtocolChoice(whose); })
        : tl::unexpected(owner.error());
    if (!choice) {
        return tl::unexpected(choice.error());
    }
    work.Print(kColumns,
               {owner->owner.IsUser() ? u"user"_s : u"group"_s,
                owner->owner.Number(),
                owner->name,
                AccessWord(choice->allow),
                ListCell(choice->Names(true)),
                ListCell(choice->Names(false))});
    return {};
}

// A name in any letter case, unless there is one that is just so.
Or<void> Select(ProtocolChoice &choice, const QString &name, bool selected)
{
    const auto isCalled = [&name](Qt::CaseSensitivity sensitivity) {
        return [&name, sensitivity](const ChosenProtocol &protocol) {
            return protocol.name.compare(name, sensitivity) == 0;
        };
    };
    auto found = std::ranges::find_if(choice.protocols, isCalled(Qt::CaseSensitive));
    if (found == choice.protocols.end()) {
        found = std::ranges::find_if(choice.protocols, isCalled(Qt::CaseInsensitive));
    }
    if (found == choice.protocols.end()) {
        return StopWith(ExitStatus::Refused,
                        u"There is no protocol \"%1\"; \"tollbrook protocol list\" names them. "
                        "Nothing was changed."_s.arg(name));
    }
    if (selected && found->ports.empty()) {
        return StopWith(ExitStatus::Refused,
                        u"The protocol \"%1\" has no ports that could be restricted. "
                        "Nothing was changed."_s.arg(found->name));
    }
    choice.Select(found->name, selected);
    return {};
}

Or<void> Stage(const Given &given, const NamedOwner &owner, ProtocolChoice &choice)
{
    if (const auto word = given.Value(u"access"_s)) {
        const auto allow = AccessFrom(*word);
        if (!allow) {
            return tl::unexpected(allow.error());
        }
        choice.allow = *allow;
    }
    for (const bool selected : {true, false}) {
        for (const QString &name : given.Values(selected ? u"select"_s : u"release"_s)) {
            if (const auto done = Select(choice, name, selected); !done) {
                return done;
            }
        }
    }
    if (choice.allow == choice.storedAllow && !choice.ChangesPorts()) {
        return IsSoAlready(TextOf(owner));
    }
    return {};
}

Or<void> SetRestriction(Work &work, const Given &given)
{
    return FindOwner(work, given).and_then([&](const NamedOwner &owner) {
        const auto stage = [&](auto &sheet) { return Stage(given, owner, sheet.protocols); };
        return ChangeSheet(work, owner, stage).map([&](const Performed &performed) {
            work.Print(performed, u"The restrictions of %1 were changed."_s.arg(owner.name));
        });
    });
}

} // namespace

Commands RestrictionCommands()
{
    return {
        {"restriction show",
         "USER|--group GROUP",
         "Shows which protocols a user or a group may use, or may not.",
         0,
         1,
         {kOwnerGroup},
         ShowRestriction},
        {"restriction set",
         "USER|--group GROUP",
         "Changes which protocols a user or a group may use.",
         0,
         1,
         {kOwnerGroup,
          {"access", "allow|deny", "Whether the selected protocols are the only ones, or denied."},
          {"select", "PROTOCOL", "Selects a protocol; may be given for several."},
          {"release", "PROTOCOL", "Takes a protocol back; may be given for several."}},
         SetRestriction,
         true}};
}
