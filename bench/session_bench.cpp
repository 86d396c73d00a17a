// Statements on single users: through the session, and through the same calls of the bare interface.
#include "db/session.h"
#include "db/translation.h"
#include "support/bare_session.h"
#include "support/bench_database.h"
#include "support/promise.h"

#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsers = 1000;
constexpr char kUpdate[] = "UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)";
constexpr char kSelect[] = "SELECT traflim, timelim FROM users WHERE user_id = (?) ";

void UpdateThroughSession(benchmark::State &state, const QString &engine)
{
    ConnectDatabase(BenchDatabase(engine, kUsers).toUtf8().constData());
    for ([[maybe_unused]] auto _ : state) {
        for (quint32 user = 1; user <= kUsers; ++user) {
            Execute(kUpdate, 3U, user);
        }
    }
    DisconnectDatabase();
}

void UpdateBare(benchmark::State &state, const QString &engine)
{
    BareSession session(BenchDatabase(engine, kUsers));
    BareStatement update {Translate(session.Engine(), kUpdate), {BareInteger(3), BareInteger(0)}};
    for ([[maybe_unused]] auto _ : state) {
        for (int user = 1; user <= kUsers; ++user) {
            update.values[1] = BareInteger(user);
            session.Run(update);
        }
    }
}

void SelectThroughSession(benchmark::State &state, const QString &engine)
{
    ConnectDatabase(BenchDatabase(engine, kUsers).toUtf8().constData());
    for ([[maybe_unused]] auto _ : state) {
        for (quint32 user = 1; user <= kUsers; ++user) {
            RunQuery(kSelect, FetchMode::All, user);
            benchmark::DoNotOptimize(queryResult.Integer(1) + queryResult.Integer(2));
        }
    }
    DisconnectDatabase();
}

void SelectBare(benchmark::State &state, const QString &engine)
{
    BareSession session(BenchDatabase(engine, kUsers));
    BareStatement select {Translate(session.Engine(), kSelect), {BareInteger(0)}};
    for ([[maybe_unused]] auto _ : state) {
        for (int user = 1; user <= kUsers; ++user) {
            select.values[0] = BareInteger(user);
            session.Run(select);
            benchmark::DoNotOptimize(std::atoi(session.Column(0)) + std::atoi(session.Column(1)));
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<Promise> promises;
    for (const char *engine : kBenchEngines) {
        const auto name = [engine](const char *what) { return std::string(engine) + ": " + what; };
        const auto add = [&](const char *what, auto function) {
            benchmark::RegisterBenchmark(name(what).c_str(), function, QString::fromLatin1(engine))
                ->Unit(benchmark::kMillisecond);
        };
        add("1000 updates, session", UpdateThroughSession);
        add("1000 updates, bare", UpdateBare);
        add("1000 reads, session", SelectThroughSession);
        add("1000 reads, bare", SelectBare);
        promises.push_back({name("1000 updates, session"), name("1000 updates, bare"), 1.1});
        promises.push_back({name("1000 reads, session"), name("1000 reads, bare"), 1.1});
    }
    return RunAndCompare(argc, argv, promises);
}
