// Removing old usage, credit and site-access records.
#pragma once

#include "actions/action.h"
#include "base/day.h"

#include <QString>

#include <memory>
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

// The day before which everything goes: kept simple, see base/day.h, so that it may not exist, or lie
// after today. Of no use with Keep::Nothing.
[[nodiscard]] Day FirstDayKept(const PurgeChoice &choice, QDate today);

// One statement of a purge, with the day it is bound to, if any.
struct PurgeStep
{
    const char *statement;
    const char *count; // counts the rows that the statement would remove
    const char *table;
    std::optional<Day> day;
    std::optional<qint64> rows; // that it would remove, once they were counted
};

// The statements in their order. A day may be an impossible one, as the simple arithmetic of
// base/day.h gives it; site access goes only when nothing is kept.
[[nodiscard]] std::vector<PurgeStep> PurgeSteps(const PurgeChoice &choice, QDate today);

// The steps with their rows counted. A failure when any of them could not be: it is not none.
[[nodiscard]] Result<std::vector<PurgeStep>> CountPurge(std::vector<PurgeStep> steps);

// The rows of each table that counted steps would remove, in the order of the tables' first step.
struct PurgeCount
{
    QString table;
    qint64 rows = 0;
};
[[nodiscard]] std::vector<PurgeCount> RowsByTable(const std::vector<PurgeStep> &steps);

// What became of a step.
struct PurgeOutcome
{
    Outcome outcome;
    qint64 removed = 0; // rows; as counted before, when the database did not come to tell
};

template <>
struct GivenUp<PurgeOutcome>
{
    [[nodiscard]] static PurgeOutcome As(const Failure &failure, bool mayBeKept)
    {
        return {GivenUp<Outcome>::As(failure, mayBeKept), 0};
    }
};

// Runs one step, on the session of this thread. A purge goes on with the next one whatever became of
// this one.
[[nodiscard]] PurgeOutcome RunPurgeStep(const PurgeStep &step);

// The step alone; `removed` receives the rows when it was done.
[[nodiscard]] Action PurgeAction(const PurgeStep &step, const std::shared_ptr<qint64> &removed);
