// The usage record that the current accounting period of a user or group counts into.
#pragma once

#include "db/failure.h"
#include "db/value_codes.h"

// The record, not set when there is none, the last one when there are several. Statistics and Day
// look for today's record; Month for the owner's only one; a period of no meaning runs no statement
// and finds none.
[[nodiscard]] Result<TrafficRecordId> FindUserTrafficRecord(UserId userId, UsagePeriod period);
[[nodiscard]] Result<TimeRecordId> FindUserTimeRecord(UserId userId, UsagePeriod period);

// As above, by the group's own period: a day's record when that is a day, else the monthly one.
[[nodiscard]] Result<TrafficRecordId> FindGroupTrafficRecord(GroupId groupId);
