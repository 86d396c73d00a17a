#include "reports/report_runs.h"

#include "reports/report_status.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportRuns)
};

using Result = TimerState::Result;

QString InWords(const QDateTime &time)
{
    return time.toString(u"yyyy-MM-dd HH:mm"_s);
}

bool IsScheduled(const ReportRun &run)
{
    return run.report && run.report->schedule.IsSet();
}

} // namespace

tl::expected<std::vector<ReportRun>, SettingsFailure> ReadRuns(const SavedReports &saved,
                                                               const ServiceControl &manager)
{
    const auto names = saved.Names();
    if (!names) {
        return tl::unexpected(names.error());
    }
    std::vector<ReportRun> runs;
    bool answers = true;
    for (const QString &name : *names) {
        ReportRun run {name, saved.Read(name), std::nullopt};
        if (answers && IsScheduled(run)) {
            run.timer = manager.QueryTimer(TimerUnit(name), ServiceUnit(name));
            answers = run.timer.has_value();
        }
        runs.push_back(std::move(run));
    }
    return runs;
}

QString NextRunInWords(const ReportRun &run)
{
    if (!IsScheduled(run)) {
        return {};
    }
    if (!run.timer) {
        return Words::tr("not known: the service manager does not answer");
    }
    if (!run.timer->isThere) {
        return Words::tr("never: the timer is not set up");
    }
    return run.timer->next.isValid() ? InWords(run.timer->next) : Words::tr("not known");
}

QString LastRunInWords(const ReportRun &run)
{
    if (!run.report) {
        return Words::tr("cannot be made: its file is damaged");
    }
    if (!run.timer) {
        return {};
    }
    const TimerState &timer = *run.timer;
    switch (timer.result) {
    case Result::NotYet:
        return Words::tr("none since the machine was started");
    case Result::Running:
        return Words::tr("running now");
    case Result::Done:
    case Result::Failed:
        break;
    }
    const QString how = InWords(static_cast<ReportStatus>(timer.exitStatus));
    const QString outcome = timer.result == Result::Failed ? Words::tr("failed: %1").arg(how) : how;
    return timer.last.isValid() ? u"%1, %2"_s.arg(InWords(timer.last), outcome) : outcome;
}

bool HasTrouble(const ReportRun &run)
{
    return !run.report
        || (run.timer && (run.timer->result == Result::Failed || !run.timer->isThere));
}
