// The coded values of the shared tables.
#pragma once

#include <QtGlobal>

// users.mode and groups.mode
namespace mode {
constexpr quint32 kNoControl = 0;
constexpr quint32 kTraffic = 1; // traffic limit per accounting period
constexpr quint32 kProvider = 2; // pre-paid credit
constexpr quint32 kTime = 4; // time limit per accounting period; users only
constexpr quint32 kTrafficAndTime = 5; // both limits; users only
} // namespace mode

// trafperiod and timeperiod of users and groups
namespace period {
constexpr quint32 kDay = 1;
constexpr quint32 kMonth = 2;
} // namespace period

// traffic_use.period and time_use.period
namespace usage_period {
constexpr quint32 kStatistics = 0; // a day's record, read by statistics and reports
constexpr quint32 kDay = 1; // accounting record of a daily limit
constexpr quint32 kMonth = 2; // accounting record of a monthly limit, one for each owner
} // namespace usage_period

// billing.mode
namespace billing_mode {
constexpr quint32 kTraffic = 1; // extends a traffic limit
constexpr quint32 kCredit = 2; // pre-paid credit
constexpr quint32 kTime = 4; // extends a time limit
} // namespace billing_mode

// blockreason of users and groups; 1 and 2 are set by the service when a limit is used up
namespace block_reason {
constexpr quint32 kAdministrator = 3;
constexpr quint32 kShownAsAllowed = 4;
} // namespace block_reason

// The built-in group "Everybody", into which users fall back.
constexpr quint32 kEverybodyGroup = 80;
