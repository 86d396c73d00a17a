// Notices on their way to the accounting service: sent in order, and told of when they were not heard.
#pragma once

#include "db/ids.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCall>
#include <QHash>
#include <QMutex>
#include <QObject>
#include <QString>

#include <deque>
#include <vector>

// Each notice asks for a reply, and nobody waits for it. A bus lets a connection have only so many
// unanswered calls (128 is usual), then it refuses them all, the questions to the service manager too.
// So only some are under way at a time; further ones go when answers come.
class NoticeQueue : public QObject
{
    Q_OBJECT

public:
    static constexpr std::size_t kMostUnanswered = 64;

    // A notice that is not answered within `replyTimeout` milliseconds counts as not heard.
    NoticeQueue(const QDBusConnection &bus, int replyTimeout);
    // What still waits is sent without asking for a reply.
    ~NoticeQueue() override;
    NoticeQueue(const NoticeQueue &) = delete;
    NoticeQueue &operator=(const NoticeQueue &) = delete;

    // From any thread. Notices reach the bus in the order of the calls, and in all but the rarest case
    // are on their way there when this returns.
    void Send(const QDBusMessage &notice, UserId userId);

    // On the queue's own thread: whether it is not yet known of some notice if it was heard.
    [[nodiscard]] bool IsTelling() const { return !openNotices.isEmpty(); }

signals:
    // On the queue's own thread, once for a notice.
    void NotHeard(UserId userId, const QString &reason);
    // On the queue's own thread, when it is known of every notice; `allHeard` speaks of those since the
    // last time.
    void Settled(bool allHeard);

private:
    struct Waiting
    {
        quint64 number;
        QDBusMessage notice;
    };

    void SendWaiting(); // with the lock held
    void Expect(quint64 number, UserId userId);
    void Watch(quint64 number, const QDBusPendingCall &call);
    void Settle(quint64 number, const QDBusPendingCall &call);
    void Expire(quint64 number);
    void Tell(quint64 number, const QString &reason);
    void Close(quint64 number);

    // On the queue's own thread only.
    QHash<quint64, UserId> openNotices; // the user of each that is neither answered nor told of
    bool allHeard = true; // since none was open

    // Of all threads, under the lock.
    QMutex lock;
    QDBusConnection bus;
    quint64 lastNumber = 0;
    std::deque<Waiting> waiting;
    std::vector<QDBusPendingCall> unanswered; // and some that were answered meanwhile

    const int replyTimeout; // milliseconds
};
