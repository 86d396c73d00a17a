// The commands that begin with "time": at which times of the week a user or a group may send.
#include "access/stored_times.h"
#include "cli/command.h"
#include "cli/numbers.h"
#include "cli/owner_sheets.h"

#include <QJsonArray>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QList<Column> kOwnerColumns {
    {"owner", "Of"}, {"id", "Number"}, {"name", "Name"}, {"access", "In these times"}};
const QList<Column> kRangeColumns {
    {"range", "Range", true}, {"day", "Day"}, {"from", "From"}, {"until", "Until"}};

struct StoredTimes
{
    bool grant = false;
    std::vector<StoredRange> ranges;
};

Or<StoredTimes> ReadTimes(Work &work, const NamedOwner &owner)
{
    const auto grant = ReadOf(work, owner, [whose = owner.owner] { return ReadTimeAccess(whose); });
    const auto ranges = grant ? work.Read([whose = owner.owner] { return ReadTimeRanges(whose); })
                              : tl::unexpected(grant.error());
    return ranges.map([&](const std::vector<StoredRange> &stored) {
        return StoredTimes {*grant, stored};
    });
}

Table TableOf(const std::vector<StoredRange> &ranges)
{
    Table table {kRangeColumns, {}};
    for (const auto &[id, range] : ranges) {
        table.rows << Cells {id.value, WeekdayWord(range.day), range.start, range.stop};
    }
    return table;
}

Or<void> ShowTimes(Work &work, const Given &given)
{
    const auto owner = FindOwner(work, given);
    const auto times = owner ? ReadTimes(work, *owner) : tl::unexpected(owner.error());
    if (!times) {
        return tl::unexpected(times.error());
    }
    const Table ranges = TableOf(times->ranges);
    QList<Column> columns = kOwnerColumns;
    Cells cells {owner->owner.IsUser() ? u"user"_s : u"group"_s,
                 owner->owner.Number(),
                 owner->name,
                 AccessWord(times->grant)};
    if (work.IsJson()) {
        columns << Column {"ranges", "Ranges"};
        cells << Cell(JsonOf(ranges), QString());
    }
    work.Print(columns, cells);
    if (!work.IsJson() && ranges.rows.isEmpty()) {
        work.PrintLine(u"There are no times: nothing is restricted by them."_s);
    } else if (!work.IsJson()) {
        work.Print(ranges);
    }
    return {};
}

// `stage` changes the times as the page does, or says why it goes no further.
template <typename Stage>
Or<void> ChangeTimes(Work &work, const NamedOwner &owner, const Stage &stage)
{
    const auto perform = [&]() -> Or<Performed> {
        if (owner.owner.IsUser()) {
            return ChangeSheet(work, owner, [&](auto &sheet) { return stage(sheet.times); });
        }
        const auto grant =
            ReadOf(work, owner, [whose = owner.owner] { return ReadTimeAccess(whose); });
        TimeRanges times;
        times.Open(grant.value_or(false));
        return grant.and_then([&](bool) { return stage(times); }).and_then([&] {
            return work.Perform(ApplyGroupTimesAction(owner.owner.Group(), times));
        });
    };
    return perform().map([&](const Performed &performed) {
        work.Print(performed, u"The times of %1 were changed."_s.arg(owner.name));
    });
}

Or<void> TakeAccess(const Given &given, TimeRanges &times)
{
    const auto word = given.Value(u"access"_s);
    return word ? AccessFrom(*word).map([&times](bool allows) { times.grant = allows; })
                : Or<void>();
}

Or<QTime> TimeGiven(const Given &given, const QString &option)
{
    const auto text = given.Value(option);
    if (!text) {
        return WrongUse(u"Name the days with --day, and the time with --from and --until."_s);
    }
    return TimeOfDayFrom(*text);
}

// A range for each day that is named, all of the same time.
Or<QList<TimeRange>> RangesGiven(const Given &given)
{
    const auto from = TimeGiven(given, u"from"_s);
    const auto until = from ? TimeGiven(given, u"until"_s) : from;
    if (!until) {
        return tl::unexpected(until.error());
    }
    QList<TimeRange> ranges;
    for (const QString &word : given.Values(u"day"_s)) {
        const auto day = WeekdayFrom(word);
        if (!day) {
            return tl::unexpected(day.error());
        }
        ranges << TimeRange {*day, from->toString(u"HH:mm:ss"_s), until->toString(u"HH:mm:ss"_s)};
    }
    if (const auto problem = WhyNoRange(ranges.isEmpty() ? 0 : ranges.first().day, *from, *until)) {
        return StopWith(ExitStatus::Refused, *problem + u" Nothing was changed."_s);
    }
    return ranges;
}

Or<void> AddTimes(Work &work, const Given &given)
{
    const auto ranges = RangesGiven(given);
    const auto owner = ranges ? FindOwner(work, given) : tl::unexpected(ranges.error());
    if (!owner) {
        return tl::unexpected(owner.error());
    }
    return ChangeTimes(work, *owner, [&](TimeRanges &times) {
        for (const TimeRange &range : *ranges) {
            times.Add(range);
        }
        return TakeAccess(given, times);
    });
}

Or<void> SetTimes(Work &work, const Given &given)
{
    return FindOwner(work, given).and_then([&](const NamedOwner &owner) {
        return ChangeTimes(work, owner, [&](TimeRanges &times) -> Or<void> {
            const auto taken = TakeAccess(given, times);
            if (taken && times.grant == times.StoredGrant()) {
                return IsSoAlready(TextOf(owner));
            }
            return taken;
        });
    });
}

// Deletes the ranges of those numbers, of the listed ones.
Or<void>
DeleteRanges(TimeRanges &times, std::vector<StoredRange> listed, const QStringList &numbers)
{
    times.Rebuild(listed);
    for (const QString &number : numbers) {
        const auto found = std::ranges::find_if(listed, [&number](const StoredRange &each) {
            return QString::number(each.id.value) == number.trimmed();
        });
        if (found == listed.end()) {
            return StopWith(ExitStatus::Refused,
                            u"There is no range %1; \"tollbrook time show\" numbers them. "
                            "Nothing was changed."_s.arg(number));
        }
        times.Delete(static_cast<size_t>(found - listed.begin()));
        listed.erase(found);
    }
    return {};
}

Or<void> RemoveTimes(Work &work, const Given &given)
{
    const QStringList numbers =
        given.Value(u"range"_s).value_or(QString()).split(u',', Qt::SkipEmptyParts);
    if (numbers.isEmpty()) {
        return WrongUse(u"Name the ranges with --range, as \"time show\" numbers them."_s);
    }
    const auto owner = FindOwner(work, given);
    const auto stored = owner ? ReadTimes(work, *owner) : tl::unexpected(owner.error());
    if (!stored) {
        return tl::unexpected(stored.error());
    }
    return ChangeTimes(work, *owner, [&](TimeRanges &times) {
        return DeleteRanges(times, stored->ranges, numbers);
    });
}

} // namespace

Commands TimeCommands()
{
    const CommandOption access {
        "access",
        "allow|deny",
        "Whether these times are the only ones to send in, or none of them."};
    return {{"time show",
             "USER|--group GROUP",
             "Shows the times of the week that are allowed or denied to a user or a group.",
             0,
             1,
             {kOwnerGroup},
             ShowTimes},
            {"time add",
             "USER|--group GROUP",
             "Adds a time to one or several days of the week.",
             0,
             1,
             {kOwnerGroup,
              {"day", "DAY", "The day, as monday; may be given for several days."},
              {"from", "TIME", "When the time begins, as 08:00."},
              {"until", "TIME", "When it ends on the same day; 23:59 reaches midnight."},
              access},
             AddTimes},
            {"time set",
             "USER|--group GROUP",
             "Changes whether the times are allowed or denied.",
             0,
             1,
             {kOwnerGroup, access},
             SetTimes,
             true},
            {"time remove",
             "USER|--group GROUP",
             "Removes times of the week.",
             0,
             1,
             {kOwnerGroup, {"range", "NUMBERS", "The times, as \"time show\" numbers them: 4,7."}},
             RemoveTimes}};
}
