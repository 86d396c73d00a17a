// From the start of the program to a painted window: the console on 1000 users against windows of the
// toolkit that are empty and that show one word, which adds its first use of fonts.
#include "config/config_store.h"
#include "support/bench_database.h"
#include "support/promise.h"

#include <QCoreApplication>
#include <QProcess>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

void Run(benchmark::State &state, const QString &program, const QStringList &arguments)
{
    const QString path = QCoreApplication::applicationDirPath() + u'/' + program;
    for ([[maybe_unused]] auto _ : state) {
        if (QProcess::execute(path, arguments) != 0) {
            state.SkipWithError("the program failed");
            break;
        }
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QTemporaryDir folder;
    const ConfigStore config(folder.path());
    config.CreateKey(ConfigKeyId::Base);
    config.WriteText(values::kBillDsn, BenchDatabase(u"sqlite"_s, 1000));
    const auto add = [](const char *what, const QString &program, const QStringList &arguments) {
        benchmark::RegisterBenchmark(
            what, [=](benchmark::State &state) { Run(state, program, arguments); })
            ->UseRealTime()
            ->Unit(benchmark::kMillisecond);
    };
    add("start of the console", u"console_window"_s, {folder.path()});
    add("start of an empty window", u"empty_window"_s, {});
    add("start of a window with a word", u"word_window"_s, {});
    return RunAndCompare(argc,
                         argv,
                         {{"start of the console", "start of an empty window", 2.0},
                          {"start of the console", "start of a window with a word", 2.0}});
}
