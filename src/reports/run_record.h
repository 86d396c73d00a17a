// What the last run of a scheduled report came to, kept where it outlives a restart of the machine: the service
// manager forgets it then.
#pragma once

#include "config/config_store.h"
#include "service/service_control.h"

#include <QDateTime>

#include <optional>

struct RunRecord
{
    QDateTime ended; // whole seconds
    TimerState::Result result = TimerState::Result::Done; // or Failed
    int exitStatus = 0; // of the program; TimerState::kKilled when it did not end by itself

    bool operator==(const RunRecord &) const = default;
};

// The run that has just ended, in the words that the service manager hands to the commands behind it
// ($SERVICE_RESULT, $EXIT_CODE, $EXIT_STATUS). Nothing when there are none.
[[nodiscard]] std::optional<RunRecord> EndedRun(const QString &serviceResult,
                                                const QString &exitCode,
                                                const QString &exitStatus,
                                                const QDateTime &now);

// A TOML file for each report, which everybody may read, as the service manager tells everybody of its units.
class RunRecords
{
public:
    // The folder that the package makes for the reports of /etc/tollbrook; "report-runs" in another
    // configuration folder.
    explicit RunRecords(const ConfigStore &settings);

    // Nothing when the report has not run yet. `name` is one that NameProblem() finds nothing wrong with
    // (saved_report.h).
    [[nodiscard]] tl::expected<std::optional<RunRecord>, SettingsFailure>
    Read(const QString &name) const;

    [[nodiscard]] SettingsResult Write(const QString &name, const RunRecord &record) const;
    [[nodiscard]] SettingsResult Remove(const QString &name) const; // also where there is none

    [[nodiscard]] QString FileOf(const QString &name) const;

private:
    QString folder;
    bool isOfPackage;
};
