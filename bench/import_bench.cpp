// An import of users from a file: reading it, planning it and writing it, as the console does.
#include "db/session.h"
#include "exchange/import_action.h"
#include "exchange/user_export.h"
#include "support/bench_database.h"
#include "support/must.h"
#include "support/promise.h"

using namespace Qt::StringLiterals;

namespace {

constexpr double kMostForTenThousand = 5000; // milliseconds
constexpr int kKnownUsers = 1000;

// Each number is that of a user that was never imported before.
int Next(int rows)
{
    static int next = 0;
    next += rows;
    return next - rows;
}

// A quarter of the users have a first credit, the others a limit.
QByteArray FileOf(int first, int rows, const QString &words)
{
    QString text =
        u"User name,Full name,IP address,MAC address,Group,Create group,Access,Traffic limit,"
        "Traffic credit\n"_s;
    for (int i = first; i < first + rows; ++i) {
        const bool isPaid = i % 4 == 0;
        text += u"import%1,%2 %1,11.%3.%4.%5,"_s.arg(i)
                    .arg(words)
                    .arg(i >> 16)
                    .arg(i >> 8 & 255)
                    .arg(i & 255);
        text += u"02%1,Import %2,yes,%3\n"_s.arg(i, 10, 16, QLatin1Char('0'))
                    .arg(i % 50)
                    .arg(isPaid ? u"Provider,,100"_s : u"Traffic,500,"_s);
    }
    return text.toUtf8();
}

void Import(const QByteArray &file, ImportState expected)
{
    const auto table = ReadImportTable(file);
    const auto stored = ReadStoredUsers();
    if (!table || !stored) {
        Fail(table ? stored.error().text : table.error());
    }
    const auto job =
        std::make_shared<ImportJob>(ImportJob {*table, {}, PlanImport(*table, *stored, {})});
    if (job->plan.Count(expected) != static_cast<qsizetype>(job->plan.rows.size())) {
        Fail(u"The import is not the one that is measured."_s);
    }
    const Outcome outcome = RunAction(ImportAction(job), {}, nullptr);
    if (!outcome.IsDone()) {
        Fail(InWords(ActionId::ImportUsers, outcome));
    }
}

void Open(const QString &engine)
{
    if (ConnectDatabase(BenchDatabase(engine, kKnownUsers).toUtf8().constData()) == 0) {
        Fail(LastFailure()->text);
    }
}

void AddUsers(benchmark::State &state, const QString &engine, int rows)
{
    Open(engine);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        const QByteArray file = FileOf(Next(rows), rows, u"User"_s);
        state.ResumeTiming();
        Import(file, ImportState::New);
    }
    DisconnectDatabase();
}

void ChangeUsers(benchmark::State &state, const QString &engine, int rows)
{
    Open(engine);
    for ([[maybe_unused]] auto _ : state) {
        state.PauseTiming();
        const int first = Next(rows);
        Import(FileOf(first, rows, u"User"_s), ImportState::New);
        const QByteArray file = FileOf(first, rows, u"Person"_s);
        state.ResumeTiming();
        Import(file, ImportState::Changed);
    }
    DisconnectDatabase();
}

void ExportAll(benchmark::State &state, const QString &engine, int /*rows*/)
{
    Open(engine);
    for ([[maybe_unused]] auto _ : state) {
        if (!ExportedUsers(1.0)) {
            Fail(u"The users could not be exported."_s);
        }
    }
    DisconnectDatabase();
}

} // namespace

int main(int argc, char **argv)
{
    std::vector<Limit> limits;
    for (const char *engine : kBenchEngines) {
        const auto add = [&](const char *what, auto function, int rows, double most) {
            const std::string name = std::string(engine) + ": " + what;
            benchmark::RegisterBenchmark(name.c_str(), function, QString::fromLatin1(engine), rows)
                ->Iterations(1)
                ->UseRealTime()
                ->Unit(benchmark::kMillisecond);
            limits.push_back({name, most});
        };
        add("10 000 new users", AddUsers, 10'000, kMostForTenThousand);
        add("10 000 changed users", ChangeUsers, 10'000, kMostForTenThousand);
        add("100 000 new users", AddUsers, 100'000, 15 * kMostForTenThousand);
        add("export of all", ExportAll, 0, 10 * kMostForTenThousand);
    }
    return RunAndCompare(argc, argv, {}, 2, {}, limits);
}
