// Searches for users in a table of a million: what begins with a text, and what holds it anywhere.
#include "access/user_search.h"
#include "db/session.h"
#include "support/bench_database.h"
#include "support/must.h"
#include "support/promise.h"

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsers = 1'000'000;
constexpr char kLongest[] = "ms, the longest";

using Find = Result<UserList> (*)(const UserFilter &, ListOrder, bool);

void Search(benchmark::State &state, const QString &engine, const QString &typed, Find find)
{
    if (ConnectDatabase(BenchDatabase(engine, kUsers).toUtf8().constData()) == 0) {
        Fail(LastFailure()->text);
    }
    const UserFilter filter = UserFilterFrom(typed).value();
    double longest = 0;
    for ([[maybe_unused]] auto _ : state) {
        const auto begin = std::chrono::steady_clock::now();
        const auto found = find(filter, {}, true);
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - begin;
        longest = std::max(longest, took.count());
        if (!found || found->rows.isEmpty()) {
            state.SkipWithError("nobody was found");
        }
    }
    state.counters[kLongest] = longest;
    DisconnectDatabase();
}

struct Case
{
    const char *what;
    QString typed;
    Find find;
    double most; // milliseconds
};

} // namespace

int main(int argc, char **argv)
{
    const Case cases[] = {
        {"beginning of many names", u"an"_s, FindUsersQuickly, 100},
        {"beginning of few names", u"anna.adler4"_s, FindUsersQuickly, 100},
        {"beginning of an address", u"10.1.2"_s, FindUsersQuickly, 100},
        {"middle of many names", u"ann"_s, FindUsers, 1000},
        {"middle of few names", u"ler400"_s, FindUsers, 1000},
        {"network", u"10.1.2.0/24"_s, FindUsers, 1000},
    };
    std::vector<Bound> bounds;
    for (const char *engine : kBenchEngines) {
        for (const Case &one : cases) {
            const auto name = std::string(engine) + ": " + one.what;
            benchmark::RegisterBenchmark(
                name.c_str(), Search, QString::fromLatin1(engine), one.typed, one.find)
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond);
            bounds.push_back({name, kLongest, one.most});
        }
    }
    constexpr int kTimes = 5;
    return RunAndCompare(argc, argv, {}, kTimes, bounds);
}
