// The window while long work runs beside it: its first page, its gaps, its answer to Cancel.
#include "db/dialect.h"
#include "reports/benchmarks.h"
#include "reports/report_data.h"
#include "support/bench_database.h"
#include "support/must.h"
#include "support/spent.h"
#include "ui/reports/page_view.h"
#include "ui/reports/report_viewer.h"
#include "ui/reports/reports_dialog.h"
#include "windows/bench_services.h"
#include "windows/gap_watch.h"

#include <QAction>
#include <QApplication>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QKeyEvent>
#include <QScrollBar>
#include <QTableView>
#include <QTemporaryDir>

using namespace Qt::StringLiterals;

namespace {

const auto kEngine = u"sqlite"_s;
constexpr int kBeat = 1; // millisecond
constexpr int kLongUsers = 26; // 10 000 pages
constexpr int kLongDays = 20'000;
constexpr int kTableUsers = 50; // a million rows

double Milliseconds(const QElapsedTimer &watch)
{
    return 1e-6 * static_cast<double>(watch.nsecsElapsed());
}

// Tells how long it takes from the end of a job until the page view has been painted.
class FirstPageWatch : public QObject
{
public:
    explicit FirstPageWatch(ReportViewer &ofViewer) : viewer(ofViewer)
    {
        viewer.findChild<ReportJob *>()->installEventFilter(this);
        viewer.View().viewport()->installEventFilter(this);
    }

    [[nodiscard]] double Taken() const { return taken; }

protected:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() == QEvent::MetaCall) {
            sinceEnd.start();
        } else if (event->type() == QEvent::Paint && viewer.Table() != nullptr && taken == 0) {
            object->removeEventFilter(this);
            object->event(event);
            taken = Milliseconds(sinceEnd);
            return true;
        }
        return false;
    }

private:
    ReportViewer &viewer;
    QElapsedTimer sinceEnd;
    double taken = 0;
};

class Preview
{
public:
    Preview() { dialog.show(); }

    [[nodiscard]] ReportViewer &Viewer() const { return dialog.Viewer(); }

    void Start(const ReportRequest &request) const
    {
        using namespace viewer_property;
        Viewer().PutProperty(kLayoutFile, request.layoutPath.toUtf8());
        Viewer().PutProperty(kConnection, request.connectionText.toUtf8());
        Viewer().PutProperty(kQuery, request.query.toUtf8());
        Viewer().PutProperty(kAction, 1);
    }

    void WaitUntilReady() const
    {
        QEventLoop loop;
        QObject::connect(&Viewer(), &ReportViewer::Ready, &loop, &QEventLoop::quit);
        if (Viewer().IsBusy()) {
            loop.exec();
        }
        if (!bench.Told().isEmpty()) {
            Fail(bench.Told().first());
        }
        QApplication::processEvents(); // what is to be painted
    }

    // The work is under way: `enough` of it is done.
    void WaitForProgress(const std::function<bool(qint64 done, qint64 whole)> &enough) const
    {
        QEventLoop loop;
        auto *job = Viewer().findChild<ReportJob *>();
        QObject::connect(job, &ReportJob::Progressed, &loop, [&](qint64 done, qint64 whole) {
            if (enough(done, whole)) {
                loop.quit();
            }
        });
        QObject::connect(job, &ReportJob::Ended, &loop, [] {
            Fail(u"The work ended before it could be cancelled."_s);
        });
        loop.exec();
    }

    [[nodiscard]] double Cancel() const
    {
        QElapsedTimer watch;
        watch.start();
        Viewer().Cancel();
        WaitUntilReady();
        return Milliseconds(watch);
    }

private:
    const BenchServices bench;
    ReportsDialog dialog {bench.Services()};
};

ReportRequest LongReport()
{
    return RequestOn(kEngine, u"traffordays"_s, DetailedQuery(kLongUsers, kLongDays));
}

void FirstPage(benchmark::State &state)
{
    const Preview preview;
    const auto request = LongReport();
    for ([[maybe_unused]] auto _ : state) {
        const FirstPageWatch watch(preview.Viewer());
        preview.Start(request);
        preview.WaitUntilReady();
        QElapsedTimer layingOut;
        layingOut.start();
        const ReportPages pages(preview.Viewer().Table()); // what the job did last
        const double laidOut = Milliseconds(layingOut);
        state.SetIterationTime(1e-3 * (laidOut + watch.Taken()));
        state.counters["pages"] = pages.Count();
        state.counters["ms"] = laidOut + watch.Taken();
    }
}

void GapOfRun(benchmark::State &state)
{
    const Preview preview;
    const auto request = LongReport();
    for ([[maybe_unused]] auto _ : state) {
        const GapWatch watch(kBeat);
        preview.Start(request);
        preview.WaitUntilReady();
        state.counters["ms"] = watch.Longest();
    }
}

void GapOfExport(benchmark::State &state)
{
    const QTemporaryDir folder;
    const Preview preview;
    preview.Start(LongReport());
    preview.WaitUntilReady();
    for ([[maybe_unused]] auto _ : state) {
        const GapWatch watch(kBeat);
        for (const QString &suffix : {u"pdf"_s, u"csv"_s, u"html"_s, u"xlsx"_s}) {
            preview.Viewer().SaveTo(folder.filePath(u"report."_s + suffix));
            preview.WaitUntilReady();
        }
        state.counters["ms"] = watch.Longest();
    }
}

// Down by keys, through the whole by the bar, to both ends: each step is painted before the next.
void GapOfScrolling(benchmark::State &state)
{
    constexpr int kSteps = 200;
    const Preview preview;
    preview.Start(RequestOn(kEngine, u"traffordays"_s, DetailedQuery(kTableUsers, kLongDays)));
    preview.WaitUntilReady();
    preview.Viewer().findChild<QAction *>(u"asTable"_s)->trigger();
    preview.WaitUntilReady();
    auto *rows = preview.Viewer().findChild<QTableView *>(u"rows"_s);
    QScrollBar &bar = *rows->verticalScrollBar();
    for ([[maybe_unused]] auto _ : state) {
        const GapWatch watch(kBeat);
        double most = 0;
        for (int step = 0; step < kSteps; ++step) {
            const double before = OwnSeconds();
            QKeyEvent press(QEvent::KeyPress,
                            step == kSteps / 2 ? Qt::Key_End : Qt::Key_PageDown,
                            Qt::NoModifier);
            QApplication::sendEvent(rows, &press);
            QApplication::processEvents();
            bar.setValue(static_cast<int>(qint64 {bar.maximum()} * (step * 61 % kSteps) / kSteps));
            QApplication::processEvents();
            most = std::max(most, 1e3 * (OwnSeconds() - before));
        }
        state.counters["rows"] = rows->model()->rowCount();
        state.counters["ms"] = watch.Longest();
        state.counters["ms of work, two steps"] = most; // whatever else the machine does
    }
}

void CancelQuery(benchmark::State &state, const QString &engine)
{
    const Preview preview;
    const auto request = RequestOn(engine, u"trafall"_s);
    for ([[maybe_unused]] auto _ : state) {
        preview.Start(request);
        int pulses = 0;
        preview.WaitForProgress([&](qint64, qint64) { return ++pulses == 8; });
        state.counters["ms"] = preview.Cancel();
    }
}

void CancelStream(benchmark::State &state, const QString &engine)
{
    const Preview preview;
    const auto request = RequestOn(engine, u"stream"_s);
    for ([[maybe_unused]] auto _ : state) {
        preview.Start(request);
        preview.WaitForProgress([](qint64 done, qint64) { return done > 100'000; });
        state.counters["ms"] = preview.Cancel();
    }
}

// In the middle of the rows or pages, and when all of them are written.
void CancelExport(benchmark::State &state)
{
    const QTemporaryDir folder;
    const Preview preview;
    preview.Start(LongReport());
    preview.WaitUntilReady();
    double longest = 0;
    for ([[maybe_unused]] auto _ : state) {
        for (const QString &suffix : {u"pdf"_s, u"csv"_s, u"html"_s, u"xlsx"_s}) {
            const QString name = folder.filePath(u"report."_s + suffix);
            preview.Viewer().SaveTo(name);
            preview.WaitForProgress([](qint64 done, qint64) { return done > 0; });
            const double taken = preview.Cancel();
            state.counters[suffix.toStdString()] = taken;
            longest = std::max(longest, taken);
            if (QFile::exists(name)) {
                Fail(u"A cancelled export left a file."_s);
            }
        }
        state.counters["ms"] = longest;
    }
}

void CancelPacking(benchmark::State &state)
{
    constexpr qint64 kNearTheEnd = 8192;
    const QTemporaryDir folder;
    const Preview preview;
    preview.Start(LongReport());
    preview.WaitUntilReady();
    for ([[maybe_unused]] auto _ : state) {
        preview.Viewer().SaveTo(folder.filePath(u"report.xlsx"_s));
        preview.WaitForProgress(
            [](qint64 done, qint64 whole) { return done + kNearTheEnd > whole; });
        state.counters["ms"] = preview.Cancel();
    }
}

} // namespace

void AddWindow(Promises &promises)
{
    const auto add = [&](const std::string &name, auto function, double most) {
        benchmark::RegisterBenchmark(name.c_str(), function)
            ->Iterations(1)
            ->Unit(benchmark::kMillisecond);
        promises.bounds.push_back({name, "ms", most});
    };
    add("first page after the rows", FirstPage, 50);
    add("gap while a report runs", GapOfRun, 16);
    add("gap while a report is saved", GapOfExport, 16);
    add("gap while a table of a million rows scrolls", GapOfScrolling, 16);
    add("Cancel of a saving", CancelExport, 250);
    add("Cancel of a packing", CancelPacking, 250);
    for (const char *engine : kBenchEngines) {
        const auto on = [engine](auto function) {
            return [=](benchmark::State &state) { function(state, QString::fromLatin1(engine)); };
        };
        add(std::string(engine) + ": Cancel of a query", on(CancelQuery), 250);
        add(std::string(engine) + ": Cancel of a stream", on(CancelStream), 250);
    }
}
