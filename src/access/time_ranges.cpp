#include "access/time_ranges.h"

#include "db/session.h"

#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

QString DayName(quint32 day)
{
    static const QStringList kNames = {u"Monday"_s,
                                       u"Tuesday"_s,
                                       u"Wednesday"_s,
                                       u"Thursday"_s,
                                       u"Friday"_s,
                                       u"Saturday"_s,
                                       u"Sunday"_s};
    return kNames.value(static_cast<qsizetype>(day) - 1);
}

void TimeRanges::Open(const Owner &newOwner)
{
    static constexpr OwnerText kFlag = {"SELECT TimeAccess FROM users WHERE user_id = (?) ",
                                        "SELECT TimeAccess FROM groups WHERE group_id = (?)"};
    *this = {};
    owner = newOwner;
    RunQuery(kFlag.For(owner), FetchMode::All, owner.Number());
    grant = queryResult.Flag(1);
}

void TimeRanges::Rebuild()
{
    static constexpr OwnerText kList = {
        "SELECT dayofweek, timestart, timestop, tb_id FROM Time_blocked WHERE user_id = (?) "
        "ORDER BY dayofweek ASC, timestart ASC",
        "SELECT dayofweek, timestart, timestop, tb_id FROM Time_blocked WHERE group_id = (?) "
        "ORDER BY dayofweek ASC, timestart ASC"};
    rows.clear();
    LimitRows(kMostLoaded);
    RowCursor loaded(kList.For(owner), owner.Number());
    for (size_t count = 0; count < kMostLoaded && loaded.Next(); ++count) {
        const auto id = queryResult.Id<RangeId>(4);
        if (std::ranges::find(deleted, id) == deleted.end()) {
            rows.push_back({Source::Loaded,
                            id,
                            {queryResult.Integer(1), queryResult.Text(2), queryResult.Text(3)}});
        }
    }
    for (const TimeRange &range : added) {
        rows.push_back({Source::Added, {}, range});
    }
}

std::vector<TimeRange> TimeRanges::Shown() const
{
    std::vector<TimeRange> shown;
    shown.reserve(rows.size());
    std::ranges::transform(rows, std::back_inserter(shown), &Row::range);
    return shown;
}

void TimeRanges::Add(const TimeRange &range)
{
    const bool kept = added.size() < kMostAdded;
    rows.push_back({kept ? Source::Added : Source::NotKept, {}, range});
    if (kept) {
        added.push_back(range);
    }
}

void TimeRanges::Delete(size_t row)
{
    const auto gone = rows.begin() + static_cast<std::ptrdiff_t>(row);
    if (gone->source == Source::Loaded) {
        deleted.push_back(gone->id);
    } else if (gone->source == Source::Added) {
        added.erase(added.begin()
                    + std::ranges::count(rows.begin(), gone, Source::Added, &Row::source));
    }
    rows.erase(gone);
}

void TimeRanges::Save() const
{
    for (const TimeRange &range : added) {
        Execute("INSERT INTO Time_blocked (dayofweek, timestart, timestop, user_id) "
                "VALUES ((?),(?),(?),(?))",
                range.day,
                range.start,
                range.stop,
                owner.Number());
    }
    for (const RangeId id : deleted) {
        Execute("DELETE FROM Time_blocked WHERE tb_id = (?)", id);
    }
    Execute(grant ? "UPDATE users SET TimeAccess = true WHERE user_id = (?)"
                  : "UPDATE users SET TimeAccess = false WHERE user_id = (?)",
            owner.Number());
}
