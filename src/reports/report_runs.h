// How the reports that are made by themselves went, and when they are made next.
#pragma once

#include "reports/saved_report.h"
#include "service/service_control.h"

#include <vector>

struct ReportRun
{
    QString name;
    tl::expected<SavedReport, SettingsFailure> report;
    std::optional<TimerState> timer; // of those with a schedule; nothing when nobody answers
};

// All saved reports with what the service manager knows of their timers. Once it does not answer it is
// not asked again.
[[nodiscard]] tl::expected<std::vector<ReportRun>, SettingsFailure>
ReadRuns(const SavedReports &saved, const ServiceControl &manager);

[[nodiscard]] QString NextRunInWords(const ReportRun &run);
[[nodiscard]] QString LastRunInWords(const ReportRun &run);

// Whether an administrator has something to look at: a run that failed, a schedule without its timer, or
// a saved report that cannot be read.
[[nodiscard]] bool HasTrouble(const ReportRun &run);
