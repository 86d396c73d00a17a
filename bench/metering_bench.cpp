// A count of 10 000 active users of whom 2000 have limits, and who may send what: the time of the
// program and of the server, how long a count holds the database, and the same statements by bare calls.
#include "db/dialect.h"
#include "db/failure_log.h"
#include "db/session.h"
#include "db/write.h"
#include "metering/batch_size.h"
#include "metering/count.h"
#include "metering/standing.h"
#include "sheet/sent_statements.h"
#include "support/bare_session.h"
#include "support/bench_database.h"
#include "support/limited_users.h"
#include "support/must.h"
#include "support/promise.h"
#include "support/spent.h"

#include <QLoggingCategory>
#include <QTimeZone>

#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsers = 10'000;
constexpr int kKnownUsers = 100'000;
constexpr int kCounts = 5; // of one measurement
constexpr Prices kPrices {0.01};

void Open(const QString &dsn)
{
    if (ConnectDatabase(dsn.toUtf8().constData()) == 0) {
        Fail(LastFailure()->text);
    }
}

// Each user's next count is a megabyte or so above the last one.
class Gateway
{
public:
    Gateway()
    {
        const QDateTime noon(QDate::currentDate(), QTime(12, 0), QTimeZone::utc());
        count = {u"bench"_s, 7, noon, {}, {}, {}, {}};
        for (quint32 user = 1; user <= kUsers; ++user) {
            const NetAddress address = NetAddress::FromIpv4(0x0A000000 + user);
            count.counters.push_back({address, false, UserId {user}, 0, 0});
            count.online.push_back({UserId {user}, 60});
        }
    }

    const Count &Next()
    {
        for (AddressCounters &each : count.counters) {
            each.received += 1'000'003 + each.owner.value;
            each.sent += 100'003;
        }
        return count;
    }

private:
    Count count;
};

Gateway &OfEngine(const QString &engine)
{
    static std::map<QString, Gateway> gateways;
    return gateways[engine];
}

void CountOnce(const QString &engine)
{
    if (const auto counted = WriteCount(OfEngine(engine).Next(), kPrices); !counted) {
        Fail(counted.error().text);
    } else if (counted->users != kUsers || !counted->trafficUsedUp.isEmpty()) {
        Fail(u"The count is not the one that is measured."_s);
    }
}

// How long the database is held: from the beginning of a transaction to what follows its end, less the
// turn of others in between.
struct Holding
{
    using Clock = std::chrono::steady_clock;

    void Note(const QString &statement)
    {
        if (ending) {
            longest = std::max(longest, Clock::now() - begin - turnOfOthers);
        }
        ending = statement == u"COMMIT"_s;
        if (statement.startsWith(u"BEGIN"_s) || statement.startsWith(u"START"_s)) {
            begin = Clock::now();
        }
    }

    std::chrono::milliseconds turnOfOthers {};
    Clock::time_point begin;
    Clock::duration longest {};
    bool ending = false;
};

Holding *holding = nullptr;

void NoteStatement(QtMsgType, const QMessageLogContext &, const QString &text)
{
    if (holding != nullptr) {
        holding->Note(text);
    }
}

void HoldDatabase(benchmark::State &state, const QString &engine)
{
    Open(LimitedUsers(engine, kUsers));
    CountOnce(engine);
    Holding held;
    if (transaction::ShutsOutWriters()) {
        held.turnOfOthers = BatchSize::kTurnOfOthers;
    }
    holding = &held;
    QLoggingCategory::setFilterRules(u"tollbrook.db.statement.debug=true"_s);
    const auto former = qInstallMessageHandler(NoteStatement);
    for ([[maybe_unused]] auto _ : state) {
        CountOnce(engine);
    }
    held.Note({});
    qInstallMessageHandler(former);
    QLoggingCategory::setFilterRules({});
    holding = nullptr;
    const std::chrono::duration<double, std::milli> longest = held.longest;
    state.counters["ms held"] = longest.count();
    DisconnectDatabase();
}

// The CPU time of the program and the server is the iteration's: the turns that are left to other writers
// are no work. The work ends its connection, or a server does not tell what that spent.
template <typename Work>
void MeasureCpu(benchmark::State &state, const QString &engine, const Work &work)
{
    const auto spent = [&engine] { return OwnSeconds() + ServerSeconds(engine); };
    double all = 0;
    for ([[maybe_unused]] auto _ : state) {
        const double before = spent();
        work();
        const double seconds = spent() - before;
        state.SetIterationTime(seconds);
        all += seconds;
    }
    state.counters["CPU ms"] = all * 1000 / (static_cast<double>(state.iterations()) * kCounts);
}

// The first count makes the day's records.
void CountAll(benchmark::State &state, const QString &engine)
{
    Open(LimitedUsers(engine, kUsers));
    CountOnce(engine);
    DisconnectDatabase();
    MeasureCpu(state, engine, [&engine] {
        Open(LimitedUsers(engine, kUsers));
        for (int i = 0; i < kCounts; ++i) {
            CountOnce(engine);
        }
        DisconnectDatabase();
    });
}

void CountBare(benchmark::State &state, const QString &engine)
{
    const QString dsn = LimitedUsers(engine, kUsers);
    Open(dsn);
    CountOnce(engine);
    std::vector<BareStatement> statements = SentBy([&] { CountOnce(engine); });
    DisconnectDatabase();
    MeasureCpu(state, engine, [&] {
        BareSession session(dsn);
        for (int i = 0; i < kCounts; ++i) {
            for (BareStatement &statement : statements) {
                session.Run(statement);
            }
        }
    });
    state.counters["statements"] = static_cast<double>(statements.size());
}

void Stand(benchmark::State &state, const QString &engine, int users)
{
    Open(LimitedUsers(engine, users));
    const Moment now {QDate::currentDate(), QTime(12, 0)};
    const double before = OwnSeconds();
    for ([[maybe_unused]] auto _ : state) {
        const auto standings = ReadStandings(now, kPrices, {});
        if (!standings || standings->users.size() != static_cast<size_t>(users)) {
            Fail(u"The standings are not those of everybody."_s);
        }
    }
    state.counters["own CPU ms"] =
        (OwnSeconds() - before) * 1000 / static_cast<double>(state.iterations());
    DisconnectDatabase();
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<Promise> promises;
    std::vector<Bound> bounds;
    for (const char *engine : kBenchEngines) {
        const auto name = [engine](const char *what) { return std::string(engine) + ": " + what; };
        const QString onEngine = QString::fromLatin1(engine);
        const auto add = [&](const char *what, auto function, auto... values) {
            return benchmark::RegisterBenchmark(name(what).c_str(), function, onEngine, values...)
                ->Iterations(1)
                ->Unit(benchmark::kMillisecond);
        };
        const bool isServer = onEngine != u"sqlite"_s;
        add("5 counts of 10 000 users", CountAll)->UseManualTime();
        add("5 counts of 10 000 users, bare", CountBare)->UseManualTime();
        promises.push_back(
            {name("5 counts of 10 000 users"), name("5 counts of 10 000 users, bare"), 1.5});
        bounds.push_back({name("5 counts of 10 000 users"), "CPU ms", isServer ? 1500.0 : 500.0});
        add("longest transaction", HoldDatabase);
        bounds.push_back({name("longest transaction"), "ms held", isServer ? 100.0 : 50.0});
        add("standings of 10 000 users", Stand, kUsers);
        add("standings of 100 000 users", Stand, kKnownUsers);
    }
    return RunAndCompare(argc, argv, promises, 3, bounds);
}
