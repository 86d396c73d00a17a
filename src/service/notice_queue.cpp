#include "service/notice_queue.h"

#include <QCoreApplication>
#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QMutexLocker>
#include <QPointer>
#include <QTimer>

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(NoticeQueue)
};

} // namespace

NoticeQueue::NoticeQueue(const QDBusConnection &serviceBus, int newReplyTimeout)
    : bus(serviceBus)
    , replyTimeout(newReplyTimeout)
{ }

NoticeQueue::~NoticeQueue()
{
    for (const Waiting &each : waiting) {
        bus.send(each.notice);
    }
}

void NoticeQueue::Send(const QDBusMessage &notice, UserId userId)
{
    const QMutexLocker locked(&lock);
    const quint64 number = ++lastNumber;
    QMetaObject::invokeMethod(
        this, [this, number, userId] { Expect(number, userId); }, Qt::QueuedConnection);
    waiting.push_back({number, notice});
    SendWaiting();
}

void NoticeQueue::SendWaiting()
{
    // What was answered is looked up here, so that it counts though the queue's own thread is busy.
    std::erase_if(unanswered, [](const QDBusPendingCall &call) { return call.isFinished(); });
    while (!waiting.empty() && unanswered.size() < kMostUnanswered) {
        // The bus remembers an unanswered call for ever, so it counts here for as long: the time for an
        // answer is taken by Expire.
        const auto call = bus.asyncCall(waiting.front().notice, std::numeric_limits<int>::max());
        unanswered.push_back(call);
        QMetaObject::invokeMethod(
            this,
            [this, number = waiting.front().number, call] { Watch(number, call); },
            Qt::QueuedConnection);
        waiting.pop_front();
    }
}

void NoticeQueue::Expect(quint64 number, UserId userId)
{
    openNotices.insert(number, userId);
    // A coarse timer could overtake the one before it.
    QTimer::singleShot(replyTimeout, Qt::PreciseTimer, this, [this, number] { Expire(number); });
}

void NoticeQueue::Watch(quint64 number, const QDBusPendingCall &call)
{
    if (call.isFinished()) { // a call on a lost connection has nothing to watch
        Settle(number, call);
        return;
    }
    auto *watcher = new QDBusPendingCallWatcher(call, this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, number, watcher] {
        watcher->deleteLater(); // whoever is told may end the queue
        Settle(number, *watcher);
    });
}

void NoticeQueue::Settle(quint64 number, const QDBusPendingCall &call)
{
    {
        const QMutexLocker locked(&lock);
        SendWaiting();
    }
    if (!call.isError()) {
        Close(number);
        return;
    }
    const QDBusError error = call.error();
    Tell(number, error.message().isEmpty() ? error.name() : error.message());
}

void NoticeQueue::Expire(quint64 number)
{
    if (!openNotices.contains(number)) {
        return;
    }
    {
        const QMutexLocker locked(&lock);
        if (!waiting.empty() && waiting.front().number == number) {
            bus.send(waiting.front().notice); // it may be heard late
            waiting.pop_front();
        }
    }
    Tell(number, Words::tr("No answer within %1 seconds").arg(replyTimeout / 1000.0));
}

void NoticeQueue::Tell(quint64 number, const QString &reason)
{
    const auto found = openNotices.constFind(number);
    if (found == openNotices.constEnd()) {
        return;
    }
    const QPointer<NoticeQueue> self(this); // whoever is told may end the queue
    allHeard = false;
    emit NotHeard(*found, reason);
    if (self) {
        Close(number);
    }
}

void NoticeQueue::Close(quint64 number)
{
    if (openNotices.remove(number) && openNotices.isEmpty()) {
        emit Settled(std::exchange(allHeard, true));
    }
}
