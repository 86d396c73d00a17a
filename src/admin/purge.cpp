#include "admin/purge.h"

#include "actions/action_run.h"
#include "db/query.h"

#include <algorithm>
#include <utility>

namespace {

const PurgeStep kUsers {"DELETE FROM users", "SELECT COUNT(*) FROM users", "users", {}, {}};

const PurgeStep kAll[] = {
    {"DELETE FROM traffic_use", "SELECT COUNT(*) FROM traffic_use", "traffic_use", {}, {}},
    {"DELETE FROM time_use", "SELECT COUNT(*) FROM time_use", "time_use", {}, {}},
    {"DELETE FROM billing", "SELECT COUNT(*) FROM billing", "billing", {}, {}},
    {"DELETE FROM sites", "SELECT COUNT(*) FROM sites", "sites", {}, {}},
    {"DELETE FROM siteaccess", "SELECT COUNT(*) FROM siteaccess", "siteaccess", {}, {}},
};

const PurgeStep kBefore[] = {
    {"DELETE FROM traffic_use WHERE current_time < (?)",
     "SELECT COUNT(*) FROM traffic_use WHERE current_time < (?)",
     "traffic_use",
     {},
     {}},
    {"DELETE FROM time_use WHERE current_time < (?)",
     "SELECT COUNT(*) FROM time_use WHERE current_time < (?)",
     "time_use",
     {},
     {}},
    {"DELETE FROM billing WHERE date < (?)",
     "SELECT COUNT(*) FROM billing WHERE date < (?)",
     "billing",
     {},
     {}},
};

const PurgeStep kAfter[] = {
    {"DELETE FROM traffic_use WHERE current_time > (?)",
     "SELECT COUNT(*) FROM traffic_use WHERE current_time > (?)",
     "traffic_use",
     {},
     {}},
    {"DELETE FROM time_use WHERE current_time > (?)",
     "SELECT COUNT(*) FROM time_use WHERE current_time > (?)",
     "time_use",
     {},
     {}},
    {"DELETE FROM billing WHERE date > (?)",
     "SELECT COUNT(*) FROM billing WHERE date > (?)",
     "billing",
     {},
     {}},
};

template <size_t count>
void Append(std::vector<PurgeStep> &steps, const PurgeStep (&more)[count], std::optional<Day> day)
{
    for (PurgeStep step : more) {
        step.day = day;
        steps.push_back(step);
    }
}

Result<qint64> RowsOf(const PurgeStep &step)
{
    const auto rows = [](const Row &row) { return row.Text(1).toLongLong(); };
    return (step.day ? ReadOne(step.count, rows, *step.day) : ReadOne(step.count, rows))
        .map([](std::optional<qint64> count) { return count.value_or(0); });
}

// Whether a step whose end was not heard of was done: all its rows went or none. The service may have
// added some since.
Result<bool> IsDone(const PurgeStep &step)
{
    return RowsOf(step).and_then([&](qint64 left) -> Result<bool> {
        if (left == 0) {
            return true;
        }
        if (!step.rows) {
            return tl::unexpected(Failure()); // it cannot be told
        }
        return left < *step.rows;
    });
}

} // namespace

Day FirstDayKept(const PurgeChoice &choice, QDate today)
{
    switch (choice.keep) {
    case PurgeChoice::Keep::LastWeek:
        return FirstDayOfLastWeek(today);
    case PurgeChoice::Keep::LastMonth:
        return FirstDayOfLastMonth(today);
    case PurgeChoice::Keep::Custom:
        return DayOf(choice.since);
    default:
        return DayOf(today);
    }
}

std::vector<PurgeStep> PurgeSteps(const PurgeChoice &choice, QDate today)
{
    std::vector<PurgeStep> steps;
    if (choice.keep == PurgeChoice::Keep::Nothing) {
        if (choice.deleteUsers) {
            steps.push_back(kUsers);
        }
        Append(steps, kAll, {});
        return steps;
    }
    Append(steps, kBefore, FirstDayKept(choice, today));
    if (choice.keep == PurgeChoice::Keep::Custom) {
        Append(steps, kAfter, DayOf(choice.until));
    }
    return steps;
}

Result<std::vector<PurgeStep>> CountPurge(std::vector<PurgeStep> steps)
{
    for (PurgeStep &step : steps) {
        const auto rows = RowsOf(step);
        if (!rows) {
            return tl::unexpected(rows.error());
        }
        step.rows = *rows;
    }
    return steps;
}

std::vector<PurgeCount> RowsByTable(const std::vector<PurgeStep> &steps)
{
    std::vector<PurgeCount> counts;
    for (const PurgeStep &step : steps) {
        const QString table = QString::fromLatin1(step.table);
        const auto known = std::ranges::find(counts, table, &PurgeCount::table);
        if (known == counts.end()) {
            counts.push_back({table, step.rows.value_or(0)});
        } else {
            known->rows += step.rows.value_or(0);
        }
    }
    return counts;
}

Action PurgeAction(const PurgeStep &step, const std::shared_ptr<qint64> &removed)
{
    return {ActionId::Purge, [step, removed](ActionRun &run) {
                bool looked = false;
                const auto isDone = [&step, &looked] {
                    looked = true;
                    return IsDone(step);
                };
                const bool done = step.day ? run.WriteOrLook(isDone, step.statement, *step.day)
                                           : run.WriteOrLook(isDone, step.statement);
                if (done) {
                    *removed = looked ? step.rows.value_or(0) : run.ChangedRows();
                }
            }};
}

PurgeOutcome RunPurgeStep(const PurgeStep &step)
{
    const auto removed = std::make_shared<qint64>(0);
    Outcome outcome = RunAction(PurgeAction(step, removed), {}, nullptr);
    return {std::move(outcome), *removed};
}
