// The live connection to the accounting service: it hears at once of blocks by the administrator.
#pragma once

#include "db/ids.h"
#include "service/notice_queue.h"

#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <memory>

// Notices are sent and not waited for, and never start the service. What becomes of them is told
// afterwards. The interface and its slots stand in org.tollbrook.Accounting1.xml.
class ServiceLink : public QObject
{
    Q_OBJECT

public:
    static constexpr int kReplyTimeout = 5000; // milliseconds

    // The service's object on `bus`; null when the bus or the service is not there. A notice counts as
    // not heard when it is not answered within `replyTimeout` milliseconds.
    [[nodiscard]] static std::unique_ptr<ServiceLink> Create(const QDBusConnection &bus,
                                                             int replyTimeout = kReplyTimeout);

    // From any thread while the link lives. Notices reach the bus in the order of the calls.
    void BlockUser(UserId userId) const; // slot 7
    void UnblockUser(UserId userId) const; // slot 8

    // On the link's own thread: whether it is not yet known of some notice if it was heard.
    [[nodiscard]] bool IsTelling() const { return notices->IsTelling(); }

signals:
    // The service refused the notice of this user, or was not there, or did not answer in time; or the
    // bus was lost. Comes on the thread that made the link, out of its event loop, once for a notice.
    void NotHeard(UserId userId, const QString &reason);
    // When that is known of every notice: whether all since the last time were heard. In the same way.
    void Settled(bool allHeard);

private:
    ServiceLink(const QDBusConnection &bus, int replyTimeout);
    void Send(const QString &operation, UserId userId) const;

    std::unique_ptr<NoticeQueue> notices;
};
