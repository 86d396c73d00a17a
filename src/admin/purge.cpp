#include "admin/purge.h"

#include "db/failure_log.h"
#include "db/session.h"

#include <algorithm>

namespace {

const PurgeStep kUsers {"DELETE FROM users", "SELECT COUNT(*) FROM users", "users", {}};

const PurgeStep kAll[] = {
    {"DELETE FROM traffic_use", "SELECT COUNT(*) FROM traffic_use", "traffic_use", {}},
    {"DELETE FROM time_use", "SELECT COUNT(*) FROM time_use", "time_use", {}},
    {"DELETE FROM billing", "SELECT COUNT(*) FROM billing", "billing", {}},
    {"DELETE FROM sites", "SELECT COUNT(*) FROM sites", "sites", {}},
    {"DELETE FROM siteaccess", "SELECT COUNT(*) FROM siteaccess", "siteaccess", {}},
};

const PurgeStep kBefore[] = {
    {"DELETE FROM traffic_use WHERE current_time < (?)",
     "SELECT COUNT(*) FROM traffic_use WHERE current_time < (?)",
     "traffic_use",
     {}},
    {"DELETE FROM time_use WHERE current_time < (?)",
     "SELECT COUNT(*) FROM time_use WHERE current_time < (?)",
     "time_use",
     {}},
    {"DELETE FROM billing WHERE date < (?)",
     "SELECT COUNT(*) FROM billing WHERE date < (?)",
     "billing",
     {}},
};

const PurgeStep kAfter[] = {
    {"DELETE FROM traffic_use WHERE current_time > (?)",
     "SELECT COUNT(*) FROM traffic_use WHERE current_time > (?)",
     "traffic_use",
     {}},
    {"DELETE FROM time_use WHERE current_time > (?)",
     "SELECT COUNT(*) FROM time_use WHERE current_time > (?)",
     "time_use",
     {}},
    {"DELETE FROM billing WHERE date > (?)",
     "SELECT COUNT(*) FROM billing WHERE date > (?)",
     "billing",
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

int Run(const PurgeStep &step, const char *statement)
{
    return step.day ? RunQuery(statement, FetchMode::All, *step.day)
                    : RunQuery(statement, FetchMode::All);
}

} // namespace

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

std::vector<PurgeCount> CountPurge(const std::vector<PurgeStep> &steps)
{
    std::vector<PurgeCount> counts;
    for (const PurgeStep &step : steps) {
        Run(step, step.count);
        const qint64 rows = queryResult.Text(1).toLongLong();
        const QString table = QString::fromLatin1(step.table);
        const auto known = std::find_if(counts.begin(), counts.end(), [&](const PurgeCount &count) {
            return count.table == table;
        });
        if (known == counts.end()) {
            counts.push_back({table, rows});
        } else {
            known->rows += rows;
        }
    }
    return counts;
}

std::optional<qint64> RunPurgeStep(const PurgeStep &step)
{
    const qsizetype failures = FailureLog::Instance().Count();
    Run(step, step.statement);
    if (FailureLog::Instance().Count() != failures) {
        return std::nullopt;
    }
    return AffectedRows();
}
