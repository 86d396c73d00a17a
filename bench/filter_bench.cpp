// Searches for users in a table of a million: what begins with a text, and what holds it anywhere, held
// against the time that a person waits and against a bare look at every name.
#include "access/user_search.h"
#include "db/direct_connection.h"
#include "db/session.h"
#include "db/translation.h"
#include "support/bench_database.h"
#include "support/must.h"
#include "support/promise.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsers = 1'000'000;
constexpr double kMoment = 100; // milliseconds
constexpr double kShortWait = 1000;

// The least that looks at the names of every user.
constexpr char kBareScan[] =
    "SELECT COUNT(*) FROM users SCANNED WHERE monitored = true AND group_id<>0 AND ("
    "username PLAIN_CASE LIKE '%ler400%' OR fullname PLAIN_CASE LIKE '%ler400%' OR "
    "stationname PLAIN_CASE LIKE '%ler400%' OR descrip PLAIN_CASE LIKE '%ler400%')";

using Find = Result<UserList> (*)(const UserFilter &, ListOrder, bool);

// On a connection that has searched before, as the find bar's has.
void Search(benchmark::State &state, const QString &engine, const QString &typed, Find find)
{
    if (ConnectDatabase(BenchDatabase(engine, kUsers).toUtf8().constData()) == 0) {
        Fail(LastFailure()->text);
    }
    const UserFilter filter = UserFilterFrom(typed).value();
    const auto found = find(filter, {}, true);
    for ([[maybe_unused]] auto _ : state) {
        benchmark::DoNotOptimize(find(filter, {}, true));
    }
    if (!found || found->rows.isEmpty()) {
        state.SkipWithError("nobody was found");
    }
    DisconnectDatabase();
}

void ScanBare(benchmark::State &state, const QString &engine)
{
    DirectConnection connection;
    Must(connection.Open(BenchDatabase(engine, kUsers)), connection);
    const auto scan = QString::fromStdString(Translate(connection.Engine(), kBareScan));
    for ([[maybe_unused]] auto _ : state) {
        Must(connection.Rows(scan).has_value(), connection);
    }
}

struct Case
{
    const char *what;
    QString typed;
    Find find;
    double most; // milliseconds
};

constexpr char kFewNames[] = "middle of few names";

} // namespace

int main(int argc, char **argv)
{
    const Case cases[] = {
        {"beginning of many names", u"an"_s, FindUsersQuickly, kMoment},
        {"beginning of few names", u"anna.adler4"_s, FindUsersQuickly, kMoment},
        {"beginning with other letters", u"bj\u00f6rn"_s, FindUsersQuickly, kMoment},
        {"beginning of an address", u"10.1.2"_s, FindUsersQuickly, kMoment},
        {"middle of many names", u"ann"_s, FindUsers, kShortWait},
        {kFewNames, u"ler400"_s, FindUsers, kShortWait},
        {"middle with other letters", u"j\u00f6r"_s, FindUsers, kShortWait},
        {"network", u"10.1.2.0/24"_s, FindUsers, kMoment},
    };
    std::vector<Promise> promises;
    std::vector<Limit> limits;
    for (const char *engine : kBenchEngines) {
        const auto name = [engine](const char *what) { return std::string(engine) + ": " + what; };
        const auto add = [&](const char *what, auto... function) {
            benchmark::RegisterBenchmark(name(what).c_str(), function...)
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond);
        };
        const auto of = QString::fromLatin1(engine);
        for (const Case &one : cases) {
            add(one.what, Search, of, one.typed, one.find);
            limits.push_back({name(one.what), one.most});
        }
        add("bare look at all names", ScanBare, of);
        promises.push_back({name(kFewNames), name("bare look at all names"), 2.5});
    }
    constexpr int kTimes = 5;
    return RunAndCompare(argc, argv, promises, kTimes, {}, limits);
}
