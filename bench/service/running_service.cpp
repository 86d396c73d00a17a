#include "service/running_service.h"

#include "support/must.h"
#include "support/spent.h"

#include <QDBusMessage>
#include <QDBusVariant>
#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 120'000; // milliseconds: a large database takes a while

void Write(const QString &name, const QString &text)
{
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0) {
        Fail(file.errorString());
    }
}

} // namespace

RunningService::RunningService(const QString &dsn, quint32 local, quint32 mask)
{
    StartBus();
    WriteSettings(dsn, local, mask);
    StartService();
}

RunningService::~RunningService()
{
    service.terminate();
    service.waitForFinished(kPatience);
    QDBusConnection::disconnectFromBus(bus.name());
    busDaemon.terminate();
    busDaemon.waitForFinished();
}

void RunningService::StartBus()
{
    busDaemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address=1"_s});
    while (!busDaemon.canReadLine() && busDaemon.waitForReadyRead(kPatience)) { }
    busAddress = QString::fromUtf8(busDaemon.readLine()).trimmed();
    bus = QDBusConnection::connectToBus(busAddress, folder.path());
    if (!bus.isConnected()) {
        Fail(u"There is no message bus."_s);
    }
}

void RunningService::WriteSettings(const QString &dsn, quint32 local, quint32 mask) const
{
    for (const auto key : {ConfigKeyId::Base,
                           ConfigKeyId::Price,
                           ConfigKeyId::DefProfile,
                           ConfigKeyId::LocalIp,
                           ConfigKeyId::AdapterBind}) {
        if (!store.CreateKey(key)) {
            Fail(u"The settings cannot be made."_s);
        }
    }
    Write(store.FileOf(ConfigKeyId::LocalIp),
          u"rangenum = \"1\"\nnet0 = %1\nmask0 = %2\n"_s.arg(local).arg(mask));
    Write(store.FileOf(ConfigKeyId::AdapterBind), u"NIC = \"lan0\"\n"_s);
    Write(store.FileOf(ConfigKeyId::Base),
          u"\"bill dsn\" = \"%1\"\ntimer = \"%2\"\n"_s.arg(dsn).arg(kPeriodSeconds));
}

void RunningService::StartService()
{
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"DBUS_SESSION_BUS_ADDRESS"_s, busAddress);
    environment.insert(u"STATE_DIRECTORY"_s, folder.path());
    service.setProcessEnvironment(environment);
    service.setProcessChannelMode(QProcess::MergedChannels);
    service.start(QStringLiteral(TB_SERVICE_PROGRAM),
                  {u"--config"_s, store.Folder(), u"--bus"_s, u"session"_s});
    QByteArray said;
    while (!said.contains("Counting.")) {
        if (!service.waitForReadyRead(kPatience)) {
            Fail(u"The service does not count: "_s + QString::fromUtf8(said));
        }
        said += service.readAll();
    }
}

QString RunningService::LastCount() const
{
    auto call = QDBusMessage::createMethodCall(u"org.tollbrook.Accounting"_s,
                                               u"/org/tollbrook/Accounting"_s,
                                               u"org.freedesktop.DBus.Properties"_s,
                                               u"Get"_s);
    call.setArguments({u"org.tollbrook.Status1"_s, u"LastCount"_s});
    const QDBusMessage answer = bus.call(call);
    if (answer.type() != QDBusMessage::ReplyMessage) {
        Fail(u"The service does not answer: "_s + answer.errorMessage());
    }
    return answer.arguments().value(0).value<QDBusVariant>().variant().toString();
}

void RunningService::AwaitCounts(int counts, const std::function<void()> &meanwhile)
{
    const QDeadlineTimer patience(kPatience);
    QString last = LastCount();
    for (int counted = 0; counted < counts;) {
        if (patience.hasExpired()) {
            Fail(u"The service does not count any more: "_s + QString::fromUtf8(service.readAll()));
        }
        meanwhile();
        QThread::msleep(100);
        if (const QString now = LastCount(); now != last) {
            last = now;
            ++counted;
        }
    }
}

double RunningService::CpuSeconds() const
{
    return CpuSecondsOf(service.processId());
}

double RunningService::ResidentMegabytes() const
{
    return MegabytesOf(service.processId(), "VmRSS:");
}

double RunningService::PeakMegabytes() const
{
    return MegabytesOf(service.processId(), "VmHWM:");
}
