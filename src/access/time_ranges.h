// Times of the week of a user or group while its sheet is open: loaded, added and deleted ranges,
// and whether they grant or deny access.
#pragma once

#include "access/owner.h"
#include "access/time_range.h"

#include <QTime>

#include <optional>
#include <vector>

struct StoredRange
{
    RangeId id;
    TimeRange range;

    bool operator==(const StoredRange &) const = default;
};

// "Monday" to "Sunday" for 1 to 7, an empty text for any other number.
[[nodiscard]] QString DayName(quint32 day);

// What a person is told about a new range that ends before it began, so about one across midnight too, or
// has no day; nothing for one that is in order.
[[nodiscard]] std::optional<QString> WhyNoRange(quint32 day, QTime since, QTime until);

class TimeRanges
{
public:
    static constexpr size_t kMostLoaded = 1000;
    static constexpr size_t kMostAdded = 100;

    // With the stored access flag; nothing is added or deleted yet.
    void Open(bool storedGrant);

    // Lists the stored ranges that were not deleted here, then the added ones.
    void Rebuild(const std::vector<StoredRange> &stored);

    // What the list shows, in its order.
    [[nodiscard]] std::vector<TimeRange> Shown() const;

    // Appends a range. Kept: from the hundred-and-first added one on it is shown but not kept, so
    // it is not stored and the next Rebuild drops it.
    void Add(const TimeRange &range);

    // Deletes the range shown in that row.
    void Delete(size_t row);

    [[nodiscard]] const std::vector<TimeRange> &Added() const { return added; }
    [[nodiscard]] const std::vector<RangeId> &Deleted() const { return deleted; }
    [[nodiscard]] bool StoredGrant() const { return opened; }

    bool grant = false; // true: access is granted in these times; false: denied

private:
    enum class Source { Loaded, Added, NotKept };
    struct Row
    {
        Source source;
        RangeId id; // of a loaded range
        TimeRange range;
    };

    bool opened = false; // the flag as it was read
    std::vector<Row> rows;
    std::vector<TimeRange> added;
    std::vector<RangeId> deleted;
};

// Whether the owner's ranges grant access; nothing when its row is gone.
[[nodiscard]] Result<std::optional<bool>> ReadTimeAccess(const Owner &owner);

// The stored ranges, by day and start, at most 1000.
[[nodiscard]] Result<std::vector<StoredRange>> ReadTimeRanges(const Owner &owner);
