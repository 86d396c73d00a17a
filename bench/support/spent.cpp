#include "support/spent.h"

#include "support/must.h"

#include <QFile>
#include <QThread>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

double Seconds(const rusage &usage)
{
    const auto in = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
    };
    return in(usage.ru_utime) + in(usage.ru_stime);
}

pid_t Start(const QStringList &command)
{
    std::vector<QByteArray> bytes;
    std::vector<char *> arguments;
    bytes.reserve(static_cast<size_t>(command.size()));
    for (const QString &argument : command) {
        arguments.push_back(bytes.emplace_back(argument.toUtf8()).data());
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    if (posix_spawnp(&process, arguments.front(), &actions, nullptr, arguments.data(), environ)
        != 0) {
        Fail(command.first() + u" cannot be started"_s);
    }
    posix_spawn_file_actions_destroy(&actions);
    return process;
}

// The largest it has been; what wait4 tells counts this program's memory too, from before the start.
double PeakMegabytes(pid_t process)
{
    QFile status(u"/proc/%1/status"_s.arg(process));
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QByteArray text = status.readAll();
    const auto place = text.indexOf("VmHWM:");
    return place < 0 ? 0 : text.mid(place + 6, 20).trimmed().split(' ').first().toDouble() / 1024;
}

} // namespace

double OwnSeconds()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return Seconds(usage);
}

double ServerSeconds(const QString &engine)
{
    QFile pid(QStringLiteral(TB_SERVERS_DIR "/%1.pid").arg(engine));
    if (!pid.open(QIODevice::ReadOnly)) {
        return 0;
    }
    // One server works in processes for each connection: it counts them once they have ended.
    QThread::msleep(200);
    QFile file(u"/proc/%1/stat"_s.arg(QString::fromLatin1(pid.readAll().trimmed())));
    if (!file.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QByteArray text = file.readAll();
    const auto fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    double ticks = 0;
    for (int field = 11; field <= 14; ++field) { // user and system, its own and its children's
        ticks += fields.at(field).toDouble();
    }
    return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
}

Spent RunAndMeasure(const QStringList &command, const QString &engine)
{
    Spent spent;
    const double before = ServerSeconds(engine);
    const pid_t process = Start(command);
    int status = 0;
    rusage usage {};
    while (wait4(process, &status, WNOHANG, &usage) == 0) {
        spent.peakMegabytes = std::max(spent.peakMegabytes, PeakMegabytes(process));
        QThread::usleep(2000);
    }
    if (status != 0) {
        Fail(command.join(u' ') + u" failed"_s);
    }
    spent.cpuSeconds = Seconds(usage);
    spent.serverSeconds = ServerSeconds(engine) - before;
    return spent;
}
