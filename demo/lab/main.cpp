// tollbrook-lab: twelve workstations behind a gateway with the real service, all in network namespaces
// of this program's own, without root's rights.
#include "demo/demo_objects.h"
#include "demo/lab/lab_service.h"
#include "demo/lab/lab_traffic.h"
#include "demo/lab/lab_users.h"
#include "support/lab/laboratory.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFileInfo>
#include <QSocketNotifier>
#include <QTextStream>
#include <QTime>

#include <csignal>
#include <sys/signalfd.h>

using namespace Qt::StringLiterals;

namespace {

void Say(const QString &text)
{
    static QTextStream out(stdout);
    out << QTime::currentTime().toString(u"HH:mm:ss "_s) << text << Qt::endl;
}

struct Options
{
    QCommandLineParser parser;
    const QCommandLineOption config {
        u"config"_s, u"The settings of the service and of the console."_s, u"folder"_s};
    const QCommandLineOption fill {
        u"fill"_s, u"Fill this ODBC data source with the users, and end."_s, u"name"_s};

    Options()
    {
        parser.setApplicationDescription(
            u"Twelve simulated workstations that really send packets through the real service. It takes "
            "the place of the service manager on the session bus, and ends with a signal."_s);
        parser.addHelpOption();
        parser.addOptions({config, fill});
    }
};

int Fill(const QString &dsn)
{
    const auto problem = FillWithLabUsers(dsn);
    if (problem) {
        qCritical("%s cannot be filled: %s", qPrintable(dsn), qPrintable(*problem));
    }
    return problem ? 1 : 0;
}

// To be made before any thread: all of them are to leave the signals to it.
OpenFile TakeSignals()
{
    sigset_t wanted;
    sigemptyset(&wanted);
    for (const int number : {SIGTERM, SIGINT, SIGHUP}) {
        sigaddset(&wanted, number);
    }
    pthread_sigmask(SIG_BLOCK, &wanted, nullptr);
    return OpenFile(signalfd(-1, &wanted, SFD_CLOEXEC | SFD_NONBLOCK));
}

int RunLaboratory(const Laboratory &laboratory, const QString &config, const OpenFile &signalled)
{
    DemoUnit unit;
    DemoManager manager(unit);
    if (!Offer(QDBusConnection::sessionBus(), unit, manager)) {
        qCritical("The session bus is not there, or another program has the names already.");
        return 1;
    }
    const QString folder = QCoreApplication::applicationDirPath();
    LabService service(
        unit, folder + u"/tollbrooksvc"_s, {u"--config"_s, config, u"--bus"_s, u"session"_s});
    QObject::connect(&service, &LabService::Said, &unit, [](const QString &line) {
        Say(line);
        if (line == u"Counting."_s) {
            Say(u"ready"_s);
        }
    });
    QObject::connect(&unit, &DemoUnit::StateChanged, &unit, [](const QString &state) {
        Say(u"service %1"_s.arg(state));
    });
    const QSocketNotifier ended(signalled.Number(), QSocketNotifier::Read);
    QObject::connect(&ended, &QSocketNotifier::activated, &unit, [] { QCoreApplication::quit(); });
    const LabTraffic traffic(laboratory);
    unit.BeginActive();
    return QCoreApplication::exec();
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    Options options;
    options.parser.process(application);
    if (options.parser.isSet(options.fill)) {
        return Fill(options.parser.value(options.fill));
    }
    const OpenFile signalled = TakeSignals();
    const auto laboratory = Laboratory::Make();
    if (!laboratory) {
        qCritical("There can be no laboratory here. %s", qPrintable(laboratory.error()));
        return 1;
    }
    return RunLaboratory(**laboratory,
                         QFileInfo(options.parser.value(options.config)).absoluteFilePath(),
                         signalled);
}
