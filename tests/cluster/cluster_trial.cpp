// Two consoles at a cluster of three nodes, and one that edits while its nodes go away: whatever a
// console was told must stand in the tables, and the console goes on within seconds.
#include "db/failure_log.h"
#include "db/query.h"
#include "db/session.h"
#include "edits.h"
#include "nodes.h"

#include <QCoreApplication>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

namespace {

int problems = 0;

void Expect(bool isSo, const char *what)
{
    std::printf("    %s: %s\n", isSo ? "ok" : "WRONG", what);
    problems += isSo ? 0 : 1;
}

void Print(const char *who, const Tally &tally)
{
    std::printf("    %s:", who);
    for (const auto &[state, count] : tally.states) {
        constexpr const char *kNames[] = {
            "done", "partly", "refused", "asked", "not done", "not known"};
        std::printf(" %d %s,", count, kNames[static_cast<int>(state)]);
    }
    std::printf(" %d left to the other;", tally.leftToTheOther);
    for (const auto &[kind, count] : tally.failures) {
        const Failure failure {.kind = kind, .statement = {}, .sqlState = {}, .text = {}};
        std::printf(" %d \"%s\"", count, qPrintable(failure.InWords()));
    }
    std::printf("\n");
}

// Every node must hold the same.
void ExpectTruth(const std::array<const Console *, 2> &consoles)
{
    for (const int node : {1, 2, 3}) {
        QStringList untrue {u"not connected"_s};
        if (ConnectDatabase(Nodes::Only(node).constData()) == 1) {
            untrue = Console::Untrue(consoles);
        }
        DisconnectDatabase();
        for (const QString &each : untrue) {
            std::printf("    node %d: %s\n", node, qPrintable(each));
        }
        Expect(untrue.isEmpty(), "the node's tables hold what the consoles were told");
    }
}

// The same of one console.
void ExpectTruth(const Console &console)
{
    const Console nobody(1);
    ExpectTruth({&console, &nobody});
}

void MakeAgain()
{
    (void)ConnectDatabase(kCluster);
    Execute("DELETE FROM users");
    Execute("DELETE FROM groups WHERE group_id > 80");
    MakeRows();
    DisconnectDatabase();
}

void TryTwoConsoles()
{
    std::printf("Two consoles on two nodes\n");
    MakeAgain();
    FailureLog::Instance().Clear();
    Console consoles[] = {Console(0), Console(1)};
    std::atomic<int> conflicts = 0;
    const auto counting = QObject::connect(
        &FailureLog::Instance(),
        &FailureLog::Changed,
        &FailureLog::Instance(),
        [&] {
            conflicts +=
                FailureLog::Instance().Recent().constLast().kind == Failure::Kind::Conflict;
        },
        Qt::DirectConnection);
    const auto edit = [](Console &console, int node) {
        (void)ConnectDatabase(Nodes::Only(node).constData());
        for (const auto end = Clock::now() + 10s; Clock::now() < end;) {
            console.EditAnything();
        }
        DisconnectDatabase();
    };
    std::thread other(edit, std::ref(consoles[1]), 2);
    edit(consoles[0], 1);
    other.join();
    QObject::disconnect(counting);
    Print("console 1", consoles[0].Told());
    Print("console 2", consoles[1].Told());
    std::printf("    %d conflicts\n", conflicts.load());
    ExpectTruth({&consoles[0], &consoles[1]});
}

// A console that edits on a thread of its own until it is ended.
class BusyConsole
{
public:
    BusyConsole() : thread([this] { Edit(); }) { }

    void End()
    {
        ended = true;
        thread.join();
        Print("console", console.Told());
    }

    // The longest time without an edit that was done, since the last call.
    std::chrono::milliseconds LongestPause()
    {
        return std::chrono::milliseconds(longest.exchange(0));
    }

    int Port() const { return port; }
    int Done() const { return done; }
    const Console &Edits() const { return console; }

private:
    void Edit()
    {
        (void)ConnectDatabase(kCluster);
        auto last = Clock::now();
        for (quint32 n = 0; !ended; ++n) {
            const Outcome outcome = console.EditUser(UserId {n % kUsers + 1});
            const auto pause =
                std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - last).count();
            longest = std::max<long>(longest, pause);
            if (outcome.IsDone()) {
                last = Clock::now();
                ++done;
                const auto at =
                    ReadOne("SELECT @@port", [](const Row &row) { return row.Integer(1); });
                port = at && *at ? static_cast<int>(**at) : 0;
            } else {
                std::printf("    told: %s\n",
                            qPrintable(InWords(ActionId::ApplyUser, outcome).replace(u'\n', u' ')));
            }
            std::this_thread::sleep_for(outcome.IsDone() ? 5ms : 250ms);
        }
        DisconnectDatabase();
    }

    Console console {0};
    std::atomic<bool> ended = false;
    std::atomic<long> longest = 0;
    std::atomic<int> port = 0;
    std::atomic<int> done = 0;
    std::thread thread;
};

void Wait(BusyConsole &busy, const char *what, std::chrono::milliseconds time)
{
    std::this_thread::sleep_for(time);
    std::printf("    %s: longest pause %lld ms, %d edits so far, on port %d\n",
                what,
                static_cast<long long>(busy.LongestPause().count()),
                busy.Done(),
                busy.Port());
}

void TryEachNode(const Nodes &nodes)
{
    std::printf("Each node goes away in turn\n");
    MakeAgain();
    BusyConsole busy;
    Wait(busy, "all nodes", 2s);
    for (const QString &node : {u"1"_s, u"2"_s, u"3"_s}) {
        const int before = busy.Done();
        nodes.Do(u"kill"_s, {node});
        Wait(busy, "killed", 6s);
        Expect(busy.Done() > before + 20, "the console went on");
        nodes.Do(u"rejoin"_s, {node});
        Wait(busy, "rejoined", 1s);
    }
    const int before = busy.Done();
    nodes.Do(u"isolate"_s, {u"1"_s});
    Wait(busy, "node 1 cut off", 10s);
    Expect(busy.Done() > before + 20, "the console went on");
    nodes.Do(u"reunite"_s, {u"1"_s});
    busy.End();
    ExpectTruth(busy.Edits());
}

void TryWithoutQuorum(const Nodes &nodes)
{
    std::printf("Two nodes go away at once\n");
    MakeAgain();
    BusyConsole busy;
    Wait(busy, "all nodes", 2s);
    const QStringList others =
        busy.Port() % 10 == 1 ? QStringList {u"2"_s, u"3"_s} : QStringList {u"1"_s, u"3"_s};
    const QString left = busy.Port() % 10 == 1 ? u"1"_s : u"2"_s;
    nodes.Do(u"kill"_s, others);
    Wait(busy, "two killed", 6s);
    const int before = busy.Done();
    std::this_thread::sleep_for(2s);
    Expect(busy.Done() == before, "nothing was told as done without the others");
    nodes.Do(u"bootstrap"_s, {left});
    const auto back = Clock::now();
    while (busy.Done() == before && Clock::now() < back + 30s) {
        std::this_thread::sleep_for(50ms);
    }
    const auto passed = std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - back);
    std::printf("    %lld ms after the node\n", static_cast<long long>(passed.count()));
    Expect(busy.Done() > before, "the console went on");
    nodes.Do(u"rejoin"_s, others);
    Wait(busy, "rejoined", 2s);
    busy.End();
    ExpectTruth(busy.Edits());
}

void TryOpenTransaction(const Nodes &nodes)
{
    std::printf("A transaction that was open while two nodes were gone\n");
    MakeAgain();
    constexpr char kRead[] = "SELECT descrip FROM users WHERE user_id = 1";
    const auto name = [](const Row &row) { return row.Text(1); };
    (void)ConnectDatabase(Nodes::Only(1).constData());
    Expect(BeginTransaction(), "it began");
    Execute("UPDATE users SET descrip = 'left open' WHERE user_id = 1");
    nodes.Do(u"freeze"_s, {u"2"_s, u"3"_s});
    std::this_thread::sleep_for(8s);
    Expect(!ReadOne(kRead, name), "reads within it fail");
    std::printf("    told: %s\n", qPrintable(LastFailure().value_or(Failure()).InWords()));
    Expect(!CommitTransaction(), "it is not committed");
    Expect(!IsDatabaseOpen(), "the connection was given up");
    RollbackTransaction();
    Expect(!ReadOne(kRead, name), "further reads fail");
    std::printf("    told: %s\n", qPrintable(LastFailure().value_or(Failure()).InWords()));
    nodes.Do(u"thaw"_s, {u"2"_s, u"3"_s});
    const auto end = Clock::now() + 30s;
    while (!ReopenDatabase() && Clock::now() < end) {
        std::this_thread::sleep_for(100ms);
    }
    Expect(BeginTransaction() && CommitTransaction(), "the session goes on when they are back");
    const auto now = ReadOne(kRead, name);
    Expect(now && *now && **now != u"left open"_s, "what was open is not there");
    DisconnectDatabase();
}

} // namespace

int main(int argc, char *argv[])
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3) {
        std::fprintf(stderr, "usage: cluster_trial packaging/try/galera FOLDER\n");
        return 2;
    }
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const Nodes nodes(arguments[1], arguments[2]);
    if (!nodes.Problem().isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(nodes.Problem()));
        return 1;
    }
    TryTwoConsoles();
    TryEachNode(nodes);
    TryWithoutQuorum(nodes);
    TryOpenTransaction(nodes);
    std::printf("%d wrong\n", problems);
    return problems == 0 ? 0 : 1;
}
