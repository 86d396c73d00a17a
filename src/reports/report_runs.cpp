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

tl::expected<std::vector<ReportRun>, SettingsFailure> ReadRuns(const ConfigStore &settings,
                                                               const ServiceControl &manager)
{
    const SavedReports saved(settings);
    const RunRecords records(settings);
    const auto names = saved.Names();
    if (!names) {
        return tl::unexpected(names.error());
    }
    std::vector<ReportRun> runs;
    bool answers = true;
    for (const QString &name : *names) {
        ReportRun run {name, saved.Read(name), std::nullopt};
        if (IsScheduled(run)) {
            run.kept = records.Read(name);
        }
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

std::optional<RunRecord> LastRunOf(const ReportRun &run)
{
    const bool isRemembered =
        run.timer && (run.timer->result == Result::Done || run.timer->result == Result::Failed);
    if (isRemembered) {
        return RunRecord {run.timer->last, run.timer->result, run.timer->exitStatus};
    }
    return run.kept.value_or(std::nullopt);
}

QString LastRunInWords(const ReportRun &run)
{
    if (!run.report) {
        return NameProblem(run.name).isEmpty()
            ? Words::tr("cannot be made: its file is damaged")
            : Words::tr("cannot be made: its name is not allowed");
    }
    if (run.timer && run.timer->result == Result::Running) {
        return Words::tr("running now");
    }
    if (const auto last = LastRunOf(run)) {
        const QString how = InWords(static_cast<ReportStatus>(last->exitStatus));
        const QString outcome =
            last->result == Result::Failed ? Words::tr("failed: %1").arg(how) : how;
        return last->ended.isValid() ? u"%1, %2"_s.arg(InWords(last->ended), outcome) : outcome;
    }
    if (!run.kept) {
        return Words::tr("not known: %1").arg(TextOf(run.kept.error()));
    }
    return run.timer ? Words::tr("none since the machine was started") : QString();
}

bool HasTrouble(const ReportRun &run)
{
    const auto last = LastRunOf(run);
    return !run.report || (run.timer && !run.timer->isThere)
        || (last ? last->result == Result::Failed : !run.kept);
}
