// How the reports that are made by themselves went, and when they are made next.
#pragma once

#include "reports/run_record.h"
#include "reports/saved_report.h"
#include "service/service_control.h"

#include <vector>

struct ReportRun
{
    QString name;
    tl::expected<SavedReport, SettingsFailure> report;
    std::optional<TimerState> timer; // of those with a schedule; nothing when nobody answers
    // Of those with a schedule: the run that the machine remembers from before it was started.
    tl::expected<std::optional<RunRecord>, SettingsFailure> kept = {};
};

// All saved reports with what the service manager knows of their timers. Once it does not answer it is
// not asked again.
[[nodiscard]] tl::expected<std::vector<ReportRun>, SettingsFailure>
ReadRuns(const ConfigStore &settings, const ServiceControl &manager);

[[nodiscard]] QString NextRunInWords(const ReportRun &run);
[[nodiscard]] QString LastRunInWords(const ReportRun &run);

// The last run that has ended, as far as it is known.
[[nodiscard]] std::optional<RunRecord> LastRunOf(const ReportRun &run);

// Whether an administrator has something to look at: a run that failed, a schedule without its timer, or
// a saved report that cannot be read.
[[nodiscard]] bool HasTrouble(const ReportRun &run);
