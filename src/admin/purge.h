// Removing old usage, credit and site-access records.
#pragma once

#include "base/day.h"

#include <QString>

#include <optional>
#include <vector>

struct PurgeChoice
{
    enum class Keep { Nothing, Today, LastWeek, LastMonth, Custom };

    Keep keep = Keep::Nothing;
    bool deleteUsers = false; // with Keep::Nothing only
    QDate since; // with Keep::Custom: the first and
    QDate until; // the last day kept
};

// One statement of a purge, with the day it is bound to, if any.
struct PurgeStep
{
    const char *statement;
    const char *count; // counts the rows that the statement would remove
    const char *table;
    std::optional<Day> day;
};

// The statements in their order. A day may be an impossible one, as the simple arithmetic of
// base/day.h gives it; site access goes only when nothing is kept.
[[nodiscard]] std::vector<PurgeStep> PurgeSteps(const PurgeChoice &choice, QDate today);

// The rows of each table that these steps would remove, in the order of the tables' first step.
struct PurgeCount
{
    QString table;
    qint64 rows = 0;
};
[[nodiscard]] std::vector<PurgeCount> CountPurge(const std::vector<PurgeStep> &steps);

// Runs one step; the number of rows it removed, or nothing when it failed. A purge goes on with the
// next step whatever became of this one.
[[nodiscard]] std::optional<qint64> RunPurgeStep(const PurgeStep &step);
