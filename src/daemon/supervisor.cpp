#include "daemon/supervisor.h"

#include "daemon/line_writer.h"

#include <systemd/sd-daemon.h>
#include <time.h>
#include <unistd.h>

namespace supervisor {

void Ready()
{
    sd_notify(0, "READY=1");
}

void Status(const QString &status)
{
    const QByteArray message = "STATUS=" + status.simplified().toUtf8();
    sd_notify(0, message.constData());
}

void Reloading()
{
    timespec now {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    const qint64 microseconds = qint64 {now.tv_sec} * 1000000 + now.tv_nsec / 1000;
    const QByteArray message = "RELOADING=1\nMONOTONIC_USEC=" + QByteArray::number(microseconds);
    sd_notify(0, message.constData());
}

void Stopping()
{
    sd_notify(0, "STOPPING=1");
}

void Alive()
{
    sd_notify(0, "WATCHDOG=1");
}

std::chrono::microseconds AliveInterval()
{
    uint64_t microseconds = 0;
    const bool wanted = sd_watchdog_enabled(0, &microseconds) > 0;
    return std::chrono::microseconds(wanted ? static_cast<qint64>(microseconds) / 2 : 0);
}

} // namespace supervisor

namespace journal {

namespace {

// The prefix is the journal's own way to give a line its weight; a person at a terminal gets none.
void Print(const char *weight, const QString &line)
{
    static const bool toJournal = qEnvironmentVariableIsSet("JOURNAL_STREAM");
    static LineWriter errors(STDERR_FILENO);
    errors.Write((toJournal ? QByteArray(weight) : QByteArray()) + line.simplified().toUtf8()
                 + '\n');
}

// Lines of libraries and of failed statements.
void TakeMessage(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const QString line = qFormatLogMessage(type, context, message);
    switch (type) {
    case QtDebugMsg:
    case QtInfoMsg:
        return Info(line);
    case QtWarningMsg:
        return Warning(line);
    default:
        return Error(line);
    }
}

} // namespace

void Info(const QString &line)
{
    Print(SD_INFO, line);
}

void Warning(const QString &line)
{
    Print(SD_WARNING, line);
}

void Error(const QString &line)
{
    Print(SD_ERR, line);
}

void TakeMessages()
{
    qInstallMessageHandler(TakeMessage);
}

} // namespace journal
