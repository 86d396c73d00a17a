#include "access/time_ranges.h"

#include "db/query.h"

#include <QCoreApplication>
#include <QStringList>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(TimeRanges)
};

} // namespace

QString DayName(quint32 day)
{
    const QStringList names {Words::tr("Monday"),
                             Words::tr("Tuesday"),
                             Words::tr("Wednesday"),
                             Words::tr("Thursday"),
                             Words::tr("Friday"),
                             Words::tr("Saturday"),
                             Words::tr("Sunday")};
    return names.value(static_cast<qsizetype>(day) - 1);
}

std::optional<QString> WhyNoRange(quint32 day, QTime since, QTime until)
{
    if (since >= until) {
        return Words::tr("Wrong time specification. Please re-enter");
    }
    if (day == 0) {
        return Words::tr("Please select day");
    }
    return std::nullopt;
}

Result<std::optional<bool>> ReadTimeAccess(const Owner &owner)
{
    static constexpr OwnerText kFlag = {"SELECT TimeAccess FROM users WHERE user_id = (?) ",
                                        "SELECT TimeAccess FROM groups WHERE group_id = (?)"};
    return ReadOne(
        kFlag.For(owner), [](const Row &row) { return row.Flag(1); }, owner.Number());
}

Result<std::vector<StoredRange>> ReadTimeRanges(const Owner &owner)
{
    static constexpr OwnerText kList = {
        "SELECT dayofweek, timestart, timestop, tb_id FROM Time_blocked WHERE user_id = (?) "
        "ORDER BY dayofweek ASC, timestart ASC",
        "SELECT dayofweek, timestart, timestop, tb_id FROM Time_blocked WHERE group_id = (?) "
        "ORDER BY dayofweek ASC, timestart ASC"};
    return ReadUpTo(
        TimeRanges::kMostLoaded,
        kList.For(owner),
        [](const Row &row) {
            return StoredRange {row.Id<RangeId>(4), {row.Integer(1), row.Text(2), row.Text(3)}};
        },
        owner.Number());
}

void TimeRanges::Open(bool storedGrant)
{
    *this = {};
    opened = storedGrant;
    grant = storedGrant;
}

void TimeRanges::Rebuild(const std::vector<StoredRange> &stored)
{
    rows.clear();
    for (const StoredRange &each : stored) {
        if (std::ranges::find(deleted, each.id) == deleted.end()) {
            rows.push_back({Source::Loaded, each.id, each.range});
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
