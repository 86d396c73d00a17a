// The usage record that the current accounting period of a user or group counts into.
#pragma once

#include <QtGlobal>

// The record's id, 0 when there is none, the last one's when there are several. `usagePeriod` is 0,
// 1 or 2 (db/value_codes.h); any other runs no statement and gives 0. Periods 0 and 1 look for
// today's record; period 2 for the owner's only one.
[[nodiscard]] quint32 FindUserTrafficRecord(quint32 userId, quint32 usagePeriod);
[[nodiscard]] quint32 FindUserTimeRecord(quint32 userId, quint32 usagePeriod);

// As above, by the group's own period: a day's record when that is a day, else the monthly one.
[[nodiscard]] quint32 FindGroupTrafficRecord(quint32 groupId);
