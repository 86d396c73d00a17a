// The longest time for which the console's windows neither paint nor answer, while nobody else is at
// work and while others hold what they need for two seconds.
#include "app/administrator_app.h"
#include "deaf/console.h"
#include "deaf/disturbance.h"
#include "deaf/hand.h"
#include "support/bench_database.h"
#include "support/must.h"
#include "support/promise.h"
#include "windows/gap_watch.h"

#include <QElapsedTimer>

#include <cstdio>
#include <functional>
#include <limits>
#include <vector>

using namespace Qt::StringLiterals;

namespace {

constexpr int kBeat = 10; // milliseconds, as those that follow
constexpr double kMost = 100;
constexpr qint64 kDisturbed = 900; // what takes less was not disturbed
constexpr int kRuns = 2;

// What gets in the way of an act, and when.
struct InTheWay
{
    Disturbance::Hold hold {};
    bool atBegin = false;
    bool beforeOk = false;
    bool mayFail = false; // at first: a person then presses OK again
};

using MakeInTheWay = std::function<InTheWay(const Console &console)>;

// Begins the disturbance and returns when it is in the way.
void Disturb(Disturbance &disturbance)
{
    LoopUntil([&] { return disturbance.IsOver(); });
    disturbance.Begin();
    LoopUntil([&] { return disturbance.IsInTheWay(); });
}

// Tells what should not be, on the way to a measurement that does not count.
void Tell(benchmark::State &state, const QString &problem)
{
    std::fprintf(stderr, "%s\n", qPrintable(problem));
    state.counters["ms"] = std::numeric_limits<double>::infinity();
}

void Measure(benchmark::State &state,
             const QString &engine,
             const Act &act,
             const MakeInTheWay &make)
{
    Console console(DeafData(engine));
    if (act.prepare != nullptr) {
        act.prepare(console);
    }
    const InTheWay inTheWay = make(console);
    Disturbance disturbance(inTheWay.hold);
    Hand hand([&] {
        if (inTheWay.beforeOk) {
            Disturb(disturbance);
        }
    });
    TellEntries(hand);
    QElapsedTimer taken;
    for ([[maybe_unused]] auto _ : state) {
        if (inTheWay.atBegin) {
            Disturb(disturbance);
        }
        taken.start();
        const GapWatch watch(kBeat);
        act.run(console);
        console.Settle();
        state.counters["ms"] = watch.Longest();
    }
    if (!inTheWay.mayFail && !console.Told().isEmpty()) {
        Tell(state, console.Told().first());
    } else if (act.stores == Act::Stores::OnOk && hand.Presses() == 0) {
        Tell(state, u"%1: no window opened"_s.arg(QLatin1StringView(act.name)));
    } else if (inTheWay.hold && taken.elapsed() < kDisturbed) {
        Tell(state, u"%1: nothing was in the way"_s.arg(QLatin1StringView(act.name)));
    }
}

class Benchmarks
{
public:
    void AddAlone(const QString &engine)
    {
        const auto nothing = [](const Console &) { return InTheWay(); };
        for (const Act &act : ActsOnRows()) {
            Add(engine, "alone", act, nothing);
        }
        Add(engine, "alone", kOptions, nothing);
        Add(engine, "alone", kFirstStart, nothing);
    }

    void AddHeldRows(const QString &engine)
    {
        for (const Act &act : ActsOnRows()) {
            if (act.stores != Act::Stores::Never) {
                Add(engine, "rows held", act, [engine, &act](const Console &console) {
                    return InTheWay {.hold = HeldDatabase(engine, console.Dsn()),
                                     .atBegin = act.stores == Act::Stores::AtOnce,
                                     .beforeOk = act.stores == Act::Stores::OnOk};
                });
            }
        }
    }

    void AddFrozen(const QString &engine)
    {
        for (const Act &act : ActsOnRows()) {
            Add(engine, "frozen", act, [engine, &act](const Console &) {
                return InTheWay {.hold = FrozenServer(engine),
                                 .atBegin = true,
                                 .beforeOk = act.stores == Act::Stores::OnOk};
            });
        }
        Add(engine, "frozen", kOptions, [engine](const Console &) {
            return InTheWay {.hold = FrozenServer(engine), .atBegin = true};
        });
    }

    void AddHeldSettings(const QString &engine)
    {
        for (const Act *act : {&kOptions, &kFirstStart}) {
            Add(engine, "settings held", *act, [act](const Console &console) {
                return InTheWay {.hold = HeldSettings(console.Services().settings),
                                 .atBegin = act->stores == Act::Stores::AtOnce,
                                 .beforeOk = act->stores == Act::Stores::OnOk,
                                 .mayFail = true};
            });
        }
    }

    [[nodiscard]] const std::vector<Bound> &Bounds() const { return bounds; }

private:
    void Add(const QString &engine, const char *when, const Act &act, const MakeInTheWay &make)
    {
        const auto name =
            u"%1, %2: %3"_s.arg(engine, QLatin1StringView(when), QLatin1StringView(act.name))
                .toStdString();
        benchmark::RegisterBenchmark(
            name.c_str(),
            [engine, &act, make](benchmark::State &state) { Measure(state, engine, act, make); })
            ->Iterations(1)
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond);
        bounds.push_back({name, "ms", kMost});
    }

    std::vector<Bound> bounds;
};

} // namespace

int main(int argc, char **argv)
{
    const CAdministratorApp app(argc, argv);
    Benchmarks benchmarks;
    for (const char *name : kBenchEngines) {
        const auto engine = QString::fromLatin1(name);
        benchmarks.AddAlone(engine);
        benchmarks.AddHeldRows(engine);
        if (engine == u"sqlite"_s) {
            benchmarks.AddHeldSettings(engine);
        } else {
            benchmarks.AddFrozen(engine);
        }
    }
    return RunAndCompare(argc, argv, {}, kRuns, benchmarks.Bounds());
}
