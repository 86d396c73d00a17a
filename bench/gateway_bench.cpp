// What the kernel's table costs the packets that it forwards: rates with ten thousand clients against
// rates without it, of a router that does nothing else and of one that translates addresses, in
// laboratories of network namespaces, in turns.
#include "gateway/kernel_table.h"
#include "support/lab/traffic.h"

#include <QProcess>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <netinet/in.h>
#include <random>
#include <sched.h>
#include <sys/socket.h>
#include <thread>
#include <time.h>

using namespace Qt::StringLiterals;

namespace {

constexpr int kClients = 10000;
constexpr int kRounds = 61; // of each rate
constexpr int kTimes = 15; // of each step of the service
constexpr double kSeconds = 0.02; // of one measurement
constexpr double kLeast = 0.95;
constexpr quint16 kPort = 4000;
constexpr Ipv4 kWorkstations = 0x0A4D0000; // 10.77.0.0
const QString kThere = u"10.79.0.1"_s;

// CPU time of this thread. The kernel forwards what it sends in its time, so that other programs on the
// machine take no part in the figures.
double Seconds()
{
    timespec time {};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

void StayOnOneProcessor()
{
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(0, &one);
    sched_setaffinity(0, sizeof one, &one);
}

enum class Kind { Counted, Limited };

[[noreturn]] void Fail(const QString &problem)
{
    std::fprintf(stderr, "%s\n", qPrintable(problem));
    std::exit(1);
}

template <typename Value>
Value Done(GatewayResult<Value> result)
{
    if (!result) {
        Fail(u"NOT MEASURED: "_s + result.error().text);
    }
    return std::move(*result);
}

Ipv4 ClientAddress(int index)
{
    return kWorkstations + 256 + static_cast<Ipv4>(index);
}

Policy PolicyFor(Kind kind)
{
    Policy policy;
    policy.network.lanInterfaces = {u"lan0"_s};
    policy.network.local = {{kWorkstations, 0xFFFF0000}};
    for (int i = 0; i < kClients; ++i) {
        ClientRules &client = policy.clients[static_cast<quint32>(i + 1)];
        client.addresses = {NetAddress::FromIpv4(ClientAddress(i))};
        if (kind == Kind::Limited) {
            client.receivedUntil = quint64 {1} << 50;
        }
    }
    return policy;
}

// Sends datagrams of 22 bytes, 64 bytes on the wire, to ever other addresses; how many a second.
class Datagrams
{
public:
    Datagrams(OpenFile from, const std::vector<Ipv4> &addresses)
        : socket(std::move(from))
        , targets(addresses.size())
    {
        for (size_t i = 0; i < targets.size(); ++i) {
            targets[i].sin_family = AF_INET;
            targets[i].sin_port = htons(kPort);
            targets[i].sin_addr.s_addr = htonl(addresses[i]);
        }
    }

    double Rate()
    {
        constexpr size_t kAtOnce = 64;
        char payload[22] = {};
        iovec part {payload, sizeof payload};
        mmsghdr messages[kAtOnce] = {};
        const double start = Seconds();
        qint64 sent = 0;
        double elapsed = 0;
        while (elapsed < kSeconds) {
            for (mmsghdr &message : messages) {
                message.msg_hdr.msg_name = &targets[next++ % targets.size()];
                message.msg_hdr.msg_namelen = sizeof(sockaddr_in);
                message.msg_hdr.msg_iov = &part;
                message.msg_hdr.msg_iovlen = 1;
            }
            sent += std::max(0, sendmmsg(socket.Number(), messages, kAtOnce, 0));
            elapsed = Seconds() - start;
        }
        return static_cast<double>(sent) / elapsed;
    }

private:
    OpenFile socket;
    std::vector<sockaddr_in> targets;
    size_t next = 0;
};

// So many of all clients, in a random order.
std::vector<Ipv4> SomeClients(size_t count)
{
    std::vector<Ipv4> addresses(kClients);
    for (int i = 0; i < kClients; ++i) {
        addresses[static_cast<size_t>(i)] = ClientAddress(i);
    }
    std::shuffle(addresses.begin(), addresses.end(), std::mt19937(1));
    addresses.resize(count);
    return addresses;
}

// Megabytes a second of a connection from the Internet to a client.
double Throughput(const Laboratory &lab)
{
    const auto listener = Listen(lab, Place::Internet, {kThere, kPort + 1});
    const Connected client =
        Connect(lab, Place::Workstations, {DottedText(ClientAddress(77)), 0}, {kThere, kPort + 1});
    if (client.error != 0) {
        Fail(u"No connection through the gateway"_s);
    }
    const OpenFile server = Accept(listener);
    const double start = Seconds();
    constexpr qint64 kBytes = qint64 {32} << 20;
    const qint64 come = Transfer(server, client.socket, kBytes);
    const double seconds = Seconds() - start;
    return static_cast<double>(come) / seconds / (1 << 20);
}

double Median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

// What the service itself takes for a table of so many clients, in wall-clock time.
void TimeTheTable(KernelTable &table, Kind kind)
{
    const auto report = [](const char *what, FunctionRef<bool()> act) {
        std::vector<double> milliseconds;
        for (int i = 0; i < kTimes; ++i) {
            const auto start = std::chrono::steady_clock::now();
            if (!act()) {
                Fail(u"The kernel's table fails"_s);
            }
            const std::chrono::duration<double, std::milli> spent =
                std::chrono::steady_clock::now() - start;
            milliseconds.push_back(spent.count());
        }
        std::printf("%-50s %-26s %10.1f ms (%.1f at most)\n",
                    "",
                    what,
                    Median(milliseconds),
                    *std::ranges::max_element(milliseconds));
    };
    Policy policy = PolicyFor(kind);
    report("making it", [&] { return table.Remove() && table.Begin(policy); });
    report("taking it over", [&] { return table.Begin(policy).has_value(); });
    report("blocking one client", [&] {
        policy.clients[5].refused = !policy.clients[5].refused;
        return table.Apply(policy).has_value();
    });
    report("a limit for one client", [&] {
        ClientRules &client = policy.clients[6];
        client.receivedUntil =
            client.receivedUntil ? std::nullopt : std::optional<quint64>(1 << 30);
        return table.Apply(policy).has_value();
    });
    report("reading all", [&] { return table.Read().has_value(); });
    report("reading what was sent", [&] { return table.ReadSent().has_value(); });
}

// A gateway with the two ends of its network, between which packets are sent.
class Router
{
public:
    explicit Router(std::unique_ptr<Laboratory> made)
        : lab(std::move(made))
        , sinks {MakeSocket(*lab, Place::Workstations, Transport::Udp, {u"0.0.0.0"_s, kPort}),
                 MakeSocket(*lab, Place::Internet, Transport::Udp, {kThere, kPort})}
        , toFew(MakeSocket(*lab, Place::Internet, Transport::Udp, {kThere, kPort + 2}),
                SomeClients(64))
        , toAll(MakeSocket(*lab, Place::Internet, Transport::Udp, {kThere, kPort + 3}),
                SomeClients(kClients))
        , ofOne(MakeSocket(*lab,
                           Place::Workstations,
                           Transport::Udp,
                           {DottedText(ClientAddress(77)), kPort + 2}),
                {0x0A4F0001})
    { }

    // What passes with all clients in the kernel's table; without one before the first call.
    void Begin(Kind kind)
    {
        if (!table) {
            const Visit visit(*lab, Place::Gateway);
            table = Done(KernelTable::Open());
        }
        static_cast<void>(Done(table->Begin(PolicyFor(kind))));
    }

    [[nodiscard]] KernelTable &Table() { return *table; }

    static constexpr const char *kRates[] = {
        "datagrams/s to 64 active", "datagrams/s to all", "datagrams/s of one", "connection MB/s"};

    [[nodiscard]] double Rate(size_t which)
    {
        switch (which) {
        case 0:
            return toFew.Rate();
        case 1:
            return toAll.Rate();
        case 2:
            return ofOne.Rate();
        default:
            return Throughput(*lab);
        }
    }

private:
    std::unique_ptr<Laboratory> lab;
    // What comes is taken by nobody: a full buffer drops it, at the least cost.
    std::array<OpenFile, 2> sinks;
    Datagrams toFew;
    Datagrams toAll;
    Datagrams ofOne;
    std::unique_ptr<KernelTable> table;
};

// In the present network namespace: the tables of a gateway that shares one address.
void TranslateAddresses()
{
    QProcess nft;
    nft.start(u"nft"_s, {u"-f"_s, u"-"_s});
    nft.write("table inet nat {\n"
              "    chain postrouting {\n"
              "        type nat hook postrouting priority srcnat;\n"
              "        oifname \"wan0\" masquerade\n"
              "    }\n"
              "}\n"
              "table inet filter {\n"
              "    chain forward {\n"
              "        type filter hook forward priority filter;\n"
              "    }\n"
              "}\n");
    nft.closeWriteChannel();
    if (!nft.waitForFinished() || nft.exitCode() != 0) {
        Fail(u"NOT MEASURED: nft: "_s + QString::fromLocal8Bit(nft.readAllStandardError()));
    }
}

std::unique_ptr<Router> MakeRouter(bool translates)
{
    auto lab = Laboratory::Make();
    if (!lab) {
        Fail(u"NOT MEASURED: "_s + lab.error());
    }
    if (translates) {
        TranslateAddresses();
    }
    return std::make_unique<Router>(std::move(*lab));
}

// Prints the rates with a table as a share of those without; how many promises are broken.
int Compare(const char *what, Router &with, Router &without)
{
    int broken = 0;
    for (size_t i = 0; i < std::size(Router::kRates); ++i) {
        std::vector<double> ratios;
        std::vector<double> bare;
        for (int round = 0; round < kRounds; ++round) {
            // The first one of each finds the processor's caches full of the other's.
            static_cast<void>(with.Rate(i));
            const double counted = with.Rate(i);
            static_cast<void>(without.Rate(i));
            bare.push_back(without.Rate(i));
            ratios.push_back(counted / bare.back());
        }
        std::ranges::sort(ratios);
        const double median = Median(ratios);
        std::printf("%-50s %-26s without %10.0f   ratio %.3f (half of them %.3f to %.3f)%s\n",
                    what,
                    Router::kRates[i],
                    Median(bare),
                    median,
                    ratios[ratios.size() / 4],
                    ratios[ratios.size() * 3 / 4],
                    median < kLeast ? "  BROKEN" : "");
        broken += median < kLeast ? 1 : 0;
    }
    return broken;
}

} // namespace

int main()
{
    StayOnOneProcessor();
    struct
    {
        const char *name;
        std::unique_ptr<Router> with;
        std::unique_ptr<Router> without;
    } routers[] = {{"plain router", MakeRouter(false), MakeRouter(false)},
                   {"router that translates", MakeRouter(true), MakeRouter(true)}};
    int broken = 0;
    for (const auto &[kind, name] : {std::pair(Kind::Counted, "10 000 clients"),
                                     {Kind::Limited, "10 000 clients with limits"}}) {
        for (auto &[router, with, without] : routers) {
            with->Begin(kind);
            broken += Compare((std::string(router) + ", " + name).c_str(), *with, *without);
        }
        TimeTheTable(routers[0].with->Table(), kind);
    }
    return broken > 0 ? 1 : 0;
}
