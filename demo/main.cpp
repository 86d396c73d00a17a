// tollbrooksvc-demo: stands in for the accounting service and for the service manager on a private
// message bus, and counts made-up traffic into the database while it is started.
#include "config/config_store.h"
#include "config/config_values.h"
#include "db/query.h"
#include "db/session.h"
#include "demo/demo_objects.h"
#include "demo/made_up_gateway.h"
#include "metering/bytes.h"
#include "metering/new_period.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QTextStream>
#include <QTime>
#include <QTimer>

#include <clocale>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

void Say(const QString &text)
{
    static QTextStream out(stdout);
    out << QTime::currentTime().toString(u"HH:mm:ss "_s) << text << Qt::endl;
}

Result<std::vector<UserId>> UsersThatMayWork()
{
    return ReadAll("SELECT user_id FROM users WHERE monitored = true and blocked = false",
                   [](const Row &row) { return row.Id<UserId>(1); });
}

void SayNotCounted(const Failure &failure)
{
    Say(u"not counted: %1"_s.arg(failure.text));
}

// Holds the database open and counts while the unit is active.
struct Counter
{
    QString dsn;
    double price = 1; // money for each megabyte
    size_t users = 12; // counted each time
    MadeUpTraffic traffic {1};

    void Follow(const DemoUnit &unit, int seconds)
    {
        counts = unit.IsActive() && !dsn.isEmpty();
        if (!unit.IsActive()) {
            timer.stop();
            DisconnectDatabase();
            return;
        }
        if (counts && ConnectDatabase(dsn.toUtf8().constData()) == 0) {
            Say(u"the database %1 cannot be opened; nothing is counted until it can"_s.arg(dsn));
        }
        if (seconds > 0) {
            timer.start(seconds * 1000);
        }
    }

    void Count()
    {
        if (!counts) {
            return;
        }
        const auto settled = SettleAccounts(QDateTime::currentDateTime(), {price});
        const auto mayWork = settled ? UsersThatMayWork() : tl::unexpected(settled.error());
        if (!mayWork) {
            SayNotCounted(mayWork.error());
            return;
        }
        if (!settled->lifted.isEmpty()) {
            Say(u"a new period: %1 users unblocked"_s.arg(settled->lifted.size()));
        }
        SayBlocked(*settled);
        CountEach(traffic.Choose(*mayWork, users));
    }

    QTimer timer;

private:
    void CountEach(const std::vector<UserId> &chosen)
    {
        for (const UserId user : chosen) {
            gateway.Add(user, traffic.Next());
        }
        const auto counted = WriteCount(gateway.At(QDateTime::currentDateTime()), {price});
        if (!counted) {
            SayNotCounted(counted.error());
            return;
        }
        gateway.TakeWritten();
        SayBlocked(*counted);
        Say(u"counted %1 Mb of %2 users"_s.arg(MegabytesOf(counted->received).value, 0, 'f', 2)
                .arg(counted->users));
    }

    static void SayBlocked(const Counted &counted)
    {
        for (const UserId user : counted.trafficUsedUp) {
            Say(u"user %1 blocked, reason 1"_s.arg(user.value));
        }
        for (const UserId user : counted.timeUsedUp) {
            Say(u"user %1 blocked, reason 2"_s.arg(user.value));
        }
        for (const GroupId group : counted.groupsUsedUp) {
            Say(u"group %1 blocked, reason 1"_s.arg(group.value));
        }
    }

    MadeUpGateway gateway;
    bool counts = false; // the unit is active and there is a database to count into
};

struct Options
{
    QCommandLineParser parser;
    const QCommandLineOption config {
        u"config"_s, u"Take data source and price from the console's settings."_s, u"folder"_s};
    const QCommandLineOption dsn {u"dsn"_s, u"Count into this ODBC data source."_s, u"name"_s};
    const QCommandLineOption every {
        u"every"_s, u"Count every so many seconds, 0 for never (3)."_s, u"seconds"_s, u"3"_s};
    const QCommandLineOption users {
        u"users"_s, u"Users counted each time (12)."_s, u"number"_s, u"12"_s};
    const QCommandLineOption seed {u"seed"_s, u"Other made-up traffic (1)."_s, u"number"_s, u"1"_s};
    const QCommandLineOption stopped {u"stopped"_s, u"Begin with the service stopped."_s};
    const QCommandLineOption delay {
        u"delay"_s, u"What a start and a stop take (600)."_s, u"milliseconds"_s, u"600"_s};
    const QCommandLineOption onStart {
        u"on-start"_s, u"work, refuse, hang or die (work)."_s, u"behaviour"_s, u"work"_s};
    const QCommandLineOption onStop {
        u"on-stop"_s, u"work, refuse or hang (work)."_s, u"behaviour"_s, u"work"_s};

    Options()
    {
        parser.setApplicationDescription(
            u"Stands in for the accounting service and for the service manager on the session bus."_s);
        parser.addHelpOption();
        parser.addOptions({config, dsn, every, users, seed, stopped, delay, onStart, onStop});
    }

    [[nodiscard]] int Number(const QCommandLineOption &option) const
    {
        return parser.value(option).toInt();
    }
};

void SetUp(Counter &counter, const Options &options)
{
    if (options.parser.isSet(options.config)) {
        const ConfigStore store(options.parser.value(options.config));
        counter.dsn = store.ReadText(values::kBillDsn).value_or(QString());
        counter.price = store.ReadAmount(values::kTrafPrice);
    }
    if (options.parser.isSet(options.dsn)) {
        counter.dsn = options.parser.value(options.dsn);
    }
    counter.users = static_cast<size_t>(qMax(0, options.Number(options.users)));
    counter.traffic = MadeUpTraffic(static_cast<quint32>(options.Number(options.seed)));
}

bool SetUp(DemoUnit &unit, const Options &options)
{
    unit.delay = options.Number(options.delay);
    return BehaviourFrom(options.parser.value(options.onStart), unit.onStart)
        && BehaviourFrom(options.parser.value(options.onStop), unit.onStop);
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // drivers read and write numbers by it
    Options options;
    options.parser.process(application);
    DemoUnit unit;
    if (!SetUp(unit, options)) {
        qCritical("A behaviour is one of work, refuse, hang, die.");
        return 2;
    }
    Counter counter;
    SetUp(counter, options);
    const int seconds = options.Number(options.every);
    DemoManager manager(unit);
    DemoAccounting accounting;
    DemoControl control(unit);
    if (!Offer(QDBusConnection::sessionBus(), unit, manager, accounting, control)) {
        qCritical("The session bus is not there, or another program has the names already.");
        return 1;
    }
    QObject::connect(&unit, &DemoUnit::StateChanged, &unit, [&](const QString &state) {
        Say(u"service %1"_s.arg(state));
        counter.Follow(unit, seconds);
    });
    QObject::connect(&accounting, &DemoAccounting::Told, &unit, [](const QString &what, uint user) {
        Say(u"%1 %2"_s.arg(what).arg(user));
    });
    QObject::connect(&control, &DemoControl::CountAsked, &unit, [&] { counter.Count(); });
    QObject::connect(&counter.timer, &QTimer::timeout, &unit, [&] { counter.Count(); });
    if (!options.parser.isSet(options.stopped)) {
        unit.BeginActive();
    }
    Say(u"ready"_s);
    const int status = QCoreApplication::exec();
    DisconnectDatabase();
    return status;
}
