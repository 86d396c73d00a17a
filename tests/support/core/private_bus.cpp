#include "support/core/private_bus.h"

#include <QFile>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 10000; // milliseconds for the daemon to start or end

constexpr char kConfiguration[] = R"(<busconfig>
  <type>session</type>
  <listen>unix:tmpdir=%1</listen>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

QString ConfigurationIn(const QString &folder)
{
    const QString path = folder + u"/bus.conf"_s;
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QString::fromLatin1(kConfiguration).arg(folder).toUtf8());
    return path;
}

} // namespace

PrivateBus::PrivateBus() : console(QString())
{
    daemon.start(u"dbus-daemon"_s,
                 {u"--config-file="_s + ConfigurationIn(folder.path()),
                  u"--nofork"_s,
                  u"--print-address=1"_s});
    while (!daemon.canReadLine() && daemon.waitForReadyRead(kPatience)) { }
    address = QString::fromUtf8(daemon.readLine()).trimmed();
    EXPECT_FALSE(address.isEmpty()) << qPrintable(daemon.errorString());
    console = Connect();
}

PrivateBus::~PrivateBus()
{
    for (const QString &name : connections) {
        QDBusConnection::disconnectFromBus(name);
    }
    Stop();
}

QDBusConnection PrivateBus::Connect()
{
    static int count = 0;
    connections << u"private bus %1"_s.arg(++count);
    return QDBusConnection::connectToBus(address, connections.constLast());
}

void PrivateBus::Stop()
{
    daemon.terminate();
    if (daemon.state() != QProcess::NotRunning) {
        EXPECT_TRUE(daemon.waitForFinished(kPatience));
    }
}
