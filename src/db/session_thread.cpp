#include "db/session_thread.h"

#include "db/call_watch.h"
#include "db/failure_log.h"
#include "db/query.h"
#include "db/session.h"
#include "db/session_limits.h"

#include <QCoreApplication>

#include <algorithm>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(SessionThread)
};

using Clock = CallWatch::Clock;

constexpr auto kLookAgain = 25ms;
constexpr auto kPatienceAtTheEnd = 200ms;
constexpr int kMostHosts =
    3; // of a data source: the driver gives each its time, one after the other

std::atomic<int> abandonedCalls = 0;

Failure GaveUp(Failure::Kind kind, const QString &text)
{
    return {.kind = kind, .statement = {}, .sqlState = {}, .native = 0, .text = text};
}

} // namespace

// The thread and the one piece of work that it has. It outlives its owner when a call does not answer.
class SessionThread::Worker : public std::enable_shared_from_this<Worker>
{
public:
    // `newTold` is called on the thread after each piece of work.
    explicit Worker(std::function<void(bool isOpen)> newTold) : told(std::move(newTold)) { }

    void Begin()
    {
        thread = std::thread([self = shared_from_this()] { self->Run(); });
    }

    void Give(std::shared_ptr<Task> newTask)
    {
        watch->Renew();
        const std::lock_guard lock(mutex);
        task = std::move(newTask);
        changed.notify_all();
    }

    // From now on nothing is told. A thread that does not come to its end in time is left to itself: it
    // closes its connection when it does. True when what it was doing is not kept.
    bool End(std::chrono::milliseconds patience)
    {
        std::unique_lock lock(mutex);
        ending = true;
        told = nullptr;
        changed.notify_all();
        if (changed.wait_for(lock, patience, [this] { return ended; })) {
            lock.unlock();
            // A program that ends must not do so beside what the driver does at a thread's end.
            thread.join();
            return false;
        }
        thread.detach();
        ++abandonedCalls;
        return watch->Abandon();
    }

    CallWatch &Watch() { return *watch; }

private:
    void Run()
    {
        WatchCalls(watch);
        while (const std::shared_ptr<Task> next = Next()) {
            BeginWork();
            next->Run();
            EndWork();
            watch->Finish();
            const std::lock_guard lock(mutex);
            if (told) {
                told(IsDatabaseOpen());
            }
        }
        DisconnectDatabase();
        watch->Finish(); // also for a cancel that came while nothing ran
        const std::lock_guard lock(mutex);
        ended = true;
        abandonedCalls -= watch->IsAbandoned() ? 1 : 0;
        changed.notify_all();
    }

    // Nothing when the thread is to end.
    std::shared_ptr<Task> Next()
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return ending || task; });
        return ending ? nullptr : std::exchange(task, nullptr);
    }

    std::thread thread; // from Begin() until End(), which both belong to the owner
    const std::shared_ptr<CallWatch> watch = std::make_shared<CallWatch>();
    std::mutex mutex; // guards what follows
    std::condition_variable changed;
    std::shared_ptr<Task> task;
    std::function<void(bool)> told;
    bool ending = false;
    bool ended = false;
};

SessionThread::SessionThread(QObject *parent) : QObject(parent)
{
    watchTimer.setInterval(kLookAgain);
    connect(&watchTimer, &QTimer::timeout, this, &SessionThread::LookAfterCall);
    reopenTimer.setSingleShot(true);
    connect(&reopenTimer, &QTimer::timeout, this, &SessionThread::Reopen);
}

SessionThread::~SessionThread()
{
    Close();
}

void SessionThread::Open(const QString &newDsn)
{
    Close();
    dsn = newDsn;
    pause = Limits().firstPause;
    StartWorker(0ms);
}

void SessionThread::Close()
{
    watchTimer.stop();
    reopenTimer.stop();
    waiting.clear();
    if (const auto dropped = std::exchange(running, nullptr)) {
        dropped->Drop();
    }
    if (const auto ending = std::exchange(worker, nullptr)) {
        ending->Watch().Cancel();
        ending->End(kPatienceAtTheEnd);
    }
}

// Gives the session's own work to the thread before anything else.
template <typename Work>
void SessionThread::OpenSessionBy(Work work)
{
    const auto open = [work = std::move(work)] {
        work();
        return IsSessionOpen();
    };
    const auto ignore = [](const Result<bool> &) {};
    auto task = std::make_shared<TaskOf<decltype(open), decltype(ignore)>>(this, open, ignore);
    task->opensSession = true;
    waiting.prepend(std::move(task));
    GoOn();
}

void SessionThread::StartWorker(std::chrono::milliseconds delay)
{
    worker = std::make_shared<Worker>([this, number = ++workers](bool isOpen) {
        QMetaObject::invokeMethod(
            this, [this, number, isOpen] { Finished(number, isOpen); }, Qt::QueuedConnection);
    });
    worker->Begin();
    OpenSessionBy([name = dsn.toUtf8(), delay] {
        AimDatabase(name.constData(), delay);
        if (delay == 0ms) {
            ReopenDatabase();
        }
    });
}

void SessionThread::Reopen()
{
    reopenTimer.stop();
    const auto opens = [](const std::shared_ptr<Task> &task) { return task->opensSession; };
    const bool isAtIt =
        (running && opens(running)) || std::any_of(waiting.cbegin(), waiting.cend(), opens);
    if (worker && !isAtIt) {
        OpenSessionBy([] { ReopenDatabase(); });
    }
}

void SessionThread::Enqueue(std::shared_ptr<Task> task)
{
    if (!worker) {
        // Nothing was ever opened: whoever waits is told so, in its own time.
        task->GiveUp(GaveUp(Failure::Kind::ConnectionLost, {}), false);
        DeliverSoon(std::move(task));
        return;
    }
    waiting.append(std::move(task));
    GoOn();
}

void SessionThread::GoOn()
{
    if (!running && !waiting.isEmpty()) {
        running = waiting.takeFirst();
        cancelledAt.reset();
        watchTimer.start();
        worker->Give(running);
    }
}

void SessionThread::Finished(int byWorker, bool isOpen)
{
    if (byWorker == workers && running) {
        SetConnected(isOpen);
        Conclude();
    }
}

// What waits goes on before what ran is delivered: that may take as long as a person reads a message.
void SessionThread::Conclude()
{
    watchTimer.stop();
    const auto done = std::exchange(running, nullptr);
    GoOn();
    const QPointer<SessionThread> self(this);
    done->Deliver();
    if (self && !IsBusy()) {
        emit BecameIdle();
    }
}

void SessionThread::DeliverSoon(std::shared_ptr<Task> task)
{
    QMetaObject::invokeMethod(
        this, [task = std::move(task)] { task->Deliver(); }, Qt::QueuedConnection);
}

void SessionThread::Cancel()
{
    for (const auto &task : std::exchange(waiting, {})) {
        if (task->opensSession) {
            waiting.append(task);
        } else {
            task->GiveUp(GaveUp(Failure::Kind::Cancelled, {}), false);
            DeliverSoon(task);
        }
    }
    if (running && !running->opensSession) {
        cancelledAt = Clock::now();
        worker->Watch().Cancel();
    } else if (running) {
        ShowConnected(false); // nobody waits for it any longer
    }
}

void SessionThread::LookAfterCall()
{
    const auto unanswered = running ? worker->Watch().Unanswered() : std::nullopt;
    if (!unanswered) {
        return;
    }
    const bool isConnecting = worker->Watch().IsConnecting();
    const auto limit = isConnecting ? kMostHosts * Limits().connect : Limits().answer;
    const bool isPatient = running->patience == Patience::Endless && !isConnecting;
    if (cancelledAt && Clock::now() - *cancelledAt > Limits().cancel) {
        Abandon(Failure::Kind::Cancelled);
    } else if (!isPatient && *unanswered > limit) {
        Abandon(Failure::Kind::NotAnswered);
    }
}

// The next connection is opened at once, unless it was a connection that did not answer.
void SessionThread::Abandon(Failure::Kind kind)
{
    watchTimer.stop();
    const bool wasConnecting = worker->Watch().IsConnecting();
    const bool nothingKept = worker->End(0ms);
    FailureLog::Instance().Add(GaveUp(kind, Words::tr("A call into the database was given up.")));
    const auto given = std::exchange(running, nullptr);
    given->GiveUp(GaveUp(kind, {}), !nothingKept);
    StartWorker(wasConnecting ? pause : 0ms);
    SetConnected(false);
    given->Deliver();
}

void SessionThread::SetConnected(bool isOpen)
{
    if (isOpen) {
        reopenTimer.stop();
        pause = Limits().firstPause;
    } else if (!reopenTimer.isActive()) {
        reopenTimer.start(pause);
        pause = std::min(2 * pause, Limits().longestPause);
    }
    ShowConnected(isOpen);
}

void SessionThread::ShowConnected(bool isOpen)
{
    if (connected != isOpen) {
        connected = isOpen;
        emit ConnectionChanged(connected);
    }
}

int SessionThread::AbandonedCalls()
{
    return abandonedCalls;
}
