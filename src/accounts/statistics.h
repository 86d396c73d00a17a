// What a user or a group has used: in the current accounting period, overall, and day by day.
#pragma once

#include "access/owner.h"
#include "db/failure.h"
#include "db/quantities.h"

#include <QDate>
#include <QString>

#include <optional>
#include <vector>

// The current accounting period; what the owner's mode does not limit stays at zero.
struct PeriodUsage
{
    bool limitsTraffic = false;
    bool limitsTime = false;
    Megabytes received;
    Megabytes sent; // 0 for a group
    Hours hours; // 0 for a group
    Megabytes creditMegabytes; // used of the credits that extend the traffic limit
    Hours creditHours; // used of the credits that extend the time limit
};

struct UsageStatistics
{
    PeriodUsage period;
    Megabytes received; // overall
    Megabytes sent;
};

// Nothing when there is no such user or group any more. Overall: the day records of the user, or of
// all members of the group.
[[nodiscard]] Result<std::optional<UsageStatistics>> ReadStatistics(const Owner &owner);

// One sentence on how much of the period's usage was taken from credits.
[[nodiscard]] QString StatisticsTip(const Owner &owner, const PeriodUsage &period);

struct DailyTraffic
{
    QDate day;
    Megabytes received;
    Megabytes sent;
};

constexpr int kChartDays = 30;

// The last 30 days, today last, from the day records of the user or of all the group's members. A
// day without a record counts as zero.
[[nodiscard]] Result<std::vector<DailyTraffic>> ReadDailyTraffic(const Owner &owner);
