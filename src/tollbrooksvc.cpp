// tollbrooksvc: the accounting service of a gateway.
#include "daemon/accounting_service.h"
#include "daemon/heap.h"
#include "daemon/self_check.h"
#include "daemon/supervisor.h"
#include "daemon/termination.h"
#include "daemon/unit_job.h"
#include "startup/start_up.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLoggingCategory>
#include <QTextStream>

#include <clocale>

using namespace Qt::StringLiterals;

namespace {

// What the program ends with.
enum Status {
    Done = 0,
    CheckFailed = 1,
    BadArguments = 2,
    BadSettings = 3,
    NoKernel = 4,
    NoDatabase = 5,
    NoBus = 6,
};

struct Arguments
{
    QCommandLineOption config {
        u"config"_s,
        u"The folder with the settings ($TOLLBROOK_CONFIG, else /etc/tollbrook)."_s,
        u"DIR"_s};
    QCommandLineOption bus {
        u"bus"_s, u"The message bus: system (unless given) or session."_s, u"NAME"_s, u"system"_s};
    QCommandLineOption check {u"check"_s,
                              u"Tells whether the service could work here, and ends."_s};
    QCommandLineParser parser;

    Arguments()
    {
        parser.setApplicationDescription(u"Counts and limits what workstations send and receive "
                                         "through this gateway."_s);
        parser.addHelpOption();
        parser.addVersionOption();
        parser.addOptions({config, bus, check});
    }
};

Status Fail(Status status, const QString &text)
{
    journal::Error(text);
    return status;
}

Status PrintCheck(const ConfigStore &store)
{
    const SelfCheck check = CheckSelf(store);
    QTextStream out(stdout);
    for (const QString &each : check.good) {
        out << "good     " << each << Qt::endl;
    }
    for (const QString &each : check.warnings) {
        out << "warning  " << each << Qt::endl;
    }
    for (const QString &each : check.problems) {
        out << "PROBLEM  " << each << Qt::endl;
    }
    return check.problems.isEmpty() ? Done : CheckFailed;
}

QString StateFolder()
{
    return qEnvironmentVariable("STATE_DIRECTORY", u"/var/lib/tollbrook"_s).section(u':', 0, 0);
}

// The service from its beginning to its end.
class Run : public QObject
{
public:
    Run(const ConfigStore &store,
        const ServiceSettings &settings,
        std::unique_ptr<KernelTable> kernel,
        const QDBusConnection &connection,
        Termination &signalled)
        : serviceBus(connection)
        , termination(signalled)
        , service(store, settings, std::move(kernel), database, StateFolder())
        , onBus(connection, service)
    {
        Connect();
        database.Open(settings.dataSource);
    }

    // The name first: nobody else's table is touched.
    void Begin()
    {
        if (const auto problem = onBus.Appear()) {
            End(Fail(NoBus, *problem));
            return;
        }
        service.Begin();
    }

    [[nodiscard]] Status Result() const { return result; }

private:
    void Connect()
    {
        connect(&service, &AccountingService::Began, this, &Run::TellReady);
        connect(&service,
                &AccountingService::GaveUp,
                this,
                [this](AccountingService::Missing missing, const QString &why) {
                    const bool isKernel = missing == AccountingService::Missing::Kernel;
                    End(Fail(isKernel ? NoKernel : NoDatabase, why));
                });
        connect(&service, &AccountingService::Stopped, this, [this] { End(result); });
        connect(&termination, &Termination::ReloadAsked, this, [this] {
            supervisor::Reloading();
            service.Reload();
            supervisor::Ready();
        });
        connect(&termination, &Termination::StopAsked, this, [this] {
            supervisor::Stopping();
            service.Stop(IsUnitRestarting(serviceBus));
        });
        StatusAdaptor &status = onBus.Status();
        connect(&service, &AccountingService::Counted, &status, &StatusAdaptor::Counted);
        connect(
            &service, &AccountingService::RefusedChanged, &status, &StatusAdaptor::RefusedChanged);
        connect(&service,
                &AccountingService::ProblemsChanged,
                &status,
                &StatusAdaptor::ProblemsChanged);
        if (const auto interval = supervisor::AliveInterval(); interval.count() > 0) {
            connect(&alive, &QTimer::timeout, this, [] { supervisor::Alive(); });
            alive.start(std::chrono::duration_cast<std::chrono::milliseconds>(interval));
        }
    }

    static void TellReady()
    {
        supervisor::Ready();
        journal::Info(u"Counting."_s);
    }

    void End(Status status)
    {
        result = status;
        QCoreApplication::exit(status);
    }

    Status result = Done;
    QDBusConnection serviceBus;
    Termination &termination;
    SessionThread database;
    AccountingService service;
    ServiceBus onBus;
    QTimer alive;
};

} // namespace

int main(int argc, char **argv)
{
    heap::KeepSmall();
    const QCoreApplication application(argc, argv);
    QCoreApplication::setApplicationVersion(QStringLiteral(TB_VERSION));
    journal::TakeMessages();
    // Who asks for what there is not gets an answer. Newer versions of Qt write lines of it, too, and
    // anybody on the bus could fill the journal.
    QLoggingCategory::setFilterRules(u"qt.dbus.integration=false"_s);
    std::setlocale(LC_NUMERIC, "C"); // drivers read and write numbers by it
    Termination termination; // before there is any other thread
    Arguments arguments;
    arguments.parser.process(application);
    const auto bus = BusNamed(arguments.parser.value(arguments.bus));
    if (!bus) {
        return Fail(BadArguments, u"The bus is \"system\" or \"session\"."_s);
    }
    const StartedProgram program(
        {.configFolder = arguments.parser.value(arguments.config), .opensDatabase = false});
    if (arguments.parser.isSet(arguments.check)) {
        return PrintCheck(program.settings);
    }
    const auto [settings, faults] = ReadServiceSettings(program.settings, {});
    for (const QString &fault : faults) {
        journal::Warning(fault);
    }
    if (const QStringList problems = ProblemsOf(settings); !problems.isEmpty()) {
        return Fail(BadSettings, problems.join(u' '));
    }
    auto kernel = KernelTable::Open();
    if (!kernel) {
        return Fail(NoKernel, kernel.error().text);
    }
    Run run(program.settings, settings, *std::move(kernel), *bus, termination);
    QTimer::singleShot(0, &run, [&run] { run.Begin(); });
    QCoreApplication::exec();
    return run.Result();
}
