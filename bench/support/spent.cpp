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

QByteArray Told(qint64 process, const QString &file)
{
    QFile reading(u"/proc/%1/%2"_s.arg(process).arg(file));
    return reading.open(QIODevice::ReadOnly) ? reading.readAll() : QByteArray();
}

// The fields of /proc/PID/stat between two numbers, in seconds; counted as its manual page does, from 1.
double StatSeconds(qint64 process, int first, int last)
{
    constexpr int kBehindName = 3;
    const QByteArray text = Told(process, u"stat"_s);
    const auto fields = text.mid(text.lastIndexOf(')') + 2).split(' ');
    double ticks = 0;
    for (int field = first; field <= last; ++field) {
        ticks += fields.value(field - kBehindName).toDouble();
    }
    return ticks / static_cast<double>(sysconf(_SC_CLK_TCK));
}

} // namespace

double OwnSeconds()
{
    rusage usage {};
    getrusage(RUSAGE_SELF, &usage);
    return Seconds(usage);
}

double CpuSecondsOf(qint64 process)
{
    return StatSeconds(process, 14, 15);
}

double MegabytesOf(qint64 process, const char *figure)
{
    const QByteArray text = Told(process, u"status"_s);
    const auto place = text.indexOf(figure);
    return place < 0 ? 0 : text.mid(place + 6, 20).trimmed().split(' ').first().toDouble() / 1024;
}

double ServerSeconds(const QString &engine)
{
    QFile pid(QStringLiteral(TB_SERVERS_DIR "/%1.pid").arg(engine));
    if (!pid.open(QIODevice::ReadOnly)) {
        return 0;
    }
    // One server works in processes for each connection: it counts them once they have ended.
    QThread::msleep(200);
    const qint64 server = pid.readAll().trimmed().toLongLong();
    double seconds = StatSeconds(server, 14, 17); // its own, and that of the children that ended
    for (const QByteArray &child : Told(server, u"task/%1/children"_s.arg(server)).split(' ')) {
        seconds += child.isEmpty() ? 0 : CpuSecondsOf(child.toLongLong());
    }
    return seconds;
}

Spent RunAndMeasure(const QStringList &command, const QString &engine)
{
    Spent spent;
    const double before = ServerSeconds(engine);
    const pid_t process = Start(command);
    int status = 0;
    rusage usage {};
    // What wait4 tells of the memory counts this program's too, from before the start.
    while (wait4(process, &status, WNOHANG, &usage) == 0) {
        spent.peakMegabytes = std::max(spent.peakMegabytes, MegabytesOf(process, "VmHWM:"));
        QThread::usleep(2000);
    }
    if (status != 0) {
        Fail(command.join(u' ') + u" failed"_s);
    }
    spent.cpuSeconds = Seconds(usage);
    spent.serverSeconds = ServerSeconds(engine) - before;
    return spent;
}
