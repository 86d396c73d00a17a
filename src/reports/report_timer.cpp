#include "reports/report_timer.h"

#include <QCoreApplication>
#include <QDir>
#include <QEventLoop>
#include <QProcess>
#include <QSaveFile>
#include <QStandardPaths>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportTimer)
};

// The one that was built or installed with this program.
QString ReportProgram()
{
    const QString name = u"tollbrook-report"_s;
    const QString beside =
        QStandardPaths::findExecutable(name, {QCoreApplication::applicationDirPath()});
    return beside.isEmpty() ? QStandardPaths::findExecutable(name) : beside;
}

bool Tell(const TimerPlace &place, const QStringList &arguments, QString &problem)
{
    return !place.systemctl || place.systemctl(arguments, problem);
}

bool WriteTimer(const QString &path, const QString &text, QString &problem)
{
    QSaveFile file(path);
    const QByteArray bytes = text.toUtf8();
    const bool written = file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size()
        && file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup
                               | QFile::ReadOther)
        && file.commit();
    if (!written) {
        problem = u"%1 cannot be written: %2"_s.arg(path, file.errorString());
    }
    return written;
}

bool RemoveTimer(const QString &path,
                 const QString &unit,
                 const TimerPlace &place,
                 QString &problem)
{
    QFile file(path);
    if (!file.exists()) {
        return true;
    }
    if (!Tell(place, {u"disable"_s, u"--now"_s, unit}, problem)) {
        return false;
    }
    if (!file.remove()) {
        problem = u"%1 cannot be removed: %2"_s.arg(path, file.errorString());
        return false;
    }
    return Tell(place, {u"daemon-reload"_s}, problem);
}

} // namespace

bool PutTimer(const QString &reportName,
              const ReportSchedule &schedule,
              const TimerPlace &place,
              QString &problem)
{
    const QString unit = TimerUnit(reportName);
    const QString path = QDir(place.folder).filePath(unit);
    if (!schedule.IsSet()) {
        return RemoveTimer(path, unit, place, problem);
    }
    // A restart has a timer that runs already go by its new times.
    return WriteTimer(path, TimerText(reportName, schedule), problem)
        && Tell(place, {u"daemon-reload"_s}, problem) && Tell(place, {u"enable"_s, unit}, problem)
        && Tell(place, {u"restart"_s, unit}, problem);
}

bool RunSystemctl(const QStringList &arguments, QString &problem)
{
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    process.start(u"systemctl"_s, arguments);
    if (process.waitForFinished() && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0) {
        return true;
    }
    const QString said = QString::fromLocal8Bit(process.readAll()).simplified();
    problem = u"systemctl %1: %2"_s.arg(arguments.join(u' '),
                                        said.isEmpty() ? process.errorString() : said);
    return false;
}

bool AskForTimer(const QString &reportName, const QString &configFolder, QString &problem)
{
    QStringList command {ReportProgram(), u"--config"_s, configFolder, u"--schedule"_s, reportName};
    if (::geteuid() != 0) {
        command.prepend(u"pkexec"_s);
    }
    QProcess process;
    process.setProcessChannelMode(QProcess::MergedChannels);
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    QObject::connect(&process, &QProcess::errorOccurred, &loop, &QEventLoop::quit);
    process.start(command.constFirst(), command.mid(1));
    if (process.state() != QProcess::NotRunning) {
        loop.exec(QEventLoop::ExcludeUserInputEvents);
    }
    if (process.error() == QProcess::UnknownError && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0) {
        return true;
    }
    const QString said = QString::fromLocal8Bit(process.readAll()).simplified();
    problem = Words::tr("%1\nAs root, this does it: tollbrook-report --schedule \"%2\"")
                  .arg(said.isEmpty() ? process.errorString() : said, reportName);
    return false;
}
