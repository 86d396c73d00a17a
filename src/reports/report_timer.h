// Brings the service manager's timers in line with the schedules of saved reports: the work of root.
#pragma once

#include "reports/report_schedule.h"

#include <QStringList>

#include <functional>

// Where timers stand, and who is told of them.
struct TimerPlace
{
    QString folder = QStringLiteral("/etc/systemd/system");
    // Runs systemctl with these arguments. False, and `problem` filled, when it fails. Without it the
    // files are all that is made.
    std::function<bool(const QStringList &arguments, QString &problem)> systemctl = {};
};

// Writes the report's timer and starts it, or without a schedule stops and removes it; a timer that is
// not there is no failure then. False, and `problem` filled with a sentence, when that cannot be done.
[[nodiscard]] bool PutTimer(const QString &reportName,
                            const ReportSchedule &schedule,
                            const TimerPlace &place,
                            QString &problem);

// The system's own systemctl, for TimerPlace.
[[nodiscard]] bool RunSystemctl(const QStringList &arguments, QString &problem);

// Has root do it, who is asked for by the system's own window: runs "tollbrook-report --schedule" for the report
// saved below `configFolder`, and lets windows paint meanwhile. False, and `problem` filled, when it was
// refused or failed; the words end with the command that does the same.
[[nodiscard]] bool
AskForTimer(const QString &reportName, const QString &configFolder, QString &problem);
