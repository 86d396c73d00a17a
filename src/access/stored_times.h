// The times of the week of a user or a group, as they are written.
#pragma once

#include "access/time_ranges.h"
#include "actions/action.h"

class ActionRun;

// What becomes of the ranges, decided before anything is written.
struct TimesPlan
{
    std::vector<TimeRange> added;
    std::vector<RangeId> deleted;
    bool grant = false;

    [[nodiscard]] bool ChangesRanges() const { return !added.empty() || !deleted.empty(); }
};

// `storedGrant` is the flag as it is in the database now; one that was not touched stays so.
[[nodiscard]] TimesPlan PlanTimes(const TimeRanges &staged, bool storedGrant);

void WriteTimes(ActionRun &run, const Owner &owner, const TimesPlan &plan);

// Stores the times of a group, which its sheet does not show and ApplyGroup leaves alone. The service goes
// by them as by those of a user. Refused for a group that has been deleted meanwhile.
[[nodiscard]] Action ApplyGroupTimesAction(GroupId groupId, const TimeRanges &staged);
