// What the accounting service takes of its machine: an idle period and the memory with a hundred thousand
// users, and how long a console waits beside a count of ten thousand active ones. The program itself is
// measured, on a gateway in a laboratory.
#include "base/ipv4.h"
#include "db/direct_connection.h"
#include "service/running_service.h"
#include "support/bench_database.h"
#include "support/lab/links.h"
#include "support/lab/traffic.h"
#include "support/limited_users.h"
#include "support/must.h"
#include "support/spent.h"

#include <QCoreApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsers = 100'000;
constexpr int kActive = 10'000;
constexpr quint32 kNetwork = 0x0A000000; // 10.0.0.0/15, which has all of their addresses
constexpr quint32 kMask = 0xFFFE0000;
constexpr int kSettling = 3; // counts after which everything is known
constexpr int kCounts = 10; // of one measurement
const Endpoint kThere {u"10.79.0.1"_s, 4000};

// Prints a figure beside what is promised; whether that is broken.
bool Judge(const QString &what, double value, const char *unit, double most)
{
    const bool broken = value > most;
    std::printf("%-64s %9.1f %s (at most %g)%s\n",
                qPrintable(what),
                value,
                unit,
                most,
                broken ? "  BROKEN" : "");
    return broken;
}

// The network of the users' addresses, behind lan0.
void RouteUsers(const Laboratory &lab)
{
    const QString network = DottedText(kNetwork);
    constexpr int kPrefix = 15;
    const auto routed = Links::Open().and_then(
        [&](Links links) { return links.AddRoute(network, kPrefix, u"10.76.0.2"_s); });
    const Visit visit(lab, Place::Workstations);
    const auto owned =
        Links::Open().and_then([&](Links links) { return links.AddLocal(network, kPrefix); });
    if (!routed || !owned) {
        Fail(u"NOT MEASURED: "_s + (routed ? owned : routed).error().text);
    }
}

// Nobody sends, and nobody writes into the database.
int MeasureIdle(const QString &engine)
{
    RunningService service(LimitedUsers(engine, kUsers), kNetwork, kMask);
    service.AwaitCounts(kSettling, [] {});
    const double ownBefore = service.CpuSeconds();
    const double serverBefore = ServerSeconds(engine);
    double resident = 0;
    service.AwaitCounts(kCounts,
                        [&] { resident = std::max(resident, service.ResidentMegabytes()); });
    const double own = (service.CpuSeconds() - ownBefore) * 1000 / kCounts;
    const double server = (ServerSeconds(engine) - serverBefore) * 1000 / kCounts;
    const QString name = engine + u": "_s;
    std::printf("%-64s %9.1f ms, server %.1f ms\n",
                qPrintable(name + u"CPU of the service in an idle period"_s),
                own,
                server);
    int broken = Judge(name + u"idle period, 100 000 users"_s, own + server, "ms CPU", 100) ? 1 : 0;
    broken += Judge(name + u"memory, 100 000 users, idle"_s, resident, "MB", 100) ? 1 : 0;
    std::printf("%-64s %9.1f MB\n",
                qPrintable(name + u"the most memory since its beginning"_s),
                service.PeakMegabytes());
    return broken;
}

// Ten thousand workstations send once in each period for as long as this lives.
class Workstations
{
public:
    explicit Workstations(const Laboratory &lab)
        : source(MakeSocket(lab, Place::Workstations, Transport::Udp, {u"0.0.0.0"_s, kThere.port}))
        , thread([this] {
            constexpr int kParts = 50;
            while (!stop) {
                for (int part = 0; part < kParts && !stop; ++part) {
                    SendOfPart(part, kParts);
                    std::this_thread::sleep_for(
                        std::chrono::milliseconds(RunningService::kPeriodSeconds * 1000 / kParts));
                }
            }
        })
    { }
    ~Workstations()
    {
        stop = true;
        thread.join();
    }
    Workstations(const Workstations &) = delete;
    Workstations &operator=(const Workstations &) = delete;

private:
    // As the addresses of the users: 254 in each network of 256.
    void SendOfPart(int part, int parts) const
    {
        for (int user = part * kActive / parts; user < (part + 1) * kActive / parts; ++user) {
            const auto host = static_cast<quint32>(user / 254 * 256 + user % 254 + 1);
            SendFrom(source, kNetwork + host, kThere, 100);
        }
    }

    OpenFile source;
    std::atomic<bool> stop = false;
    std::thread thread;
};

// The milliseconds that each call took.
class Waits
{
public:
    void Take(FunctionRef<bool()> act, const DirectConnection &connection)
    {
        QElapsedTimer clock;
        clock.start();
        Must(act(), connection);
        all.push_back(static_cast<double>(clock.nsecsElapsed()) / 1e6);
    }

    [[nodiscard]] bool Judge(const QString &what)
    {
        std::ranges::sort(all);
        std::printf("%-64s %9.1f ms (of %zu)\n",
                    qPrintable(what + u", 99 of 100 within"_s),
                    all[all.size() * 99 / 100],
                    all.size());
        return ::Judge(what + u", the longest"_s, all.back(), "ms", 100);
    }

private:
    std::vector<double> all;
};

// All that the service and the server do in a period in which everybody has sent.
int MeasureTick(const Laboratory &lab, const QString &engine)
{
    RunningService service(LimitedUsers(engine, kActive), kNetwork, kMask);
    const Workstations workstations(lab);
    service.AwaitCounts(kSettling, [] {});
    const auto spent = [&] { return service.CpuSeconds() + ServerSeconds(engine); };
    const double before = spent();
    service.AwaitCounts(kCounts, [] {});
    return Judge(engine + u": period with 10 000 active users"_s,
                 (spent() - before) * 1000 / kCounts,
                 "ms CPU",
                 engine == u"sqlite"_s ? 500 : 1500)
        ? 1
        : 0;
}

// What a console does with one user after the other. Of the writes one goes to a row that each count
// writes, too.
class Console
{
public:
    explicit Console(const QString &dsn) { Must(connection.Open(dsn), connection); }

    void LookAndChange(int value)
    {
        user = user % kActive + 1;
        Run(reads, u"SELECT * FROM users WHERE user_id = ?"_s, {user});
        Run(writes,
            u"UPDATE users SET descrip = ? WHERE user_id = ?"_s,
            {QByteArray::number(value), user});
        Run(countedWrites,
            u"UPDATE traffic_use SET data = data WHERE user_id = ? AND period = 0"_s,
            {user});
    }

    // How many promises are broken.
    int Judge(const QString &engine)
    {
        return (reads.Judge(engine + u": a console's read beside counts"_s) ? 1 : 0)
            + (writes.Judge(engine + u": a console's write beside counts"_s) ? 1 : 0)
            + (countedWrites.Judge(engine + u": a console's write of what is counted"_s) ? 1 : 0);
    }

private:
    void Run(Waits &waits, const QString &statement, const SqlValues &values)
    {
        waits.Take([&] { return connection.Run(statement, values); }, connection);
    }

    DirectConnection connection;
    qint32 user = 0;
    Waits reads;
    Waits writes;
    Waits countedWrites;
};

int MeasureConsole(const Laboratory &lab, const QString &engine)
{
    const QString dsn = LimitedUsers(engine, kUsers);
    RunningService service(dsn, kNetwork, kMask);
    const Workstations workstations(lab);
    service.AwaitCounts(kSettling, [] {});
    Console console(dsn);
    service.AwaitCounts(kCounts, [&] {
        for (int i = 0; i < 10; ++i) {
            console.LookAndChange(i);
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
    });
    return console.Judge(engine);
}

} // namespace

int main(int argc, char **argv)
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0); // line by line, as it takes minutes
    const auto lab = Laboratory::Make(); // before any thread is made
    if (!lab) {
        Fail(u"NOT MEASURED: "_s + lab.error());
    }
    const QCoreApplication application(argc, argv);
    RouteUsers(**lab);
    int broken = 0;
    for (const char *engine : kBenchEngines) {
        broken += MeasureIdle(QString::fromLatin1(engine));
        broken += MeasureTick(**lab, QString::fromLatin1(engine));
        broken += MeasureConsole(**lab, QString::fromLatin1(engine));
    }
    return broken > 0 ? 1 : 0;
}
