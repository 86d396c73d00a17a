// The console's database session on a thread of its own: windows hand it work and go on painting.
#pragma once

#include "db/failure.h"

#include <QList>
#include <QObject>
#include <QPointer>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

// How a piece of work that was given up is told by the value that it would have given: the general
// case is a Result; another type specializes it. `mayBeKept`: it had come to where it changes what is
// kept.
template <typename Value>
struct GivenUp
{
    [[nodiscard]] static Value As(const Failure &failure, bool mayBeKept)
    {
        Q_UNUSED(mayBeKept)
        return tl::unexpected(failure);
    }
};

// Work runs one piece after the other, each to its end. What does not answer is given up together
// with its thread and its connection, which are left to themselves, and the session goes on with new
// ones. Therefore work captures by value: it may outlive whoever started it.
//
// Belongs to the thread that made it, whose event loop delivers what the work gave.
class SessionThread : public QObject
{
    Q_OBJECT

public:
    enum class Patience {
        Bounded, // a call without an answer is given up in time
        Endless, // one may take long: only a cancel gives it up
    };

    explicit SessionThread(QObject *parent = nullptr);

    // Waits for no call that does not answer.
    ~SessionThread() override;

    // Opens the session on the ODBC data source `dsn`: the work that is started later finds it open. A
    // session that cannot be opened, or is lost, is opened again after pauses that grow.
    void Open(const QString &dsn);

    // Where Open() was last told to open it; empty before.
    [[nodiscard]] const QString &DataSource() const { return dsn; }

    // Closes the session; work that has not begun is dropped.
    void Close();

    // Runs `work` on the session's thread; `done` gets its value in this object's thread, unless
    // `context` is gone by then.
    template <typename Work, typename Done>
    void Start(QObject *context, Work work, Done done, Patience patience = Patience::Bounded)
    {
        auto task = std::make_shared<TaskOf<Work, Done>>(context, std::move(work), std::move(done));
        task->patience = patience;
        Enqueue(std::move(task));
    }

    // Whether work runs or waits.
    [[nodiscard]] bool IsBusy() const { return running != nullptr || !waiting.isEmpty(); }

    // Ends the work that runs and what waits: each gives the failure Cancelled, or what it came to
    // before; a call that does not answer to that either is given up.
    void Cancel();

    // Tries to open a lost session now.
    void Reopen();

    // As the last piece of work left it.
    [[nodiscard]] bool IsConnected() const { return connected; }

    // How many calls of the process were given up and may still run: a program that ends does not wait
    // for them.
    [[nodiscard]] static int AbandonedCalls();

signals:
    void ConnectionChanged(bool connected);
    void BecameIdle();

private:
    struct Task
    {
        Task() = default;
        Task(const Task &) = delete;
        Task &operator=(const Task &) = delete;
        virtual ~Task() = default;

        virtual void Run() = 0; // on the session's thread
        virtual void GiveUp(const Failure &failure, bool mayBeKept) = 0; // instead of its value

        // Either of them once, in the owner's thread: what is called does not outlive it elsewhere.
        virtual void Deliver() = 0;
        virtual void Drop() = 0;

        Patience patience = Patience::Bounded;
        bool opensSession = false; // the session's own work, which nobody cancels
    };

    template <typename Work, typename Done>
    class TaskOf : public Task
    {
    public:
        using Value = std::invoke_result_t<Work>;

        TaskOf(QObject *newContext, Work newWork, Done newDone)
            : context(newContext)
            , work(std::move(newWork))
            , done(std::move(newDone))
        { }

        void Run() override { Take(std::make_shared<Value>(work())); }

        void GiveUp(const Failure &failure, bool mayBeKept) override
        {
            Take(std::make_shared<Value>(GivenUp<Value>::As(failure, mayBeKept)));
        }

        void Deliver() override
        {
            auto receiver = std::exchange(done, std::nullopt);
            if (receiver && context) {
                (*receiver)(std::move(*value.load()));
            }
        }

        void Drop() override { done.reset(); }

    private:
        // The first one counts: work that was given up may come to its end all the same.
        void Take(const std::shared_ptr<Value> &newValue)
        {
            std::shared_ptr<Value> none;
            value.compare_exchange_strong(none, newValue);
        }

        QPointer<QObject> context;
        Work work;
        std::optional<Done> done;
        std::atomic<std::shared_ptr<Value>> value;
    };

    class Worker;

    void Enqueue(std::shared_ptr<Task> task);
    void StartWorker(std::chrono::milliseconds delay);
    template <typename Work>
    void OpenSessionBy(Work work);
    void GoOn();
    void Finished(int byWorker, bool isOpen);
    void Conclude();
    void DeliverSoon(std::shared_ptr<Task> task);
    void LookAfterCall();
    void Abandon(Failure::Kind kind);
    void SetConnected(bool isOpen);
    void ShowConnected(bool isOpen);

    QString dsn;
    std::shared_ptr<Worker> worker;
    int workers = 0; // so far: the number of the present one
    std::shared_ptr<Task> running;
    QList<std::shared_ptr<Task>> waiting;
    QTimer watchTimer {this}; // while work runs
    QTimer reopenTimer {this}; // while the session is lost
    std::optional<std::chrono::steady_clock::time_point> cancelledAt;
    std::chrono::milliseconds pause {};
    bool connected = true; // nothing is known against it
};
