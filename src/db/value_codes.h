// The coded values of the shared tables. A stored code without a meaning here stays the number that
// it is: it is read, shown as what the rules say of "any other" and written back unchanged.
#pragma once

#include "db/ids.h"

#include <QtGlobal>

// users.mode and groups.mode
enum class AccountingMode : quint32 {
    NoControl = 0,
    Traffic = 1, // traffic limit per accounting period
    Provider = 2, // pre-paid credit
    Time = 4, // time limit per accounting period; users only
    TrafficAndTime = 5, // both limits; users only
};

// trafperiod and timeperiod of users and groups
enum class LimitPeriod : quint32 { None = 0, Day = 1, Month = 2 };

// traffic_use.period and time_use.period
enum class UsagePeriod : quint32 {
    Statistics = 0, // a day's record, read by statistics and reports
    Day = 1, // accounting record of a daily limit
    Month = 2, // accounting record of a monthly limit, one for each owner
};

// The records into which a limit of this period counts; they bear its code.
[[nodiscard]] constexpr UsagePeriod UsagePeriodOf(LimitPeriod limit)
{
    return static_cast<UsagePeriod>(limit);
}
static_assert(UsagePeriodOf(LimitPeriod::Day) == UsagePeriod::Day);
static_assert(UsagePeriodOf(LimitPeriod::Month) == UsagePeriod::Month);

// billing.mode
enum class BillingMode : quint32 {
    Traffic = 1, // extends a traffic limit
    Credit = 2, // pre-paid credit
    Time = 4, // extends a time limit
};

// blockreason of users and groups
enum class BlockReason : quint32 {
    None = 0,
    TrafficUsedUp = 1, // set by the service, as is the next
    TimeUsedUp = 2,
    Administrator = 3,
    ShownAsAllowed = 4,
};

// The built-in group "Everybody", into which users fall back.
inline constexpr GroupId kEverybodyGroup {80};
