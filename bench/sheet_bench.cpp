// Opening a user's sheet and its OK: through the record and the action, and the same statements, with
// their values and what is read again, in one transaction by bare calls.
#include "access/user_record.h"
#include "accounts/sheet_actions.h"
#include "db/session.h"
#include "db/translation.h"
#include "sheet/sent_statements.h"
#include "support/bare_session.h"
#include "support/bench_database.h"
#include "support/must.h"
#include "support/promise.h"

#include <algorithm>
#include <iterator>

using namespace Qt::StringLiterals;

namespace {

constexpr int kUsers = 1000;
constexpr quint32 kSheets = 20; // in one measurement
constexpr double kRate = 1.0;

void OpenAndStore(UserId userId)
{
    auto record = LoadUser(userId);
    if (!record || !*record) {
        Fail(u"The user cannot be read."_s);
    }
    (*record)->draft.fullName = u"Anna Holm"_s;
    if (!RunAction(ApplyUserAction(**record, kRate), {}, nullptr).IsDone()) {
        Fail(u"The user cannot be stored."_s);
    }
}

void OpenAndStoreAll()
{
    for (quint32 user = 1; user <= kSheets; ++user) {
        OpenAndStore(UserId {user});
    }
}

void ThroughTheAction(benchmark::State &state, const QString &engine)
{
    ConnectDatabase(BenchDatabase(engine, kUsers).toUtf8().constData());
    for ([[maybe_unused]] auto _ : state) {
        OpenAndStoreAll();
    }
    DisconnectDatabase();
}

// Each sheet's transaction begins before its first read, and ends as the action's does.
std::vector<BareStatement> StatementsOf(const QString &dsn)
{
    ConnectDatabase(dsn.toUtf8().constData());
    const std::string begin = Translate(SessionDialect(), SessionDialect().begin);
    std::vector<BareStatement> statements;
    for (quint32 user = 1; user <= kSheets; ++user) {
        const auto sent = SentBy([user] { OpenAndStore(UserId {user}); });
        statements.push_back({begin});
        std::copy_if(sent.begin(),
                     sent.end(),
                     std::back_inserter(statements),
                     [&](const BareStatement &each) { return each.text != begin; });
    }
    DisconnectDatabase();
    return statements;
}

void Bare(benchmark::State &state, const QString &engine)
{
    const QString dsn = BenchDatabase(engine, kUsers);
    std::vector<BareStatement> statements = StatementsOf(dsn);
    BareSession session(dsn);
    for ([[maybe_unused]] auto _ : state) {
        for (BareStatement &statement : statements) {
            session.Run(statement);
        }
    }
    state.counters["statements"] = static_cast<double>(statements.size());
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
        add("20 sheets opened and stored", ThroughTheAction);
        add("20 sheets, bare", Bare);
        promises.push_back({name("20 sheets opened and stored"), name("20 sheets, bare"), 1.5});
    }
    return RunAndCompare(argc, argv, promises);
}
