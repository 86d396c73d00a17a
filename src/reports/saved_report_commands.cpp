#include "reports/saved_report_commands.h"

#include "reports/catalogue.h"
#include "reports/report_status.h"
#include "reports/report_timer.h"
#include "reports/run_record.h"
#include "reports/saved_report.h"

#include <QDir>
#include <QTextStream>

using namespace Qt::StringLiterals;

namespace {

using enum ReportStatus;
constexpr int kDone = static_cast<int>(Done);

} // namespace

int ListSaved(const ConfigStore &settings)
{
    const SavedReports saved(settings);
    const auto names = saved.Names();
    if (!names) {
        return Fail(BadArguments, TextOf(names.error()));
    }
    int status = kDone;
    for (const QString &name : *names) {
        if (const auto report = saved.Read(name)) {
            QTextStream(stdout) << u"%1: %2, %3, %4, %5\n"_s.arg(
                name,
                QString::fromUtf8(EntryOf(report->row).title).trimmed(),
                report->period,
                report->output,
                InWords(report->schedule));
        } else {
            status = Fail(BadArguments, TextOf(report.error()));
        }
    }
    return status;
}

// A report that cannot be read may well be one that is to run: its timer stays as it is.
int Schedule(const QString &name, const ConfigStore &settings, const std::optional<QString> &units)
{
    if (const QString problem = NameProblem(name); !problem.isEmpty()) {
        return Fail(BadArguments, problem);
    }
    TimerPlace place;
    if (units) {
        place.folder = *units;
    } else if (QDir::cleanPath(settings.Folder()) != u"/etc/tollbrook") {
        return Fail(BadArguments,
                    u"timers make the reports that are saved in /etc/tollbrook, not in %1"_s.arg(
                        settings.Folder()));
    } else {
        place.systemctl = RunSystemctl;
    }
    const SavedReports saved(settings);
    const auto report = saved.Has(name) ? saved.Read(name) : SavedReport();
    if (!report) {
        return Fail(BadArguments, TextOf(report.error()));
    }
    QString problem;
    if (!PutTimer(name, report->schedule, place, problem)) {
        return Fail(Timer, problem);
    }
    if (!report->schedule.IsSet()) {
        if (const auto removed = RunRecords(settings).Remove(name); !removed) {
            return Fail(Timer, TextOf(removed.error()));
        }
    }
    QTextStream(stdout) << u"%1: %2\n"_s.arg(name, InWords(report->schedule));
    return kDone;
}

int NoteRun(const QString &name, const ConfigStore &settings)
{
    if (const QString problem = NameProblem(name); !problem.isEmpty()) {
        return Fail(BadArguments, problem);
    }
    const auto record = EndedRun(qEnvironmentVariable("SERVICE_RESULT"),
                                 qEnvironmentVariable("EXIT_CODE"),
                                 qEnvironmentVariable("EXIT_STATUS"),
                                 QDateTime::currentDateTime());
    if (!record) {
        return Fail(BadArguments, u"no run has ended: $SERVICE_RESULT is not set"_s);
    }
    const auto written = RunRecords(settings).Write(name, *record);
    return written ? kDone : Fail(Output, TextOf(written.error()));
}
